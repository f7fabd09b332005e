#include "host/app/PickFlow.h"

#include "host/ui/MainWindow.h"
#include "host/ui/ObserverHub.h"
#include "host/ui/plan/FloorPlanView.h"

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

PickFlow::PickFlow(const Parts& parts) : m_parts(parts) {
    connect(&m_parts.view, &FloorPlanView::PickBegins, this, &PickFlow::OnBegin);
    connect(&m_parts.view, &FloorPlanView::PickEnded, this, &PickFlow::OnEnd);
}

void PickFlow::Begin(Ended onEnd) {
    m_next = std::move(onEnd);
    m_parts.view.BeginComponentPick();
}

void PickFlow::Cancel() {
    m_parts.view.EndPick(false);
}

void PickFlow::OnBegin() {
    const bool isPicking = m_parts.view.IsPicking();
    const std::optional<Ended> before = std::exchange(m_running, std::exchange(m_next, {}));
    if (!isPicking) {
        m_wasDrawing = m_parts.window.IsDrawingInFront();
    }
    // The module that begins anew knows that its pick before is over.
    if (before) {
        (*before)(false);
    } else if (isPicking && m_running) {
        m_parts.hub.TellPickEnded(false);
    }
    m_parts.window.ShowDrawingFace(false);
    if (m_parts.window.isMinimized()) {
        m_parts.window.showNormal();
    }
    m_parts.window.raise();
    m_parts.window.activateWindow();
}

void PickFlow::OnEnd(bool confirmed) {
    const std::optional<Ended> ended = std::exchange(m_running, {});
    if (m_wasDrawing) {
        m_parts.window.ShowDrawingFace(true);
    }
    m_parts.window.ShowStatus(confirmed ? u"构件选择已完成"_s : u"构件选择已取消"_s);
    if (ended) {
        (*ended)(confirmed);
    } else {
        m_parts.hub.TellPickEnded(confirmed);
    }
}

} // namespace host
