// What the dock of a photo's facts shows, and the file that the photo was made of.
#pragma once

#include "host/ui/photo/PhotoInfo.h"
#include "site/IPhotoFacts.h"

#include <QObject>

#include <map>
#include <optional>
#include <stop_token>

namespace host {

class HostSession;
class MainWindow;

/// Of each photo that has facts of its own, in one question.
[[nodiscard]] std::map<qint32, QString> ReadPhotoTips(HostSession& session,
                                                      const std::vector<qint32>& picIds);

/// Shows the photo that was looked up or chosen last, by a flag or a row of the console. Asks the
/// site while somebody sees the dock, and for the picture's size on a transfer thread. Session and
/// window must outlive it; destroying it ends its transfers. Thread: user interface.
class PhotoFlow final : public QObject {
    Q_OBJECT

public:
    PhotoFlow(HostSession& hostSession, MainWindow& mainWindow);
    ~PhotoFlow() override;

    void Show(qint32 picId);
    /// After a change of the data.
    void Refresh();
    void ProjectChanged();

private:
    void Read();
    void AskSize();
    void TakeSize(const QString& uuid, const QSize& size);
    void OpenOriginal();
    void SaveOriginal();
    /// Copies the original to a path, then does the rest; a failure is told.
    void Fetch(const QString& path, std::function<void()> then);
    [[nodiscard]] PhotoTale Tale() const;

    HostSession& m_session;
    MainWindow& m_window;
    qint32 m_picId = 0; ///< 0: none
    bool m_isStale = false;
    std::optional<site::PhotoDetails> m_details; ///< as they were read last
    QString m_sizeOf;                            ///< uuid; empty: of nothing
    QSize m_size;
    std::stop_source m_end;
};

} // namespace host
