#include "viewers/PicViewWrap.h"

#include "toolkit/WindowPlace.h"
#include "viewers/PicViewDlg.h"

namespace {

/// Of the pane, and therefore of the window around it.
constexpr QSize kLeastSize(800, 630);
constexpr QSize kFirstSize(1200, 800);

} // namespace

void CPicViewWrap::OnCreated() {
    toolkit::SetLeastSize(*Widget(), kLeastSize);
    toolkit::ResizeWithinScreen(*Widget(), kFirstSize);
    CPicViewDlg& pane = PaneOf();
    pane.Create(Id());
    toolkit::CentreWindow(*Widget());
    LayoutWrap();
}

void CPicViewWrap::LayoutWrap() {
    QWidget* pane = PaneOf().Widget();
    if (pane == nullptr) {
        return;
    }
    pane->setGeometry(Widget()->rect());
    pane->update();
}
