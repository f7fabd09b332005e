#include "bench/SheetBench.h"

#include "bench/LargeSheet.h"
#include "bench/PeakMemory.h"
#include "bench/Report.h"
#include "bench/SheetDriver.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>

#include <algorithm>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSheetOpenings = 7;
constexpr int kZoomSteps = 10;
constexpr int kWalks = 5;
constexpr int kMoves = 12;
constexpr QPoint kMove(-45, -25);
constexpr double kPaintedGoalMs = 50;
constexpr double kSharpGoalMs = 500;
constexpr double kSheetMemoryGoal = 250;

struct StepTimes {
    std::vector<double> painted;
    std::vector<double> sharp;

    void Add(const SheetTimes& step) {
        painted.push_back(step.painted);
        sharp.push_back(step.sharp);
    }
    void Add(const SheetBurst& burst) {
        painted.insert(painted.end(), burst.painted.begin(), burst.painted.end());
        sharp.push_back(burst.sharp);
    }
};

/// What a person does with a sheet, each kind of it apart.
struct Walk {
    StepTimes in;      ///< single notches, nothing of it seen before
    StepTimes out;     ///< the same way back
    StepTimes held;    ///< notches without a pause
    StepTimes dragged; ///< by hand, far in
};

QPointF PartOf(int walk) {
    return {0.2 + 0.15 * walk, 0.75 - 0.12 * walk};
}

void WalkOnce(SheetDriver& driver, int number, Walk& walk) {
    const QPointF part = PartOf(number);
    static_cast<void>(driver.Fit());
    for (int i = 0; i < kZoomSteps; ++i) {
        walk.in.Add(driver.Wheel(1, part));
        if (i % 3 == 2) {
            walk.dragged.Add(driver.Drag(kMove, kMoves));
        }
    }
    for (int i = 0; i < kZoomSteps; ++i) {
        walk.out.Add(driver.Wheel(-1, part));
    }
    walk.held.Add(driver.WheelHeld(1, kZoomSteps, {part.y(), part.x()}));
    walk.held.Add(driver.WheelHeld(-1, kZoomSteps, {part.y(), part.x()}));
}

void PutSteps(Report& report, const QString& name, const StepTimes& steps) {
    const auto worst = [](const std::vector<double>& times) {
        return *std::max_element(times.begin(), times.end());
    };
    report.AddFigure(name + u", painted"_s, Median(steps.painted), u"ms"_s);
    report.AddFigure(name + u", painted, nine in ten"_s, NinthDecile(steps.painted), u"ms"_s);
    report.AddGoal(name + u", painted, worst"_s, worst(steps.painted), u"ms"_s, kPaintedGoalMs);
    report.AddFigure(name + u", sharp"_s, Median(steps.sharp), u"ms"_s);
    report.AddFigure(name + u", sharp, nine in ten"_s, NinthDecile(steps.sharp), u"ms"_s);
    report.AddGoal(name + u", sharp, worst"_s, worst(steps.sharp), u"ms"_s, kSharpGoalMs);
}

void MeasureOpenings(SheetDriver& driver, const QString& path, Report& report) {
    const SheetTimes first = driver.Open(path);
    std::vector<double> painted;
    std::vector<double> sharp;
    std::vector<double> process;
    std::vector<double> alone;
    for (int i = 0; i < kSheetOpenings; ++i) {
        const SheetTimes times = driver.Open(path);
        painted.push_back(times.painted);
        sharp.push_back(times.sharp);
        const BareSheetCost bare = RenderBareSheet(path, driver.SheetPixels());
        process.push_back(bare.process);
        alone.push_back(bare.load + bare.render);
    }
    const QSize size = driver.SheetPixels();
    report.AddFigure(u"sheet: pixels of the whole"_s, size.width() * size.height() / 1e6, u"M"_s);
    report.AddFigure(u"sheet: open to whole and sharp, first time"_s, first.sharp, u"ms"_s);
    report.AddFigure(u"sheet: open to whole and sharp"_s, Median(sharp), u"ms"_s);
    report.AddFigure(u"sheet: open to whole and sharp, nine in ten"_s, NinthDecile(sharp), u"ms"_s);
    report.AddFigure(u"sheet: open to a painted answer"_s, Median(painted), u"ms"_s);
    report.AddFigure(u"sheet: library alone, load and render"_s, Median(alone), u"ms"_s);
    report.AddFigure(u"sheet: library alone, whole process"_s, Median(process), u"ms"_s);
    report.AddFigure(u"sheet: open, ratio to that process"_s, Median(sharp) / Median(process),
                     u"times"_s);
}

void MeasureWalks(WatchedApplication& application, SheetDriver& driver, Report& report) {
    Walk walk;
    application.longestEvent = 0;
    application.longestWork = 0;
    for (int i = 0; i < kWalks; ++i) {
        WalkOnce(driver, i, walk);
    }
    PutSteps(report, u"sheet: a notch nearer"_s, walk.in);
    PutSteps(report, u"sheet: a notch back"_s, walk.out);
    PutSteps(report, u"sheet: ten notches held"_s, walk.held);
    PutSteps(report, u"sheet: drag of twelve moves"_s, walk.dragged);
    report.AddFigure(u"sheet: longest event"_s, application.longestEvent, u"ms"_s);
    report.AddFigure(u"sheet: longest event, own work"_s, application.longestWork, u"ms"_s);
}

void MeasureSheetMemory(const QString& path, const QSize& pixels, Report& report) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"--sheet-memory"_s, path});
    process.waitForFinished(-1);
    const QStringList words =
        QString::fromUtf8(process.readAllStandardOutput()).trimmed().split(u' ');
    if (process.exitCode() != 0 || words.size() != 2) {
        return;
    }
    const double client = words[0].toDouble();
    const double reader = words[1].toDouble();
    report.AddFigure(u"sheet: peak memory, client's growth"_s, client, u"MB"_s);
    report.AddFigure(u"sheet: peak memory, reader"_s, reader, u"MB"_s);
    report.AddFigure(u"sheet: peak memory, library alone"_s, RenderBareSheet(path, pixels).peak,
                     u"MB"_s);
    report.AddGoal(u"sheet: peak memory, both"_s, client + reader, u"MB"_s, kSheetMemoryGoal);
}

} // namespace

void MeasureSheet(WatchedApplication& application, const QString& path, Report& report) {
    QSize pixels;
    {
        SheetDriver driver(application);
        MeasureOpenings(driver, path, report);
        pixels = driver.SheetPixels();
        MeasureWalks(application, driver, report);
    }
    MeasureSheetMemory(path, pixels, report);
}

int ProbeSheetMemory(WatchedApplication& application, const QString& path) {
    SheetDriver driver(application);
    const double before = PresentMegabytes();
    static_cast<void>(driver.Open(path));
    Walk walk;
    for (int i = 0; i < kWalks; ++i) {
        WalkOnce(driver, i, walk);
    }
    QTextStream(stdout) << PeakMegabytes() - before << u' ' << PeakMegabytesOfChildren()
                        << Qt::endl;
    return 0;
}

} // namespace bench
