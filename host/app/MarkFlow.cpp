#include "host/app/MarkFlow.h"

#include "host/app/Faults.h"
#include "host/app/FlagMenu.h"
#include "host/app/ReadTicks.h"
#include "host/services/PicPanelTree.h"
#include "host/session/PanelNames.h"
#include "host/ui/ObserverHub.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "include/IKXVeskPicData.h"
#include "include/IKXVeskPicture.h"
#include "site/ICatalogue.h"
#include "site/IPanelCounts.h"
#include "site/ISite.h"
#include "toolkit/windows/WaitCursor.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// After the last tick the state is kept so much later, milliseconds.
constexpr int kKeepDelay = 3000;
/// Others' changes that come closely behind each other are read at once, milliseconds.
constexpr int kReadDelay = 300;
constexpr QEvent::Type kReadIssues = QEvent::Type(QEvent::User + 1);

/// Limits as the module passes them through.
struct PassedLimits {
    explicit PassedLimits(const site::PanelFilter& filter)
        : from(filter.from), to(filter.to), flag(filter.timed ? 1 : 0) {}

    qint64 from;
    qint64 to;
    quint8 flag;
    KX_DATA::MarkFilterArg arg; ///< all that is open
};

/// May change what the panel says of a kind.
bool IsOf(MarkKind kind, site::ChangeKind change) {
    switch (change) {
    case site::ChangeKind::Anything:
    case site::ChangeKind::Project:
    case site::ChangeKind::Mark:
    case site::ChangeKind::Place:
        return true;
    case site::ChangeKind::BimPhoto:
        return kind == MarkKind::Photos;
    case site::ChangeKind::Issue:
        return kind == MarkKind::Issues;
    default:
        return false;
    }
}

} // namespace

MarkFlow::MarkFlow(const Parts& flowParts) : m_parts(flowParts) {
    for (const MarkKind kind : {MarkKind::Photos, MarkKind::Issues}) {
        ConnectPage(m_parts.panel.Page(kind));
    }
    m_parts.panel.Page(MarkKind::Issues)
        .SetEntryReader(
            [this](const QString& group, qint32 markId) { return IssuesOf(group, markId); });
    connect(&m_parts.panel, &MarkPanelDock::PageShown, this, &MarkFlow::Read);
    connect(&m_parts.view, &ModelView::FlagOpened, this, &MarkFlow::OpenFlag);
    connect(&m_parts.view, &ModelView::FlagMenuWanted, this,
            [this](const FlagMenuRequest& request) { OpenMenu(request); });
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(kKeepDelay);
    connect(&m_keeping, &QTimer::timeout, this, &MarkFlow::Keep);
    m_rereading.setSingleShot(true);
    m_rereading.setInterval(kReadDelay);
    connect(&m_rereading, &QTimer::timeout, this, &MarkFlow::ReadWhatIsOld);
}

MarkFlow::~MarkFlow() {
    m_parts.panel.Page(MarkKind::Issues).SetEntryReader({});
}

void MarkFlow::ConnectPage(MarkPage& page) {
    const MarkKind kind = page.Kind();
    connect(&page, &MarkPage::TicksChanged, this, [this, kind] {
        m_keeping.start();
        Apply(kind);
    });
    connect(&page, &MarkPage::DaysChanged, this, [this, kind] {
        m_keeping.start();
        Read(kind);
    });
    connect(&page, &MarkPage::ShownChanged, this, [this, kind](bool on) {
        m_keeping.start();
        OnShownChanged(kind, on);
    });
    connect(&page, &MarkPage::FloorWanted, this, [this](const QString& group) {
        m_parts.view.ShowFloor(group == OtherGroupName() ? QString() : group);
    });
    connect(&page, &MarkPage::IssueWanted, this,
            [this](const QString& questionId) { m_parts.view.LocateIssue(questionId); });
}

QString MarkFlow::SettingName() const {
    const HostSession& session = m_parts.session;
    if (session.CurrentProject().ppid == 0) {
        return {};
    }
    const QString open = session.IsWorkset() ? u"workset-%1"_s.arg(session.CurrentWorkset().id)
                                             : QString::number(session.CurrentProject().ppid);
    return u"marks:%1:%2"_s.arg(session.UserName(), open);
}

void MarkFlow::Keep() {
    m_keeping.stop();
    const QString text = ToText(m_parts.panel.State());
    if (m_keptAs.isEmpty() || text == m_keptText || !m_parts.session.IsOpen()) {
        return;
    }
    WithoutFault(m_parts.session,
                 [&] { m_parts.session.Site().Catalogue().SetSetting(m_keptAs, text); });
    m_keptText = text;
}

void MarkFlow::NoteChanges(const site::Changes& changes) {
    const site::Projects open = m_parts.session.OpenPpids();
    for (const MarkKind kind : {MarkKind::Photos, MarkKind::Issues}) {
        const bool concerns =
            std::any_of(changes.begin(), changes.end(), [&](const site::Change& change) {
                return (change.ppid == 0 || site::Has(open, change.ppid)) &&
                       IsOf(kind, change.kind);
            });
        if (concerns) {
            m_lastReads[kind].old = true;
        }
        if (concerns && !m_rereading.isActive()) {
            m_rereading.start();
        }
    }
}

void MarkFlow::ReadWhatIsOld() {
    for (auto& [kind, last] : m_lastReads) {
        if (last.old) {
            Read(kind);
        }
    }
}

void MarkFlow::ProjectChanged() {
    m_changes.reset();
    if (m_parts.session.IsOpen()) {
        m_changes = m_parts.session.Site().Changes().Subscribe(
            [this](const site::Changes& changes) { NoteChanges(changes); });
    }
    m_keptAs = SettingName();
    m_keptText.clear();
    WithoutFault(m_parts.session, [this] {
        if (!m_keptAs.isEmpty()) {
            m_keptText = m_parts.session.Site().Catalogue().Setting(m_keptAs);
        }
        m_parts.view.SetMarkTable(m_parts.session.Tables().Marks());
    });
    const MarkState state = MarkStateFrom(m_keptText);
    m_parts.panel.SetState(state);
    m_parts.view.ShowMarks(MarkKind::Photos, state.photos.shown);
    m_parts.view.ShowMarks(MarkKind::Issues, state.issues.shown);
    m_lastReads.clear();
    m_parts.session.ShowPhotos({});
    m_parts.session.ShowIssues({});
    for (const MarkKind kind : {MarkKind::Photos, MarkKind::Issues}) {
        m_parts.panel.Page(kind).SetTree({});
        m_parts.panel.Page(kind).SetHint(m_keptAs.isEmpty() ? u"没有打开的工程。"_s : QString());
    }
    // The module has forgotten the issues of the old project, and so the view does.
    m_parts.pictures.RefreshIssueMarks();
    Read(MarkKind::Photos);
    ReadIssuesWhenPainted();
}

void MarkFlow::Reload(MarkKind kind) {
    Read(kind);
}

void MarkFlow::ReadIssuesWhenPainted() {
    // What waits to be painted comes with the low priority; the photos shouldn't wait for the
    // issues.
    QCoreApplication::postEvent(this, new QEvent(kReadIssues), Qt::LowEventPriority - 1);
}

void MarkFlow::customEvent(QEvent* event) {
    if (event->type() == kReadIssues) {
        Read(MarkKind::Issues);
    }
}

bool MarkFlow::IsNeeded(MarkKind kind) const {
    return kind == MarkKind::Photos || m_parts.panel.Page(kind).State().shown ||
           m_parts.panel.IsPageInSight(kind);
}

site::PanelFilter MarkFlow::FilterOf(MarkKind kind) const {
    const MarkDays days = m_parts.panel.Page(kind).State().days;
    const auto [from, to] = days.limited ? SecondsOf(days) : std::pair<qint64, qint64>();
    return PanelFilterOf(m_parts.session, from, to, days.limited ? 1 : 0, {});
}

void MarkFlow::Read(MarkKind kind) {
    if (!m_parts.session.IsOpen() || !IsNeeded(kind)) {
        return;
    }
    WithoutFault(m_parts.session, [&] {
        const site::PanelFilter filter = FilterOf(kind);
        m_parts.session.Site().Changes().Look();
        LastRead& last = m_lastReads[kind];
        if (!last.old && last.filter == filter) {
            return;
        }
        last = {};
        const toolkit::WaitCursor waiting;
        m_parts.view.SetMarkTable(m_parts.session.Tables().Marks());
        ReadEntries(kind, filter);
        last = {filter, false};
    });
    Apply(kind);
}

void MarkFlow::ReadEntries(MarkKind kind, const site::PanelFilter& filter) {
    PassedLimits limits(filter);
    std::vector<KX_DATA::PicFilterEntry> entries;
    std::vector<HiddenOfGroup> hidden;
    if (kind == MarkKind::Photos) {
        m_parts.pictureData.GetPicFilterData(limits.from, limits.to, limits.flag, limits.arg,
                                             entries);
        WithoutFault(m_parts.session, [&] { hidden = ReadHidden(filter); });
    } else {
        m_parts.pictureData.GetIssueFilterData(limits.from, limits.to, limits.flag, limits.arg,
                                               entries);
        RelistTicks(filter);
    }
    m_parts.panel.Page(kind).SetTree(
        MakeMarkTree(entries, m_parts.session.Tables().Marks(), hidden));
}

/// The module's lists leave hidden photos out; panel and flags say beside them how many there are.
std::vector<HiddenOfGroup> MarkFlow::ReadHidden(const site::PanelFilter& filter) {
    std::vector<HiddenOfGroup> groups;
    HiddenPhotos photos;
    for (const site::PanelFloor& floor : m_parts.session.Site().PanelCounts().Photos(filter)) {
        HiddenOfGroup& group = groups.emplace_back();
        group.group = PanelGroupName(floor.name);
        for (const site::PanelPlace& place : floor.places) {
            for (const site::PanelMark& mark : place.marks) {
                if (mark.hidden == 0) {
                    continue;
                }
                group.marks[mark.markId] += mark.hidden;
                photos[{place.ppid, floor.name, place.positionKey, mark.markId}] += mark.hidden;
            }
        }
    }
    m_parts.view.SetHiddenPhotos(photos);
    return groups;
}

/// Ticks of single issues: what the limits leave out waits, what nothing leaves out is gone.
void MarkFlow::RelistTicks(const site::PanelFilter& filter) {
    MarkTreeModel& model = m_parts.panel.Page(MarkKind::Issues).Model();
    std::set<MarkEntry> missing = model.Ticks().Exceptions();
    if (missing.empty()) {
        return;
    }
    for (const site::PanelIssueFloor& floor : m_parts.session.Site().PanelCounts().Issues(filter)) {
        const QString group = PanelGroupName(floor.name);
        for (const site::PanelIssue& issue : floor.issues) {
            missing.erase({group, issue.markId, issue.questionId});
        }
    }
    MarkTicks ticks = model.Ticks();
    if (!filter.HasLimits()) {
        ticks.Forget(missing);
    }
    ticks.SetUnlisted(missing);
    model.SetTicks(ticks);
}

void MarkFlow::Apply(MarkKind kind) {
    HostSession& session = m_parts.session;
    MarkPage& page = m_parts.panel.Page(kind);
    const MarkTicks& ticks = page.Model().Ticks();
    const bool isRead = WithoutFault(session, [&] {
        if (kind == MarkKind::Issues) {
            session.ShowIssues(ReadTickedIssues(
                session, FilterOf(kind),
                [&](const QString& group, qint32 markId, const QString& questionId) {
                    return ticks.IsEntryTicked(group, markId, questionId);
                }));
            return;
        }
        std::map<QString, Qt::CheckState> states;
        for (const MarkTreeFloor& floor : page.Model().Tree()) {
            states[floor.group] = ticks.StateOf(floor);
        }
        session.ShowPhotos(ReadTickedPhotos(session, FilterOf(kind),
                                            {[&](const QString& group) { return states[group]; },
                                             [&](const QString& group, qint32 markId) {
                                                 return ticks.IsMarkTicked(group, markId);
                                             }}));
    });
    page.SetHint(isRead ? QString() : u"读取标识时出错，请按 F5 重试。"_s);
    if (kind == MarkKind::Photos) {
        m_parts.pictures.RefreshPicMarks();
    } else {
        m_parts.pictures.RefreshIssueMarks();
    }
}

void MarkFlow::OnShownChanged(MarkKind kind, bool on) {
    m_parts.view.ShowMarks(kind, on);
    if (on) {
        Read(kind);
    }
}

std::vector<IssueName> MarkFlow::IssuesOf(const QString& group, qint32 markId) const {
    std::vector<IssueName> issues;
    WithoutFault(m_parts.session, [&] {
        for (const site::PanelIssueFloor& floor :
             m_parts.session.Site().PanelCounts().Issues(FilterOf(MarkKind::Issues))) {
            if (PanelGroupName(floor.name) != group) {
                continue;
            }
            for (const site::PanelIssue& issue : floor.issues) {
                if (issue.markId == markId) {
                    issues.push_back({issue.questionId, issue.theme});
                }
            }
        }
    });
    return issues;
}

void MarkFlow::OpenFlag(const MarkFlag& flag) {
    const qint32 ppid = flag.ppid != 0 ? flag.ppid : m_parts.session.CurrentProject().ppid;
    if (flag.kind == MarkKind::Photos) {
        m_parts.hub.ViewBimPic(ppid, flag.floor, flag.positionKey, flag.markId);
    } else if (flag.issues.size() == 1) {
        m_parts.hub.LocateIssue(ppid, flag.issues.front().questionId);
    } else {
        OpenMenu({{flag}, {}, {}, QCursor::pos()});
    }
}

void MarkFlow::OpenMenu(const FlagMenuRequest& request) {
    FlagMenu(
        {m_parts.session, m_parts.hub, m_parts.pictures, m_parts.showIssue, m_parts.photoChosen},
        request)
        .Run();
}

} // namespace host
