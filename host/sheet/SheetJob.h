// Writes a list into a file while the windows stay alive.
#pragma once

#include "sheets/RowSource.h"
#include "sheets/SheetFile.h"

#include <QObject>
#include <QPointer>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace host {

struct SheetResult {
    bool cancelled = false;
    QString fault; ///< Chinese, empty if there was none
    sheets::SheetNotes notes;
};

struct SheetStep {
    qint64 written = 0;
    qint64 total = 0;     ///< 0: not known yet
    bool packing = false; ///< all rows are written, the file is finished now
};

/// One list, once. Reads a portion in an event of its own on this thread, hands it to a thread that
/// writes, and reads no more than a few portions ahead of that. Destroying the job cancels it and
/// waits for the writer: at most as long as a workbook is packed. Thread: user interface.
class SheetJob final : public QObject {
    Q_OBJECT

public:
    explicit SheetJob(QObject* parent = nullptr) : QObject(parent) {}
    ~SheetJob() override;

    /// All three are the job's from now on; the file is used, and ends, on the other thread.
    void Start(std::unique_ptr<sheets::IRowSource> source, std::unique_ptr<sheets::ISheetFile> file,
               sheets::SheetLayout layout);
    /// It still ends with Finished; a file that is complete by then says so.
    void Cancel();

Q_SIGNALS:
    void Stepped(const host::SheetStep& step);
    /// The last word; the file stands there or nothing of it.
    void Finished(const host::SheetResult& result);

private:
    using Portion = std::vector<sheets::SheetRow>;

    void ReadNext();
    void Stop(const QString& fault);
    void End();

    // On the thread that writes.
    void Write();
    void WritePortions();
    [[nodiscard]] Portion TakePortion();
    void TellStep(bool packing);
    void CallSoon(std::function<void(SheetJob&)> what) const;

    const QPointer<SheetJob> m_self{this};

    std::unique_ptr<sheets::IRowSource> m_source;
    std::unique_ptr<sheets::ISheetFile> m_file; ///< the writer's while it runs, as the layout
    sheets::SheetLayout m_layout;
    QString m_readFault;
    SheetResult m_result; ///< the writer's until it has told its end

    std::mutex m_lock; ///< guards what follows
    /// Whose waiting the thread sanitizer sees; that of the plain one is in the library.
    std::condition_variable_any m_changed;
    std::deque<Portion> m_waiting;
    bool m_allRead = false;
    bool m_isReading = false; ///< another ReadNext is on its way

    std::atomic<bool> m_cancelled = false;
    std::atomic<qint64> m_written = 0;
    std::jthread m_writer; ///< last: what it uses outlives it
};

} // namespace host
