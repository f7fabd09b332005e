#include "host/ui/rich/ReadingWindow.h"

#include "host/ui/WindowKeys.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace host {

namespace {

constexpr int kPauseMilliseconds = 80;

} // namespace

ReadingWindow::ReadingWindow(QWidget* parent, const QString& name, const QString& title)
    : QDialog(parent) {
    setObjectName(name);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* refresh = new QAction(this);
    refresh->setShortcut(QKeySequence::Refresh);
    addAction(refresh);
    connect(refresh, &QAction::triggered, this, &ReadingWindow::Reload);
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &ReadingWindow::CatchUp);
    // Its questions lie on it, not on the main window.
    toolkit::RegisterWindow(this, [](const toolkit::WindowEvent&) { return 0; });
}

void ReadingWindow::Furnish(QWidget* parts, const QString& noticeName,
                            const std::vector<ButtonLook>& looks, const ButtonLook& close) {
    auto* row = new QWidget(this);
    m_notice = new QLabel(row);
    m_notice->setObjectName(noticeName);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    m_notice->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    line->addWidget(m_notice, 1);
    std::vector<ButtonLook> all = looks;
    all.push_back(close);
    int width = 0;
    std::vector<QPushButton*> buttons;
    for (const ButtonLook& look : all) {
        auto* button = new QPushButton(look.icon, look.text, row);
        button->setObjectName(look.name);
        button->setToolTip(look.tip);
        button->setAutoDefault(false);
        button->setShortcut(look.key);
        line->addWidget(button);
        width = std::max(width, button->sizeHint().width());
        buttons.push_back(button);
    }
    for (QPushButton* button : buttons) {
        button->setMinimumWidth(width);
    }
    connect(buttons.back(), &QPushButton::clicked, this, &QDialog::close);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(12, 12, 12, 12);
    lines->setSpacing(12);
    lines->addWidget(parts, 1);
    lines->addWidget(row);
}

QPushButton* ReadingWindow::Button(const QString& name) const {
    return findChild<QPushButton*>(name);
}

void ReadingWindow::keyPressEvent(QKeyEvent* event) {
    if (!PressByEnter(*this, *event)) {
        QDialog::keyPressEvent(event);
    }
}

void ReadingWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // A source that waits must not hold the window back.
    m_pause.start(0);
}

void ReadingWindow::Reload() {
    Forget(m_hasFault);
    ShowNotice({}, false);
    CatchUp();
}

void ReadingWindow::CatchUpSoon() {
    m_pause.start(kPauseMilliseconds);
}

void ReadingWindow::CatchUp() {
    if (m_isAsking || !isVisible()) {
        return;
    }
    m_isAsking = true;
    ShowButtons();
    const toolkit::StillThere still(this);
    while (ReadNext() && still && isVisible()) {
    }
    if (still) {
        m_isAsking = false;
        ShowButtons();
    }
}

bool ReadingWindow::AskAndDo(const Deed& deed) {
    const toolkit::StillThere still(this);
    const toolkit::WindowId id = toolkit::WindowOf(this);
    const bool isWanted = deed.isDangerous ? toolkit::Prompts().AskNoYes(id, deed.question)
                                           : toolkit::Prompts().AskYesNo(id, deed.question);
    if (!still || !isWanted || m_isAsking) {
        return false;
    }
    m_isAsking = true;
    ShowButtons();
    QString fault;
    {
        const toolkit::WaitCursor wait;
        fault = deed.doIt();
    }
    if (!still) {
        return false;
    }
    m_isAsking = false;
    Reload();
    if (still) {
        ShowNotice(fault.isEmpty() ? deed.done : deed.failed + fault, !fault.isEmpty());
    }
    return fault.isEmpty() && still;
}

void ReadingWindow::ShowNotice(const QString& text, bool isFault) {
    QPalette colors = palette();
    if (isFault) {
        colors.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    }
    m_hasFault = isFault;
    m_notice->setPalette(colors);
    m_notice->setText(text);
}

} // namespace host
