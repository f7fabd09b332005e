// Photographs as they stand on paper: JPEG files of the size of print.
#pragma once

#include <QSize>
#include <QSizeF>
#include <QString>
#include <QTemporaryDir>

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <stop_token>
#include <thread>
#include <vector>

namespace host {

/// Dots per inch at which photographs are printed, and their quality as JPEG (ISO/IEC 10918-1
/// through Qt's writer).
inline constexpr double kPrintDpi = 200;
inline constexpr int kPrintQuality = 82;

/// A file that stands ready.
struct PrintPicture {
    QString path;          ///< empty: the photograph can't be read
    QSize size;            ///< pixels, upright
    bool isUnkept = false; ///< it could be read, and not be written into the temporary folder

    [[nodiscard]] bool IsThere() const { return !path.isEmpty(); }
};

/// Reduces photographs to what is printed of them, once for each size, on threads of its own, and
/// keeps the results in a temporary folder until its end. Originals are read only. Thread: any;
/// made and ended on one.
class PrintPictures final {
public:
    explicit PrintPictures(int threads = 2);
    ~PrintPictures();
    PrintPictures(const PrintPictures&) = delete;
    PrintPictures& operator=(const PrintPictures&) = delete;

    /// Is told on one of the threads that a picture stands ready that wasn't waited for.
    void SetReady(std::function<void()> listener);

    /// @param box  room on the page, 1/96 inch: the picture fits in, and isn't enlarged.
    /// @return     nothing while it isn't ready; it comes as soon as can be.
    [[nodiscard]] const PrintPicture* Find(const QString& file, const QSizeF& box);
    /// It will be waited for later; behind what is asked for already.
    void Prepare(const QString& file, const QSizeF& box);
    /// Waits for it; one that isn't there if told to stop meanwhile. Throws ReportFault where the
    /// temporary folder takes nothing: such a picture isn't damaged.
    [[nodiscard]] PrintPicture Wait(const QString& file, const QSizeF& box,
                                    const std::stop_token& stop);

private:
    struct Wanted {
        QString file;
        QSize box; ///< pixels
        [[nodiscard]] bool operator<(const Wanted& other) const;
    };

    void Serve(const std::stop_token& stop);
    [[nodiscard]] static PrintPicture Make(const Wanted& wanted, const QString& path);
    [[nodiscard]] static Wanted WantedOf(const QString& file, const QSizeF& box);
    void AskFirst(const Wanted& wanted);

    const QTemporaryDir m_folder;
    std::mutex m_lock; ///< guards what follows
    std::condition_variable_any m_changed;
    std::deque<Wanted> m_queue;
    std::set<Wanted> m_making;
    int m_made = 0;
    std::map<Wanted, PrintPicture> m_ready; ///< its elements stay where they are
    std::function<void()> m_listener;
    std::vector<std::jthread> m_threads; ///< the last: they end before the rest goes
};

} // namespace host
