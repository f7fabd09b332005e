#include "host/ui/ProgressWindow.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QTimerEvent>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kKilobyte = 1024;
constexpr int kBytesScale = 1000; ///< steps of the bar, whatever the number of bytes

} // namespace

QString BytesText(qint64 done, qint64 total) {
    const auto text = [](qint64 bytes) {
        return bytes < kKilobyte
                   ? u"%1 B"_s.arg(bytes)
                   : QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
    };
    return total > 0 ? u"%1 / %2"_s.arg(text(done), text(total)) : text(done);
}

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
    detailLabel = new QLabel(this);
    detailLabel->setObjectName(u"progressDetail"_s);
    detailLabel->setTextFormat(Qt::PlainText);
    bar = new QProgressBar(this);
    bar->setObjectName(u"progressBar"_s);
    bar->setAccessibleName(u"进度"_s);
    bar->setTextVisible(false);
    bar->setRange(0, 0);
    cancelButton = new QPushButton(u"取消"_s, this);
    cancelButton->setObjectName(u"progressCancel"_s);
    cancelButton->setToolTip(u"停止（Esc），已完成的部分保留"_s);
    QSizePolicy keepsItsPlace = cancelButton->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    cancelButton->setSizePolicy(keepsItsPlace);
    SetCancel(cancel);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(countLabel, 1);
    bottom->addWidget(detailLabel);
    bottom->addWidget(cancelButton);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(8);
    all->addWidget(textLabel);
    all->addWidget(bar);
    all->addLayout(bottom);
    connect(cancelButton, &QPushButton::clicked, this, &ProgressWindow::reject);
}

void ProgressWindow::SetCancel(Cancel cancel) {
    cancelButton->setVisible(cancel == Cancel::kPossible);
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

void ProgressWindow::SetDetail(const QString& detail) {
    detailLabel->setText(detail);
    ShowIfDue();
}

void ProgressWindow::ReportBytes(qint64 done, qint64 total) {
    bar->setRange(0, total > 0 ? kBytesScale : 0);
    bar->setValue(total > 0 ? int(done * kBytesScale / total) : 0);
    countLabel->setText(BytesText(done, total));
    ShowIfDue();
}

void ProgressWindow::LetThrough() {
    if (!isVisible())
        return;
    QCoreApplication::processEvents(cancelButton->isHidden() ? QEventLoop::ExcludeUserInputEvents
                                                             : QEventLoop::AllEvents);
}

void ProgressWindow::LetGo() {
    if (letGo)
        return;
    StopTime();
    if (!isVisible())
        return;
    letGo = true;
    detailLabel->clear();
    // What was cancelled no longer runs, whatever its text said before.
    if (cancelled) {
        textLabel->setText(u"已取消，已完成的部分保留。"_s);
        bar->setRange(0, 1);
        bar->reset();
    }
    cancelButton->setEnabled(true);
    cancelButton->setText(u"关闭"_s);
    cancelButton->setToolTip(u"关闭此窗口（Esc）"_s);
    cancelButton->setVisible(true);
    // A window begins and ends to block others only by coming up, and is given the focus again only
    // as a new one of the window system.
    const QRect place = geometry();
    hide();
    destroy();
    setModal(false);
    setGeometry(place);
    show();
}

void ProgressWindow::StopTime() {
    if (timerId != 0)
        killTimer(timerId);
    timerId = 0;
    sinceBegin.invalidate();
}

void ProgressWindow::End() {
    StopTime();
    hide();
}

void ProgressWindow::reject() {
    if (letGo) {
        hide();
        return;
    }
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
