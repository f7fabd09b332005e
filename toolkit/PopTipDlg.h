// Base of the module's dialogs: balloons at a control and messages at the dialog.
#pragma once

#include "toolkit/WindowObject.h"

#include <QString>

/// A dialog that can point at a control and say what is wrong there.
///
/// Enter presses the default button, Escape does nothing; closing goes by OnClose alone.
/// Thread: user interface.
class TOOLKIT_EXPORT CPopTipDlg : public toolkit::WindowObject {
public:
    /// Shows a balloon at a control for some seconds and, with `focus`, gives it the keyboard. A
    /// new balloon replaces the one before. A null control: a message box.
    void PopTip(QWidget* control, const QString& text, bool focus = false);
    /// A message box at the dialog, then the keyboard to the control (which may be null).
    void ShowMsg(const QString& text, QWidget* control = nullptr);

protected:
    QWidget* MakeWindow(QWidget* parent) override;
};
