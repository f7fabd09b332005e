#include "host/services/WaitedTransfer.h"

#include <QCoreApplication>
#include <QThread>

#include <exception>
#include <stop_token>
#include <system_error>
#include <thread>

namespace host {

site::ITransferWait* WaitOfThisThread(const Surroundings& around) {
    const QCoreApplication* app = QCoreApplication::instance();
    return app != nullptr && QThread::currentThread() == app->thread() ? around.transferWait
                                                                       : nullptr;
}

void RunWaited(const site::TransferTerms& terms, site::RunningTransfer& transfer,
               site::ITransferWait& wait,
               const std::function<void(const site::TransferTerms&)>& work) {
    const std::stop_callback siteCloses(terms.limits.stop, [&transfer] { transfer.Cancel(); });
    const site::TransferTerms cancellable{terms.rules,
                                          {terms.limits.deadline, transfer.StopToken()},
                                          [&](qint64 bytes) { transfer.NoteBytes(bytes); }};
    std::exception_ptr fault;
    const auto run = [&] {
        try {
            work(cancellable);
        } catch (...) {
            fault = std::current_exception();
        }
        transfer.Finish();
    };
    try {
        const std::jthread worker(run);
        wait.Wait(transfer);
    } catch (const std::system_error&) {
        run(); // no thread to be had
    }
    if (fault) {
        std::rethrow_exception(fault);
    }
}

} // namespace host
