#include "toolkit/windows/PopTipDlg.h"

#include "toolkit/KXTools.h"
#include "toolkit/windows/BalloonTip.h"
#include "toolkit/windows/WindowEnd.h"

#include <QDialog>
#include <QEventLoop>
#include <QKeyEvent>

namespace {

/// Stays above the window that owns it: window managers keep only dialogs there. Enter presses the
/// default button; Escape and Qt's own accept and reject do nothing, since
/// closing belongs to the window object alone.
class DialogWindow final : public QDialog {
public:
    explicit DialogWindow(QWidget* parent)
        : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                              Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint) {}
    ~DialogWindow() override { toolkit::TellWindowDies(*this); }
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;

    void accept() override {}
    void reject() override {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape) {
            event->ignore();
        } else {
            QDialog::keyPressEvent(event);
        }
    }
};

/// Leaves a loop when a window is hidden by its program or destroyed.
class LoopEnd final : public QObject {
public:
    LoopEnd(QEventLoop& loop, QWidget* window) : m_loop(loop) {
        window->installEventFilter(this);
        connect(window, &QObject::destroyed, this, &LoopEnd::Leave);
    }
    [[nodiscard]] bool HasCome() const { return m_come; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide && !event->spontaneous()) {
            Leave();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void Leave() {
        m_come = true;
        m_loop.quit();
    }

    QEventLoop& m_loop;
    bool m_come = false;
};

} // namespace

void CPopTipDlg::PopTip(QWidget* control, const QString& text, bool focus) {
    if (control == nullptr) {
        KXTools::ShowMsgBox(Id(), text);
        return;
    }
    if (focus) {
        control->setFocus(Qt::OtherFocusReason);
    }
    toolkit::BalloonTip::ShowAt(control, text);
}

void CPopTipDlg::ShowMsg(const QString& text, QWidget* control) {
    if (control == nullptr || !control->isVisible()) {
        KXTools::ShowMsgBox(Id(), text);
        return;
    }
    control->setFocus(Qt::OtherFocusReason);
    toolkit::BalloonTip::ShowAt(control, text, toolkit::BalloonKind::Error);
}

DialogResult CPopTipDlg::DoModal(toolkit::WindowId parent) {
    if (HasWindow()) {
        return DialogResult::Cancelled;
    }
    m_result = DialogResult::Cancelled;
    Create(parent);
    // A fault while it opened may have been answered by closing it.
    if (!HasWindow()) {
        return m_result;
    }
    QWidget* window = Widget();
    window->setWindowModality(Qt::ApplicationModal);
    window->setWindowFlag(Qt::WindowMinimizeButtonHint, false);
    QEventLoop loop;
    const LoopEnd end(loop, window);
    ShowRestored();
    BringToForeground();
    if (!end.HasCome()) {
        loop.exec(QEventLoop::DialogExec);
    }
    // The loop also ends with the program.
    Destroy();
    return m_result;
}

void CPopTipDlg::EndDialog(DialogResult result) {
    m_result = result;
    Destroy();
}

QWidget* CPopTipDlg::MakeWindow(QWidget* parent) {
    return new DialogWindow(parent);
}
