// What others file, on its way to the toasts and to the list to catch up with.
#pragma once

#include "host/app/CatchUpPictures.h"
#include "host/reminders/CatchUp.h"
#include "host/reminders/PacedMessages.h"
#include "host/reminders/PushChannel.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
} // namespace ZelvorNRQ_KXVeskPicture

namespace host {

class HostSession;
class MainWindow;
class Surroundings;
struct CatchUpItem;

/// Hands messages to the module and lets it show what is ready; keeps the list and the two switches
/// for each person. What it is made of must outlive it. Thread: user interface.
class ReminderFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        Surroundings& around;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures;
    };
    /// From now on.
    explicit ReminderFlow(const Parts& flowParts);

    /// The list is that of the projects which are open now.
    void ProjectChanged();
    void MarkAllRead();
    /// It was looked at on another way, such as by a toast.
    void PhotoSeen(qint32 picId);
    /// Keeps what was read.
    void Keep();

private:
    void ConnectDock();
    void ConnectSwitches();
    void KeepSwitches();
    void OnFiled(const site::Filings& filings);
    void Announce(const site::Filing& filing);
    void HandOn(const ReminderMessage& message);
    void NoteChanges(const site::Changes& changes);
    /// The rows that are listed, as the site has them now.
    void Relist();
    void ListOlder(qint64 before);
    void ShowCount();
    void Open(int row);
    void MarkRow(int row);
    [[nodiscard]] std::vector<CatchUpItem> ItemsOf(const site::Filings& filings) const;
    [[nodiscard]] QString SwitchSetting() const;

    Parts m_parts;
    PacedMessages m_messages;
    CatchUpPictures m_thumbs;
    std::unique_ptr<CatchUp> m_catchUp; ///< null where it couldn't be read
    std::unique_ptr<PushChannel> m_channel;
    bool m_popsPhotos = true;
    std::shared_ptr<void> m_changes;
    QTimer m_relisting;
};

} // namespace host
