#include "host/app/TransferWait.h"

#include "host/ui/ExProgress.h"
#include "host/ui/InputBlock.h"
#include "host/ui/ProgressWindow.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kReportMs = 50;

/// A program that is told to quit ends all loops; the transfer still has to end, so it is told too.
void RunUntilDone(site::RunningTransfer& transfer) {
    QEventLoop loop;
    transfer.WhenDone(
        [&loop] { QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection); });
    loop.exec();
    transfer.WhenDone({});
    if (!transfer.IsDone()) {
        transfer.Cancel();
    }
    transfer.WaitDone();
}

} // namespace

void TransferWait::Wait(site::RunningTransfer& transfer) {
    if (transfer.WaitDone(m_times.cursorMs)) {
        return;
    }
    InputBlock noInput;
    RunLoop(transfer, noInput);
}

void TransferWait::RunLoop(site::RunningTransfer& transfer, InputBlock& block) {
    const ExProgress::Hold hold(m_progress);
    QPointer<ProgressWindow> own; // goes with its parent if that ends meanwhile
    if (m_progress.Window() == nullptr) {
        const bool goesUp = transfer.GetWay() == site::RunningTransfer::Way::Up;
        const QString title = goesUp ? u"正在上传文件"_s : u"正在下载文件"_s;
        own = new ProgressWindow(QApplication::activeWindow(), title,
                                 ProgressWindow::Cancel::Possible);
        own->SetText(title + u"，请稍候..."_s);
        own->Begin(std::max(0, m_times.windowMs - m_times.cursorMs));
    }
    ProgressWindow* shown = own ? own.get() : m_progress.Window();
    shown->SetCancel(ProgressWindow::Cancel::Possible);
    block.LetOut(shown);
    const auto report = [&] {
        if (own) {
            own->ReportBytes(transfer.Bytes(), transfer.Total());
        } else if (ProgressWindow* window = m_progress.Window()) {
            window->SetDetail(BytesText(transfer.Bytes(), transfer.Total()));
        }
    };
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &clock, report);
    clock.start(kReportMs);
    QObject::connect(shown, &ProgressWindow::Cancelled, &clock, [&] { transfer.Cancel(); });
    if (shown->IsCancelled()) {
        transfer.Cancel();
    }
    RunUntilDone(transfer);
    delete own;
    if (ProgressWindow* window = m_progress.Window()) {
        window->SetDetail({});
        window->SetCancel(ProgressWindow::Cancel::Impossible);
    }
}

} // namespace host
