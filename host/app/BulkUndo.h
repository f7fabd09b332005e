// What was filed at once is taken back by a click in the message bar.
#pragma once

#include "host/app/BulkRights.h"

#include <QObject>

#include <map>

namespace host {

class MainWindow;

/// What one filing changed.
struct FiledDeed {
    site::ListKind kind = site::ListKind::BimPhotos;
    std::vector<site::BulkChange> changes;
    BulkRights needed;
    QString told; ///< the message with the offer
    bool warns = false;
};

/// Each offer stands as long as its message. What failed, or wasn't allowed, is offered again.
/// Session and window must outlive it; its messages end with it. Thread: user interface.
class BulkUndo final : public QObject {
    Q_OBJECT

public:
    BulkUndo(HostSession& hostSession, MainWindow& mainWindow);
    ~BulkUndo() override;

    void Offer(FiledDeed deed);

signals:
    /// What lists show is old; `left` couldn't be taken back.
    void Undone(const QString& summary, const std::vector<site::BulkSkipped>& left);

private:
    struct Standing {
        qint64 message = 0;
        FiledDeed deed;
    };
    void Undo(int number);

    HostSession& m_session;
    MainWindow& m_window;
    std::map<int, Standing> m_offers;
    int m_lastNumber = 0;
};

} // namespace host
