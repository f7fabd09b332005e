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

} // namespace

void TransferWait::Wait(RunningTransfer& transfer) {
    if (transfer.WaitDone(times.cursorMs))
        return;
    const InputBlock noInput;
    RunLoop(transfer);
    // A program that is told to quit ends all loops; the transfer still has to end.
    transfer.WaitDone();
}

void TransferWait::RunLoop(RunningTransfer& transfer) {
    const ExProgress::Hold hold(progress);
    QPointer<ProgressWindow> own; // goes with its parent if that ends meanwhile
    if (progress.Window() == nullptr) {
        own = new ProgressWindow(QApplication::activeWindow(), u"正在下载文件"_s,
                                 ProgressWindow::Cancel::kImpossible);
        own->SetText(u"正在下载文件，请稍候..."_s);
        own->Begin(std::max(0, times.windowMs - times.cursorMs));
    }
    const auto report = [&] {
        if (own)
            own->ReportBytes(transfer.Bytes(), transfer.Total());
        else if (ProgressWindow* window = progress.Window())
            window->SetDetail(BytesText(transfer.Bytes(), transfer.Total()));
    };
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &clock, report);
    clock.start(kReportMs);
    QEventLoop loop;
    transfer.WhenDone(
        [&loop] { QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection); });
    loop.exec();
    transfer.WhenDone({});
    delete own;
    if (ProgressWindow* window = progress.Window())
        window->SetDetail({});
}

} // namespace host
