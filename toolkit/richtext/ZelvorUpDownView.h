// Two panes above each other, with a divider that the user moves.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QSplitter>

/// The upper pane takes what the window gains or loses, the lower one keeps its height. Neither can
/// be closed by the divider. Thread: user interface. Owned by its parent; the panes are its
/// children.
class TOOLKIT_EXPORT CZelvorUpDownView final : public QSplitter {
public:
    explicit CZelvorUpDownView(QWidget* parent);

    /// Once; both not null.
    void SetSplitterWnd(QWidget* top, QWidget* bottom);
    /// Of the lower pane, device-independent pixels, from now on until the user moves the divider.
    void SetBottomHeight(int pixels);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int m_wantedHeight = 0; ///< until there is room for it; 0: none is wanted
};
