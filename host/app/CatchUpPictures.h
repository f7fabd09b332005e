// Small pictures for the lists of the host: what others filed, what waits to be filed.
#pragma once

#include <QImage>
#include <QObject>
#include <QString>

#include <stop_token>
#include <vector>

namespace host {

class HostSession;

/// Fetches and decodes on the session's transfer threads, two at a time, the latest wish first;
/// what nobody waits for any more is dropped. Thread: user interface.
class CatchUpPictures final : public QObject {
    Q_OBJECT

public:
    /// More can't be in sight of a list that is as high as the screen.
    static constexpr std::size_t kMostOfList = 60;

    /// The session must outlive it.
    /// @param mostWishes  those that wait; older ones are dropped.
    explicit CatchUpPictures(const HostSession& owner, std::size_t mostWishes = kMostOfList)
        : m_session(owner), m_most(mostWishes) {}
    ~CatchUpPictures() override;

    /// At most so large, in pixels of the screen.
    void SetSize(const QSize& size) { m_size = size; }
    void Ask(qint32 ppid, const QString& uuid);

signals:
    /// Null: it can't be fetched or is no picture.
    void Came(const QString& uuid, const QImage& picture);
    /// Nobody fetches it any more; it may be asked for again.
    void Dropped(const QString& uuid);

private:
    struct Wish {
        qint32 ppid = 0;
        QString uuid;
    };
    void StartNext();
    [[nodiscard]] bool Start(const Wish& wish);
    void Take(const QString& uuid, const QImage& picture);

    const HostSession& m_session;
    const std::size_t m_most;
    QSize m_size{72, 54};
    std::vector<Wish> m_wishes; ///< the latest last
    int m_running = 0;
    std::stop_source m_end;
};

} // namespace host
