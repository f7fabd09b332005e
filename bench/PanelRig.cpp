#include "bench/PanelRig.h"

#include "bench/Stopwatch.h"
#include "frame/KXVeskPictureImpl.h"
#include "host/app/PlanReader.h"
#include "host/session/HostSession.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "reminder/KXVeskPicDataImpl.h"

#include <QDeadlineTimer>
#include <QTreeView>

namespace bench {

namespace {

constexpr QSize kPanelWindow(1400, 900);
constexpr int kPanelPatienceMs = 120'000;
constexpr int kPanelSettleMs = 300;

} // namespace

PanelRig::PanelRig(WatchedApplication& watchedApplication, host::HostSession& hostSession)
    : application(watchedApplication), session(hostSession) {
    plan = new host::FloorPlanPane(&window);
    panel = new host::MarkPanelDock(&window);
    window.setCentralWidget(plan);
    window.addDockWidget(Qt::RightDockWidgetArea, panel);
    window.resize(kPanelWindow);
    tree = panel->Page(host::MarkKind::kPhotos).findChild<QTreeView*>();
    plan->SetModel(host::ReadFloorPlan(session));
    view = std::make_unique<host::FloorPlanView>(*plan);
    session.view = view.get();
    flow = std::make_unique<host::MarkFlow>(host::MarkFlow::Parts{session, *panel, *view, hub,
                                                                  CKXVeskPictureImpl::Instance(),
                                                                  CKXVeskPicDataImpl::Instance()});
    window.show();
    // What an earlier run has left chosen.
    static_cast<void>(Fill());
    static_cast<void>(Choose({}));
    flow->Keep();
}

PanelRig::~PanelRig() {
    flow.reset();
    session.view = nullptr;
}

PanelTime PanelRig::UntilPainted(const std::function<void()>& act) {
    Settle(kPanelSettleMs);
    PanelTime painted;
    const Stopwatch timer;
    act();
    application.watched = tree->viewport();
    application.onPainted = [&] {
        if (painted.passed < 0 && tree->model()->rowCount() > 0)
            painted = {timer.Milliseconds(), timer.CpuMilliseconds(), 0};
    };
    const QDeadlineTimer patience(kPanelPatienceMs);
    while (painted.passed < 0 && !patience.hasExpired())
        QCoreApplication::processEvents();
    painted.behind = timer.CpuMilliseconds() - painted.worked;
    application.onPainted = {};
    application.watched = nullptr;
    return painted;
}

PanelTime PanelRig::Fill() {
    return UntilPainted([this] { flow->ProjectChanged(); });
}

PanelTime PanelRig::ReadAnew() {
    return UntilPainted([this] { flow->Reload(host::MarkKind::kPhotos); });
}

PanelTime PanelRig::Choose(const host::MarkDays& days) {
    host::MarkPage& page = panel->Page(host::MarkKind::kPhotos);
    host::MarkPageState state = page.State();
    state.days = days;
    return UntilPainted([&] {
        page.SetState(state);
        emit page.DaysChanged();
    });
}

PanelTime PanelRig::ShowAgain() {
    panel->hide();
    return UntilPainted([this] { panel->show(); });
}

const host::MarkTree& PanelRig::Tree() const {
    return panel->Page(host::MarkKind::kPhotos).Model().Tree();
}

QSize PanelRig::TreeSize() const {
    return tree->size();
}

} // namespace bench
