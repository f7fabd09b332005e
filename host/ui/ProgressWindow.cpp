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

    m_textLabel = new QLabel(title, this);
    m_textLabel->setObjectName(u"progressText"_s);
    m_textLabel->setTextFormat(Qt::PlainText);
    m_textLabel->setWordWrap(true);
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(u"progressCount"_s);
    m_detailLabel = new QLabel(this);
    m_detailLabel->setObjectName(u"progressDetail"_s);
    m_detailLabel->setTextFormat(Qt::PlainText);
    m_bar = new QProgressBar(this);
    m_bar->setObjectName(u"progressBar"_s);
    m_bar->setAccessibleName(u"进度"_s);
    m_bar->setTextVisible(false);
    m_bar->setRange(0, 0);
    m_cancelButton = new QPushButton(u"取消"_s, this);
    m_cancelButton->setObjectName(u"progressCancel"_s);
    m_cancelButton->setToolTip(u"停止（Esc），已完成的部分保留"_s);
    QSizePolicy keepsItsPlace = m_cancelButton->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    m_cancelButton->setSizePolicy(keepsItsPlace);
    SetCancel(cancel);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_countLabel, 1);
    bottom->addWidget(m_detailLabel);
    bottom->addWidget(m_cancelButton);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(8);
    all->addWidget(m_textLabel);
    all->addWidget(m_bar);
    all->addLayout(bottom);
    connect(m_cancelButton, &QPushButton::clicked, this, &ProgressWindow::reject);
}

void ProgressWindow::SetCancel(Cancel cancel) {
    m_cancelButton->setVisible(cancel == Cancel::Possible);
}

void ProgressWindow::SetCancelTip(const QString& tip) {
    m_cancelButton->setToolTip(tip);
}

void ProgressWindow::Begin(int delayMs) {
    m_delay = delayMs;
    m_cancelled = false;
    m_cancelButton->setEnabled(true);
    m_sinceBegin.start();
    m_timerId = startTimer(delayMs);
}

void ProgressWindow::SetText(const QString& text) {
    m_textLabel->setText(text);
}

void ProgressWindow::Report(int done, int total) {
    m_bar->setRange(0, total);
    m_bar->setValue(done);
    m_countLabel->setText(total > 0  ? u"%1 / %2"_s.arg(done).arg(total)
                          : done > 0 ? QString::number(done)
                                     : QString());
    ShowIfDue();
}

void ProgressWindow::SetDetail(const QString& detail) {
    m_detailLabel->setText(detail);
    ShowIfDue();
}

void ProgressWindow::ReportBytes(qint64 done, qint64 total) {
    m_bar->setRange(0, total > 0 ? kBytesScale : 0);
    m_bar->setValue(total > 0 ? int(done * kBytesScale / total) : 0);
    m_countLabel->setText(BytesText(done, total));
    ShowIfDue();
}

void ProgressWindow::LetThrough() {
    if (!isVisible()) {
        return;
    }
    QCoreApplication::processEvents(m_cancelButton->isHidden() ? QEventLoop::ExcludeUserInputEvents
                                                               : QEventLoop::AllEvents);
}

void ProgressWindow::LetGo() {
    if (m_letGo) {
        return;
    }
    StopTime();
    if (!isVisible()) {
        return;
    }
    m_letGo = true;
    m_detailLabel->clear();
    // What was cancelled no longer runs, whatever its text said before.
    if (m_cancelled) {
        m_textLabel->setText(u"已取消，已完成的部分保留。"_s);
        m_bar->setRange(0, 1);
        m_bar->reset();
    }
    m_cancelButton->setEnabled(true);
    m_cancelButton->setText(u"关闭"_s);
    m_cancelButton->setToolTip(u"关闭此窗口（Esc）"_s);
    m_cancelButton->setVisible(true);
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
    if (m_timerId != 0) {
        killTimer(m_timerId);
    }
    m_timerId = 0;
    m_sinceBegin.invalidate();
}

void ProgressWindow::End() {
    StopTime();
    hide();
}

void ProgressWindow::reject() {
    if (m_letGo) {
        hide();
        return;
    }
    if (m_cancelButton->isHidden() || m_cancelled) {
        return;
    }
    m_cancelled = true;
    m_cancelButton->setEnabled(false);
    emit Cancelled();
}

void ProgressWindow::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_timerId) {
        ShowIfDue();
    } else {
        QDialog::timerEvent(event);
    }
}

void ProgressWindow::ShowIfDue() {
    if (isVisible() || !m_sinceBegin.isValid() || m_sinceBegin.elapsed() < m_delay) {
        return;
    }
    if (m_timerId != 0) {
        killTimer(m_timerId);
    }
    m_timerId = 0;
    show();
}

} // namespace host
