#include "toolkit/PopTipDlg.h"

#include "toolkit/BalloonTip.h"
#include "toolkit/KXTools.h"

#include <QDialog>
#include <QKeyEvent>

namespace {

/// Enter presses the default button; Escape and Qt's own accept and reject do nothing, since
/// closing belongs to the window object alone.
class DialogWindow final : public QDialog {
public:
    explicit DialogWindow(QWidget* parent)
        : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                              Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint) {}

    void accept() override {}
    void reject() override {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape)
            event->ignore();
        else
            QDialog::keyPressEvent(event);
    }
};

} // namespace

void CPopTipDlg::PopTip(QWidget* control, const QString& text, bool focus) {
    if (control == nullptr) {
        KXTools::ShowMsgBox(Id(), text);
        return;
    }
    if (focus)
        control->setFocus(Qt::OtherFocusReason);
    toolkit::BalloonTip::ShowAt(control, text);
}

void CPopTipDlg::ShowMsg(const QString& text, QWidget* control) {
    const QPointer<QWidget> target(control);
    KXTools::ShowMsgBox(Id(), text);
    // The dialog may have ended while its message was open.
    if (target)
        target->setFocus(Qt::OtherFocusReason);
}

QWidget* CPopTipDlg::MakeWindow(QWidget* parent) {
    return new DialogWindow(parent);
}
