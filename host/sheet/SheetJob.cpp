#include "host/sheet/SheetJob.h"

#include "sheets/SheetFault.h"
#include "site/DataError.h"
#include "toolkit/InterfaceThread.h"

#include <QElapsedTimer>

#include <system_error>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kMostWaiting = 3;
constexpr qint64 kStepMs = 100;

} // namespace

SheetJob::~SheetJob() {
    Cancel();
    if (m_writer.joinable()) {
        m_writer.join();
    }
}

void SheetJob::Start(std::unique_ptr<sheets::IRowSource> source,
                     std::unique_ptr<sheets::ISheetFile> file, sheets::SheetLayout layout) {
    m_source = std::move(source);
    m_file = std::move(file);
    m_layout = std::move(layout);
    m_isReading = true;
    try {
        m_writer = std::jthread([this] { Write(); });
    } catch (const std::system_error&) {
        m_result.fault = u"无法输出列表：系统资源不足。请关闭一些程序后再输出。"_s;
        QMetaObject::invokeMethod(this, &SheetJob::End, Qt::QueuedConnection);
        return;
    }
    QMetaObject::invokeMethod(this, &SheetJob::ReadNext, Qt::QueuedConnection);
}

void SheetJob::Cancel() {
    m_cancelled = true;
    const std::lock_guard guard(m_lock);
    m_changed.notify_all();
}

void SheetJob::Stop(const QString& fault) {
    m_readFault = fault;
    Cancel();
}

void SheetJob::ReadNext() {
    if (m_cancelled) {
        return;
    }
    Portion portion;
    try {
        portion = m_source->Next();
    } catch (const site::DataError& error) {
        Stop(u"无法读取要输出的列表：%1没有输出文件。"_s.arg(error.Text()));
        return;
    }
    bool goesOn = false;
    {
        const std::lock_guard guard(m_lock);
        m_allRead = m_source->AtEnd();
        if (!portion.empty()) {
            m_waiting.push_back(std::move(portion));
        }
        m_isReading = !m_allRead && m_waiting.size() < kMostWaiting;
        goesOn = m_isReading;
        m_changed.notify_all();
    }
    if (goesOn) {
        QMetaObject::invokeMethod(this, &SheetJob::ReadNext, Qt::QueuedConnection);
    }
    emit Stepped({m_written, m_source->Total(), false});
}

SheetJob::Portion SheetJob::TakePortion() {
    std::unique_lock guard(m_lock);
    m_changed.wait(guard, [this] { return m_cancelled || m_allRead || !m_waiting.empty(); });
    if (m_cancelled) {
        throw sheets::SheetCancelled();
    }
    if (m_waiting.empty()) {
        return {};
    }
    Portion portion = std::move(m_waiting.front());
    m_waiting.pop_front();
    if (!m_isReading && !m_allRead) {
        m_isReading = true;
        CallSoon([](SheetJob& job) { job.ReadNext(); });
    }
    return portion;
}

void SheetJob::CallSoon(std::function<void(SheetJob&)> what) const {
    // Looked up on the interface thread: the job may have ended by then.
    toolkit::CallOnInterfaceThread([self = m_self, what = std::move(what)] {
        if (self) {
            what(*self);
        }
    });
}

void SheetJob::TellStep(bool packing) {
    CallSoon([packing](SheetJob& job) {
        emit job.Stepped({job.m_written, job.m_source->Total(), packing});
    });
}

void SheetJob::WritePortions() {
    QElapsedTimer sinceStep;
    sinceStep.start();
    for (Portion portion = TakePortion(); !portion.empty(); portion = TakePortion()) {
        for (const sheets::SheetRow& row : portion) {
            if (m_cancelled) {
                throw sheets::SheetCancelled();
            }
            m_file->Add(row);
            ++m_written;
            if (sinceStep.elapsed() >= kStepMs) {
                sinceStep.restart();
                TellStep(false);
            }
        }
    }
}

void SheetJob::Write() {
    try {
        m_file->Begin(m_layout);
        WritePortions();
        TellStep(true);
        m_result.notes = m_file->End(m_cancelled);
    } catch (const sheets::SheetCancelled&) {
        m_result.cancelled = true;
    } catch (const sheets::SheetFault& fault) {
        m_result.fault = fault.Text();
    } catch (const std::exception&) {
        m_result.fault = u"无法输出列表：内存不足。没有留下文件，请关闭一些程序后再输出。"_s;
    }
    // Nothing of it is left when the end is told.
    m_file.reset();
    m_cancelled = true;
    CallSoon([](SheetJob& job) { job.End(); });
}

void SheetJob::End() {
    if (m_writer.joinable()) {
        m_writer.join();
    }
    if (!m_readFault.isEmpty()) {
        m_result.fault = m_readFault;
        m_result.cancelled = false;
    }
    emit Finished(m_result);
}

} // namespace host
