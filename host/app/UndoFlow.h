// What was deleted, hidden or shown comes back by a click in the message bar.
#pragma once

#include "host/services/DoneDeed.h"

#include <QObject>
#include <QTimer>

#include <map>
#include <vector>

namespace host {

class HostSession;
class MainWindow;

/// Offers the undoing of each deed for as long as its message stands. Deeds keep their projects:
/// which one is open doesn't matter. What failed, or wasn't allowed, is offered again. Session and
/// window must outlive it; its messages end with it. Thread: user interface.
class UndoFlow final : public QObject {
    Q_OBJECT

public:
    UndoFlow(HostSession& hostSession, MainWindow& mainWindow);
    ~UndoFlow() override;

    /// Deeds of one kind within a turn of the event loop are one message.
    void Note(const DoneDeed& deed);
    /// They came back by another way in this client: nothing offers them any more.
    void EntriesRestored(const std::vector<qint64>& binIds);

signals:
    /// Something came back: what lists show is old.
    void Undone();

private:
    struct Offer {
        qint64 message = 0;
        DoneDeed deed;
    };
    struct Outcome {
        std::vector<DeedItem> gone;
        size_t back = 0;
    };
    void ShowGathered();
    void Show(const DoneDeed& deed);
    void Undo(int number);
    /// Throws DataError.
    void RequireRight(const DoneDeed& deed) const;
    [[nodiscard]] Outcome BringBack(const DoneDeed& deed) const;
    [[nodiscard]] Outcome Restore(const DoneDeed& deed) const;
    [[nodiscard]] Outcome SetStatusBack(const DoneDeed& deed) const;
    /// How many of one project had the other status.
    [[nodiscard]] size_t SetStatusBack(const DoneDeed& deed, qint32 ppid,
                                       const std::vector<DeedItem>& items) const;
    [[nodiscard]] bool IsThere(site::BinKind what, const DeedItem& item) const;
    void TellOutcome(const DoneDeed& deed, const Outcome& outcome);

    HostSession& m_session;
    MainWindow& m_window;
    std::vector<DoneDeed> m_gathered;
    std::map<int, Offer> m_offers;
    int m_lastNumber = 0;
    QTimer m_gathering;
};

} // namespace host
