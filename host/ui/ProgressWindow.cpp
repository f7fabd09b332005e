#include "host/ui/ProgressWindow.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimerEvent>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

ProgressWindow::ProgressWindow(QWidget* parent, const QString& title, Cancel cancel)
    : QDialog(parent) {
    setObjectName(u"progressWindow"_s);
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);
    setMinimumWidth(420);

    textLabel = new QLabel(title, this);
    textLabel->setObjectName(u"progressText"_s);
    textLabel->setTextFormat(Qt::PlainText);
    textLabel->setWordWrap(true);
    countLabel = new QLabel(this);
    countLabel->setObjectName(u"progressCount"_s);
    bar = new QProgressBar(this);
    bar->setObjectName(u"progressBar"_s);
    bar->setAccessibleName(u"进度"_s);
    bar->setTextVisible(false);
    bar->setRange(0, 0);
    cancelButton = new QPushButton(u"取消"_s, this);
    cancelButton->setObjectName(u"progressCancel"_s);
    cancelButton->setToolTip(u"停止（Esc），已完成的部分保留"_s);
    cancelButton->setVisible(cancel == Cancel::kPossible);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(countLabel, 1);
    bottom->addWidget(cancelButton);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(8);
    all->addWidget(textLabel);
    all->addWidget(bar);
    all->addLayout(bottom);
    connect(cancelButton, &QPushButton::clicked, this, &ProgressWindow::reject);
}

void ProgressWindow::Begin(int delayMs) {
    delay = delayMs;
    cancelled = false;
    cancelButton->setEnabled(true);
    sinceBegin.start();
    timerId = startTimer(delayMs);
}

void ProgressWindow::SetText(const QString& text) {
    textLabel->setText(text);
}

void ProgressWindow::Report(int done, int total) {
    bar->setRange(0, total);
    bar->setValue(done);
    countLabel->setText(total > 0  ? u"%1 / %2"_s.arg(done).arg(total)
                        : done > 0 ? QString::number(done)
                                   : QString());
    ShowIfDue();
}

void ProgressWindow::LetThrough() {
    if (!isVisible())
        return;
    QCoreApplication::processEvents(cancelButton->isHidden() ? QEventLoop::ExcludeUserInputEvents
                                                             : QEventLoop::AllEvents);
}

void ProgressWindow::End() {
    if (timerId != 0)
        killTimer(timerId);
    timerId = 0;
    sinceBegin.invalidate();
    hide();
}

void ProgressWindow::reject() {
    if (cancelButton->isHidden() || cancelled)
        return;
    cancelled = true;
    cancelButton->setEnabled(false);
    emit Cancelled();
}

void ProgressWindow::timerEvent(QTimerEvent* event) {
    if (event->timerId() == timerId)
        ShowIfDue();
    else
        QDialog::timerEvent(event);
}

void ProgressWindow::ShowIfDue() {
    if (isVisible() || !sinceBegin.isValid() || sinceBegin.elapsed() < delay)
        return;
    if (timerId != 0)
        killTimer(timerId);
    timerId = 0;
    show();
}

} // namespace host
