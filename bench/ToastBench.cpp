// From another client's commit to the painted toast, a burst while somebody types, and rest.
#include "bench/PeakMemory.h"
#include "bench/Report.h"
#include "bench/ToastPhone.h"
#include "bench/WatchedApplication.h"
#include "hands/Hands.h"
#include "host/app/Client.h"
#include "host/session/HostSession.h"
#include "host/ui/MainWindow.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "site/sqlite/DataFolder.h"
#include "tests/bulk/BulkSite.h"
#include "toolkit/Look.h"
#include "toolkit/windows/PopupWindow.h"
#include "tour/ConsoleEyes.h"

#include <QAbstractItemView>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextStream>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr int kToasts = 200;
constexpr int kBurst = 1000;
constexpr double kMedianGoal = 300;
constexpr double kWorstGoal = 2000;
constexpr double kStallGoal = 50;
constexpr double kMemoryGoal = 60;
constexpr double kWakesGoal = 60;
constexpr int kRestSeconds = 60;
constexpr int kKeyEveryMs = 20;
constexpr int kPatienceMs = 60'000;

/// Of all threads of the process, how often each gave up the processor to wait for something.
std::map<std::string, double> WakeUps() {
    std::map<std::string, double> wakes;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream status(task.path() / "status");
        for (std::string word; status >> word;) {
            if (word == "voluntary_ctxt_switches:") {
                status >> wakes[task.path().filename()];
            }
        }
    }
    return wakes;
}

double ResidentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmRSS:") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes / 1024;
        }
    }
    return 0;
}

bool Wait(const std::function<bool()>& until) {
    const QDeadlineTimer patience(kPatienceMs);
    while (!until()) {
        if (patience.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 5);
    }
    return true;
}

/// Sees the first paint of a toast, at whatever time its window comes.
class ToastWatch final : public QObject {
public:
    void Await() { m_paintedAt = 0; }
    [[nodiscard]] qint64 PaintedAt() const { return m_paintedAt; }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        // The window has been painted when it has handled what follows its paint.
        if (event->type() == QEvent::UpdateRequest && receiver->objectName() == u"popupWindow"_s &&
            m_paintedAt == 0) {
            QMetaObject::invokeMethod(
                this, [this] { m_paintedAt = bench::SteadyNanoseconds(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    qint64 m_paintedAt = 0;
};

bool MeasureToasts(bench::ToastPhone& phone, QApplication& app, bench::Report& report) {
    ToastWatch watch;
    app.installEventFilter(&watch);
    std::vector<double> times;
    double first = 0;
    for (int at = 0; at <= kToasts; ++at) {
        watch.Await();
        const qint64 committed = phone.FileOne();
        if (committed == 0 || !Wait([&] { return watch.PaintedAt() != 0; })) {
            return false;
        }
        const double passed = double(watch.PaintedAt() - committed) / 1e6;
        if (at == 0) {
            first = passed;
        } else {
            times.push_back(passed);
        }
        CBCGPPopupWindow::CloseAll();
        bench::Settle(20);
    }
    std::sort(times.begin(), times.end());
    report.AddFigure(u"toast: first"_s, first, u"ms"_s);
    report.AddGoal(u"toast: commit to paint, median"_s, bench::Median(times), u"ms"_s, kMedianGoal);
    report.AddFigure(u"toast: nine in ten"_s, bench::NinthDecile(times), u"ms"_s);
    report.AddGoal(u"toast: 99th percentile"_s, times[times.size() * 99 / 100], u"ms"_s,
                   kWorstGoal);
    report.AddFigure(u"toast: worst"_s, times.back(), u"ms"_s);
    return true;
}

/// Letters into the console's search field while reminders rain.
bool MeasureBurst(bench::ToastPhone& phone, bench::WatchedApplication& app, host::Client& client,
                  const QString& kind, bench::Report& report) {
    auto* field = tour::ConsoleControl(u"keywordCombo"_s);
    const int listed = client.Window()->CatchUpList().Model().rowCount();
    const double before = ResidentMegabytes();
    app.longestEvent = 0;
    app.longestWork = 0;
    if (!phone.FileMany(kBurst, kind)) {
        return false;
    }
    int typed = 0;
    const auto toasts = [] {
        return CBCGPPopupWindow::CountShown() + CBCGPPopupWindow::CountWaiting();
    };
    double most = before;
    int mostToasts = 0;
    QElapsedTimer lastKey;
    lastKey.start();
    const bool isThere = Wait([&] {
        // Back and forth, as fast as nobody types.
        if (field != nullptr && lastKey.elapsed() >= kKeyEveryMs) {
            lastKey.start();
            most = std::max(most, ResidentMegabytes());
            typed += hands::PressKey(field, typed % 2 == 0 ? Qt::Key_A : Qt::Key_Backspace);
        }
        mostToasts = std::max(mostToasts, toasts());
        // They came and, ten seconds later, went.
        return client.Window()->CatchUpList().Model().rowCount() >= listed + kBurst &&
               mostToasts > 0 && toasts() == 0;
    });
    report.AddFigure(u"burst of %1: most toasts in sight or waiting"_s.arg(kind), mostToasts,
                     QString());
    report.AddFigure(u"burst of %1: letters typed"_s.arg(kind), typed, QString());
    report.AddGoal(u"burst of %1: longest event"_s.arg(kind), app.longestEvent, u"ms"_s,
                   kStallGoal);
    report.AddFigure(u"burst of %1: of it own work"_s.arg(kind), app.longestWork, u"ms"_s);
    report.AddGoal(u"burst of %1: memory"_s.arg(kind), most - before, u"MB"_s, kMemoryGoal);
    CBCGPPopupWindow::CloseAll();
    bench::Settle(500);
    return isThere;
}

void MeasureRest(bench::Report& report) {
    const std::map<std::string, double> before = WakeUps();
    const QDeadlineTimer end(kRestSeconds * 1000);
    int rounds = 0;
    while (!end.hasExpired()) {
        // As the program's own loop does: asleep until something comes.
        QTimer::singleShot(int(end.remainingTime()), [] {});
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ++rounds;
    }
    double wakes = 0;
    for (const auto& [thread, count] : WakeUps()) {
        const auto known = before.find(thread);
        wakes += count - (known != before.end() ? known->second : 0);
    }
    report.AddGoal(u"rest: wake-ups of all threads in a minute"_s, wakes, QString(), kWakesGoal);
    report.AddFigure(u"rest: of the event loop"_s, rounds, QString());
}

int Measure(bench::WatchedApplication& app, const QString& out) {
    QTemporaryDir dir;
    const QString place = dir.filePath(u"data"_s);
    {
        site::DataFolder folder(place);
        if (folder.Open()) {
            return 1;
        }
        bulk::FillBulkSite(folder, {20'000, 0, 4'000, 3, 80});
    }
    host::HostSession session;
    if (session.Open(place) || !session.SignIn(u"bench"_s) || !session.OpenProject(1)) {
        return 1;
    }
    host::Client client(session);
    if (client.Start(QCoreApplication::applicationDirPath())) {
        return 1;
    }
    bench::Settle(1000);
    bench::Report report;
    bench::ToastPhone phone(place);
    bool isDone = MeasureToasts(phone, app, report);
    isDone = isDone &&
             Wait([&] { return hands::PressKey(client.Window(), Qt::Key_1, Qt::ControlModifier); });
    isDone = isDone && MeasureBurst(phone, app, client, u"photos"_s, report);
    isDone = isDone && MeasureBurst(phone, app, client, u"issues"_s, report);
    phone.End();
    bench::Settle(6000);
    MeasureRest(report);
    client.Stop();
    report.PrintTable();
    return isDone && report.WriteJson(out) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    bench::WatchedApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption phone(u"phone"_s, u"files what standard input asks for"_s,
                                   u"folder"_s);
    const QCommandLineOption out(u"out"_s, u"file for the results as JSON"_s, u"file"_s,
                                 u"toast-bench.json"_s);
    parser.addOptions({phone, out});
    parser.addHelpOption();
    parser.process(app);
    if (parser.isSet(phone)) {
        return bench::RunToastPhone(parser.value(phone));
    }
    toolkit::ApplyLook(app);
    QApplication::setQuitOnLastWindowClosed(false);
    return Measure(app, parser.value(out));
}
