// Base of the module's dialogs: balloons at a control, messages at the dialog, modal runs.
#pragma once

#include "toolkit/windows/WindowObject.h"

#include <QString>

/// How a modal run ended.
enum class DialogResult { Cancelled, Ok };

/// A dialog that can point at a control and say what is wrong there.
///
/// Enter presses the default button, Escape does nothing by itself; closing goes by OnClose alone.
/// Thread: user interface.
class TOOLKIT_EXPORT CPopTipDlg : public toolkit::WindowObject {
public:
    /// Shows a balloon at a control for some seconds and, with `focus`, gives it the keyboard. A
    /// new balloon replaces the one before. A null control: a message box.
    void PopTip(QWidget* control, const QString& text, bool focus = false);
    /// Shows an error in a balloon at a control and gives it the keyboard. A control that is null
    /// or can't be seen: a message box at the dialog.
    void ShowMsg(const QString& text, QWidget* control = nullptr);

    /// Makes the window and shows it over all others until it has ended, by whatever way. Cancelled
    /// unless EndDialog said otherwise, and if there is a window already. The object must outlive
    /// the call; what the caller points to may be gone after it.
    DialogResult DoModal(toolkit::WindowId parent);

protected:
    /// Ends the window; the modal run, if there is one, answers `result`.
    void EndDialog(DialogResult result);
    QWidget* MakeWindow(QWidget* parent) override;

private:
    DialogResult m_result = DialogResult::Cancelled;
};
