#include "bench/PanelRig.h"

#include "bench/Stopwatch.h"
#include "frame/KXVeskPictureImpl.h"
#include "host/app/PlanReader.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "reminder/marks/KXVeskPicDataImpl.h"

#include <QDeadlineTimer>
#include <QTreeView>

namespace bench {

namespace {

constexpr QSize kPanelWindow(1400, 900);
constexpr int kPanelPatienceMs = 120'000;
constexpr int kPanelSettleMs = 300;

} // namespace

PanelRig::PanelRig(WatchedApplication& watchedApplication, host::HostSession& hostSession)
    : m_application(watchedApplication), m_session(hostSession) {
    m_plan = new host::FloorPlanPane(&m_window);
    m_panel = new host::MarkPanelDock(&m_window);
    m_window.setCentralWidget(m_plan);
    m_window.addDockWidget(Qt::RightDockWidgetArea, m_panel);
    m_window.resize(kPanelWindow);
    m_tree = m_panel->Page(host::MarkKind::Photos).findChild<QTreeView*>();
    host::PlanAxes axes(m_session);
    m_plan->SetModel(host::ReadFloorPlan(m_session, axes));
    m_view = std::make_unique<host::FloorPlanView>(*m_plan);
    host::TheServices().around.view = m_view.get();
    m_flow = std::make_unique<host::MarkFlow>(
        host::MarkFlow::Parts{m_session, *m_panel, *m_view, m_hub, CKXVeskPictureImpl::Instance(),
                              CKXVeskPicDataImpl::Instance()});
    m_window.show();
    // What an earlier run has left chosen.
    static_cast<void>(Fill());
    static_cast<void>(Choose({}));
    m_flow->Keep();
}

PanelRig::~PanelRig() {
    m_flow.reset();
    host::TheServices().around.view = nullptr;
}

PanelTime PanelRig::UntilPainted(const std::function<void()>& act) {
    Settle(kPanelSettleMs);
    PanelTime painted;
    const Stopwatch timer;
    act();
    m_application.watched = m_tree->viewport();
    m_application.onPainted = [&] {
        if (painted.passed < 0 && m_tree->model()->rowCount() > 0) {
            painted = {timer.Milliseconds(), timer.CpuMilliseconds(), 0};
        }
    };
    const QDeadlineTimer patience(kPanelPatienceMs);
    while (painted.passed < 0 && !patience.hasExpired()) {
        QCoreApplication::processEvents();
    }
    painted.behind = timer.CpuMilliseconds() - painted.worked;
    m_application.onPainted = {};
    m_application.watched = nullptr;
    return painted;
}

PanelTime PanelRig::Fill() {
    return UntilPainted([this] { m_flow->ProjectChanged(); });
}

PanelTime PanelRig::ReadAnew() {
    return UntilPainted([this] { m_flow->Reload(host::MarkKind::Photos); });
}

PanelTime PanelRig::Choose(const host::MarkDays& days) {
    host::MarkPage& page = m_panel->Page(host::MarkKind::Photos);
    host::MarkPageState state = page.State();
    state.days = days;
    return UntilPainted([&] {
        page.SetState(state);
        emit page.DaysChanged();
    });
}

PanelTime PanelRig::ShowAgain() {
    m_panel->hide();
    return UntilPainted([this] { m_panel->show(); });
}

const host::MarkTree& PanelRig::Tree() const {
    return m_panel->Page(host::MarkKind::Photos).Model().Tree();
}

QSize PanelRig::TreeSize() const {
    return m_tree->size();
}

} // namespace bench
