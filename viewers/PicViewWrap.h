// The window around a viewer's pane.
#pragma once

#include "toolkit/richtext/ZelvorUpDownView.h"
#include "toolkit/windows/PopTipDlg.h"
#include "viewers/PicViewDlg.h"

#include <QPointer>

#include <memory>

/// Holds the pane, which fills it, or stands above a second one with a divider between them. Enter
/// and Escape do nothing here. Knows no photo. Thread: user interface.
class CPicViewWrap : public CPopTipDlg {
public:
    /// Ends panes and window without asking or saving anything.
    void DestroyViews();

    /// Null while the pane stands alone.
    [[nodiscard]] CZelvorUpDownView* UpDownView() const { return m_upDownView; }

protected:
    explicit CPicViewWrap(std::unique_ptr<CPicViewDlg> pane);
    [[nodiscard]] CPicViewDlg& PicView() { return *m_pane; }

    /// What stands below the pane in the window that is being made; null: nothing does.
    struct Lower {
        toolkit::WindowObject* pane = nullptr; ///< not owned
        int height = 0;                        ///< to begin with, device-independent pixels
    };
    [[nodiscard]] virtual Lower LowerPane() { return {}; }

    /// Fills the window with the pane or with the divider, if there is one, and has it drawn.
    void LayoutWrap();

    /// Makes the panes and centres the window on its parent.
    void OnCreated() override;
    void OnResized() override { LayoutWrap(); }

private:
    void MakeDivider(const Lower& lower);

    std::unique_ptr<CPicViewDlg> m_pane;
    toolkit::WindowObject* m_lower = nullptr;
    QPointer<CZelvorUpDownView> m_upDownView;
};
