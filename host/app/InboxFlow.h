// The list of photos that wait to be filed, kept as the site has it.
#pragma once

#include "host/app/CatchUpPictures.h"
#include "site/IBimPhotos.h"
#include "site/IChanges.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <vector>

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
}

namespace host {

class BulkFlow;
class HostSession;
class InboxWindow;
class MainWindow;
struct InboxItem;

/// Reads page by page as the person scrolls, and anew after changes while the window is open. What
/// it is made of must outlive it. Thread: user interface.
class InboxFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        BulkFlow& bulk;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures;
    };

    explicit InboxFlow(const Parts& flowParts);
    ~InboxFlow() override;

    /// To the front, if it stands open already.
    void Show();
    /// Reads anew, at once.
    void Reload();

private:
    using Photos = site::Page<KX_DATA::BimPicRow>;
    void MakeWindow();
    void ConnectPictures();
    void NoteChanges(const site::Changes& changes);
    void ReadMore();
    void ReadAll();
    void FileChosen();
    [[nodiscard]] Photos Read(qint64 page, qint64 pageSize) const;
    [[nodiscard]] std::vector<InboxItem> ItemsOf(const Photos& photos) const;

    const Parts m_parts;
    QPointer<InboxWindow> m_list;
    std::unique_ptr<CatchUpPictures> m_thumbs;
    QTimer m_reading;
    std::shared_ptr<void> m_changes; ///< keeps it told
};

} // namespace host
