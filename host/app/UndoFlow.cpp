#include "host/app/UndoFlow.h"

#include "host/app/Faults.h"
#include "host/app/UndoTexts.h"
#include "host/services/SiteService.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "services/IVeskPicMng.h"
#include "site/IBimPhotos.h"
#include "site/ICatalogue.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

std::vector<qint32> PicIdsOf(const std::vector<DeedItem>& items) {
    std::vector<qint32> ids;
    std::transform(items.begin(), items.end(), std::back_inserter(ids),
                   [](const DeedItem& item) { return static_cast<qint32>(item.id); });
    return ids;
}

std::vector<QString> QuestionIdsOf(const std::vector<DeedItem>& items) {
    std::vector<QString> ids;
    std::transform(items.begin(), items.end(), std::back_inserter(ids),
                   [](const DeedItem& item) { return item.questionId; });
    return ids;
}

bool HoldsId(const std::vector<qint64>& ids, qint64 id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

} // namespace

UndoFlow::UndoFlow(HostSession& hostSession, MainWindow& mainWindow)
    : m_session(hostSession), m_window(mainWindow) {
    m_gathering.setSingleShot(true);
    m_gathering.setInterval(0);
    m_gathering.callOnTimeout(this, &UndoFlow::ShowGathered);
}

UndoFlow::~UndoFlow() {
    // What is withdrawn takes itself out of the offers.
    while (!m_offers.empty()) {
        m_window.Messages().Withdraw(m_offers.begin()->second.message);
    }
}

void UndoFlow::Note(const DoneDeed& deed) {
    const auto alike =
        std::find_if(m_gathered.begin(), m_gathered.end(), [&](const DoneDeed& each) {
            return each.kind == deed.kind && each.what == deed.what;
        });
    if (alike == m_gathered.end()) {
        m_gathered.push_back(deed);
    } else {
        alike->items.insert(alike->items.end(), deed.items.begin(), deed.items.end());
    }
    m_gathering.start();
}

void UndoFlow::ShowGathered() {
    for (const DoneDeed& deed : std::exchange(m_gathered, {})) {
        Show(deed);
        // What was deleted is written down by who deletes.
        if (deed.kind == DeedKind::Hidden || deed.kind == DeedKind::Shown) {
            WithoutFault(m_session, [&] {
                m_session.Actions().Write(DeedName(deed.kind, deed.what, deed.items.size()));
            });
        }
    }
}

void UndoFlow::Show(const DoneDeed& deed) {
    const int number = ++m_lastNumber;
    m_offers[number].deed = deed;
    const qint64 message =
        m_window.Messages().Show(MessageKind::Info, DoneText(deed),
                                 {u"撤销"_s, UndoTip(deed), [this, number] { Undo(number); },
                                  [this, number] { m_offers.erase(number); }});
    m_offers[number].message = message;
}

void UndoFlow::EntriesRestored(const std::vector<qint64>& binIds) {
    std::vector<qint64> empty;
    for (auto& [number, offer] : m_offers) {
        if (offer.deed.kind == DeedKind::Deleted) {
            std::erase_if(offer.deed.items,
                          [&](const DeedItem& item) { return HoldsId(binIds, item.id); });
            if (offer.deed.items.empty()) {
                empty.push_back(offer.message);
            }
        }
    }
    for (const qint64 message : empty) {
        m_window.Messages().Withdraw(message);
    }
}

void UndoFlow::Undo(int number) {
    const auto found = m_offers.extract(number);
    if (found.empty()) {
        return;
    }
    const DoneDeed deed = found.mapped().deed;
    m_window.Messages().Withdraw(found.mapped().message);
    Outcome outcome;
    const QString fault = FaultOfWork([&] {
        RequireRight(deed);
        outcome = BringBack(deed);
    });
    if (!fault.isEmpty()) {
        Show(deed); // below what is told of it
        m_session.Desk()->Report(MessageLevel::Error, UndoFaultHead(deed) + fault);
        return;
    }
    m_window.Messages().Withdraw(UndoFaultHead(deed)); // it holds no longer
    TellOutcome(deed, outcome);
    if (outcome.back > 0) {
        WithoutFault(m_session, [&] {
            m_session.Actions().Write(u"撤销"_s + DeedName(deed.kind, deed.what, outcome.back));
        });
    }
    // Also what isn't there any more: lists may still show it.
    emit Undone();
}

void UndoFlow::RequireRight(const DoneDeed& deed) const {
    const qint32 right = RightFor(deed.kind, deed.what);
    // Those that the person has now: a message may stand for hours.
    const std::vector<qint32> rights = m_session.Site().Catalogue().RightsOf(m_session.UserName());
    if (right != 0 && std::find(rights.begin(), rights.end(), right) == rights.end()) {
        throw site::DataError(site::Fault::Refused, NoRightText(deed));
    }
}

UndoFlow::Outcome UndoFlow::BringBack(const DoneDeed& deed) const {
    return deed.kind == DeedKind::Deleted ? Restore(deed) : SetStatusBack(deed);
}

UndoFlow::Outcome UndoFlow::Restore(const DoneDeed& deed) const {
    std::vector<qint64> ids;
    std::transform(deed.items.begin(), deed.items.end(), std::back_inserter(ids),
                   [](const DeedItem& item) { return item.id; });
    std::vector<qint64> restored;
    m_session.Site().Bin().Restore(ids, &restored);
    Outcome outcome;
    outcome.back = restored.size();
    std::copy_if(deed.items.begin(), deed.items.end(), std::back_inserter(outcome.gone),
                 [&](const DeedItem& item) { return !HoldsId(restored, item.id); });
    return outcome;
}

UndoFlow::Outcome UndoFlow::SetStatusBack(const DoneDeed& deed) const {
    std::map<qint32, std::vector<DeedItem>> byProject;
    for (const DeedItem& item : deed.items) {
        byProject[item.ppid].push_back(item);
    }
    Outcome outcome;
    for (const auto& [ppid, items] : byProject) {
        outcome.back += SetStatusBack(deed, ppid, items);
    }
    if (outcome.back < deed.items.size()) {
        std::copy_if(deed.items.begin(), deed.items.end(), std::back_inserter(outcome.gone),
                     [&](const DeedItem& item) { return !IsThere(deed.what, item); });
    }
    return outcome;
}

size_t UndoFlow::SetStatusBack(const DoneDeed& deed, qint32 ppid,
                               const std::vector<DeedItem>& items) const {
    site::ISite& site = m_session.Site();
    const qint32 status =
        deed.kind == DeedKind::Hidden ? KX_DATA::kStatusShown : KX_DATA::kStatusHidden;
    if (deed.what == site::BinKind::Issue) {
        std::vector<site::NamedIssue> changed;
        site.Issues().SetStatus(ppid, QuestionIdsOf(items), status, SignatureOf(m_session),
                                &changed);
        return changed.size();
    }
    std::vector<site::NamedPhoto> changed;
    if (deed.what == site::BinKind::PdfPhoto) {
        site.PdfPhotos().SetStatus(ppid, PicIdsOf(items), status, &changed);
    } else {
        site.BimPhotos().SetStatus(ppid, PicIdsOf(items), status, &changed);
    }
    return changed.size();
}

bool UndoFlow::IsThere(site::BinKind what, const DeedItem& item) const {
    site::ISite& site = m_session.Site();
    const auto picId = static_cast<qint32>(item.id);
    KX_DATA::BimPicDetail bim;
    KX_DATA::PdfPicDetail pdf;
    KX_DATA::QuestionDetail issue;
    switch (what) {
    case site::BinKind::Issue:
        return site.Issues().Detail(item.ppid, item.questionId, issue).has_value();
    case site::BinKind::PdfPhoto:
        return site.PdfPhotos().Detail(item.ppid, picId, pdf).has_value();
    default:
        return site.BimPhotos().Detail(item.ppid, picId, bim).has_value();
    }
}

void UndoFlow::TellOutcome(const DoneDeed& deed, const Outcome& outcome) {
    if (!outcome.gone.empty()) {
        m_session.Desk()->Report(MessageLevel::Warning, GoneText(deed, outcome.gone, outcome.back));
    } else if (outcome.back == 0) {
        m_session.Desk()->Report(MessageLevel::Info, NothingLeftText(deed));
    } else {
        m_window.ShowStatus(u"已撤销"_s + DeedName(deed.kind, deed.what, outcome.back));
    }
}

} // namespace host
