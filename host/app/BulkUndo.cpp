#include "host/app/BulkUndo.h"

#include "host/app/BulkTexts.h"
#include "host/services/SiteService.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "toolkit/windows/WaitCursor.h"

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

const QString kUndoFaultHead = u"撤销批量归档失败："_s;

} // namespace

BulkUndo::BulkUndo(HostSession& hostSession, MainWindow& mainWindow)
    : m_session(hostSession), m_window(mainWindow) {}

BulkUndo::~BulkUndo() {
    // What is withdrawn takes itself out of the offers.
    while (!m_offers.empty()) {
        m_window.Messages().Withdraw(m_offers.begin()->second.message);
    }
}

void BulkUndo::Offer(FiledDeed deed) {
    const int number = ++m_lastNumber;
    Standing& standing = m_offers[number];
    standing.deed = std::move(deed);
    standing.message = m_window.Messages().Show(
        standing.deed.warns ? MessageKind::Warning : MessageKind::Info, standing.deed.told,
        {u"撤销"_s, BulkUndoTip(standing.deed.kind, standing.deed.changes.size()),
         [this, number] { Undo(number); }, [this, number] { m_offers.erase(number); }});
}

void BulkUndo::Undo(int number) {
    auto found = m_offers.extract(number);
    if (found.empty()) {
        return;
    }
    FiledDeed deed = std::move(found.mapped().deed);
    m_window.Messages().Withdraw(found.mapped().message);
    site::BulkOutcome outcome;
    const QString fault = FaultOfWork([&] {
        const toolkit::WaitCursor waiting;
        RequireRights(ReadBulkRights(m_session, deed.kind), deed.needed);
        outcome = m_session.Site().BulkFiling().TakeBack(deed.changes, SignatureOf(m_session));
    });
    if (!fault.isEmpty()) {
        Offer(std::move(deed)); // below what is told of it
        m_session.Desk()->Report(MessageLevel::Error, kUndoFaultHead + fault);
        return;
    }
    m_window.Messages().Withdraw(kUndoFaultHead); // it holds no longer
    const size_t back = outcome.changed.size();
    const QString summary = BulkUndoneText(deed.kind, back, outcome.skipped.size());
    if (outcome.skipped.empty()) {
        m_window.ShowStatus(summary);
    } else {
        m_session.Desk()->Report(MessageLevel::Warning, summary);
    }
    if (back > 0) {
        WithoutFault(m_session, [&] {
            m_session.Actions().Write(u"撤销"_s + BulkActionText(deed.kind, back));
        });
    }
    emit Undone(summary, outcome.skipped);
}

} // namespace host
