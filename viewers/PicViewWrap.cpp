#include "viewers/PicViewWrap.h"

#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"

#include <utility>

namespace {

/// Of the pane, and therefore of the window around it.
constexpr QSize kLeastSize(800, 630);
constexpr QSize kFirstSize(1200, 800);
/// With a record below: texts and a photo over them.
constexpr int kLeastPane = 200;

} // namespace

CPicViewWrap::CPicViewWrap(std::unique_ptr<CPicViewDlg> pane) : m_pane(std::move(pane)) {}

void CPicViewWrap::OnCreated() {
    m_upDownView.clear();
    toolkit::SetLeastSize(*Widget(), kLeastSize);
    toolkit::ResizeWithinScreen(*Widget(), kFirstSize);
    const toolkit::StillThere still(Id());
    m_pane->Create(Id());
    const Lower lower = LowerPane();
    m_lower = lower.pane;
    if (m_lower != nullptr) {
        m_lower->Create(Id());
    }
    // A service that was asked for the panes may have let the window be closed.
    if (!still) {
        return;
    }
    if (m_lower != nullptr) {
        MakeDivider(lower);
    }
    toolkit::CentreWindow(*Widget());
    LayoutWrap();
}

void CPicViewWrap::MakeDivider(const Lower& lower) {
    m_upDownView = new CZelvorUpDownView(Widget());
    // On a screen that is too low for both, the photo stays in sight and off its own texts.
    m_pane->Widget()->setMinimumHeight(kLeastPane);
    m_upDownView->SetSplitterWnd(m_pane->Widget(), m_lower->Widget());
    m_upDownView->SetBottomHeight(lower.height);
    m_upDownView->show();
}

void CPicViewWrap::LayoutWrap() {
    QWidget* content = m_upDownView ? m_upDownView.data() : m_pane->Widget();
    if (content == nullptr) {
        return;
    }
    content->setGeometry(Widget()->rect());
    m_pane->Widget()->update();
}

void CPicViewWrap::DestroyViews() {
    m_pane->Destroy();
    if (m_lower != nullptr) {
        m_lower->Destroy();
    }
    Destroy();
}
