// The window around a viewer's pane.
#pragma once

#include "toolkit/PopTipDlg.h"

class CPicViewDlg;

/// Holds one pane that fills it. Enter and Escape do nothing here. Knows no photo.
/// Thread: user interface.
class CPicViewWrap : public CPopTipDlg {
protected:
    [[nodiscard]] virtual CPicViewDlg& PaneOf() = 0;
    /// Fills the window with the pane, if there is one, and has it drawn.
    void LayoutWrap();

    /// Makes the pane and centres the window on its parent.
    void OnCreated() override;
    void OnResized() override { LayoutWrap(); }
};
