// The gallery on large photographs: from an event to the picture on the screen, beside the bare
// decode of the same file in the same run.
#include "bench/BareDecode.h"
#include "bench/DownloadBench.h"
#include "bench/GalleryDriver.h"
#include "bench/KeyBench.h"
#include "bench/PeakMemory.h"
#include "bench/PhotoSet.h"
#include "bench/Report.h"
#include "bench/ViewerBench.h"
#include "toolkit/Look.h"

#include <QCommandLineParser>
#include <QDir>
#include <QProcess>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

using bench::GalleryDriver;
using bench::Median;
using bench::NinthDecile;
using bench::PaintTimes;
using bench::PhotoClass;

namespace {

constexpr int kOpenings = 9;
constexpr int kJumps = 7; // more would lead beyond the last of a class
constexpr int kJumpNotches = 6;
constexpr int kRepaints = 51;
constexpr int kSlides = 5;
constexpr int kManyPictures = 1000;
constexpr int kProbeSteps = 30;
/// Long enough for a look ahead on a busy machine.
constexpr int kSettleMs = 400;

/// Times of one kind, each with its bare counterpart.
struct Series {
    std::vector<double> ours;
    std::vector<double> bare;

    void Add(double time, double bareTime) {
        ours.push_back(time);
        bare.push_back(bareTime);
    }
    /// Of the pairs, so that what disturbs both at once doesn't count.
    [[nodiscard]] double Ratio() const {
        std::vector<double> ratios;
        for (size_t i = 0; i < ours.size(); ++i) {
            ratios.push_back(ours[i] / bare[i]);
        }
        return Median(ratios);
    }
};

void Put(bench::Report& report, const QString& name, const Series& series) {
    report.AddFigure(name, Median(series.ours), u"ms"_s);
    report.AddFigure(name + u", nine in ten"_s, NinthDecile(series.ours), u"ms"_s);
    report.AddFigure(name + u", bare"_s, Median(series.bare), u"ms"_s);
    report.AddFigure(name + u", ratio"_s, series.Ratio(), u"times"_s);
}

/// After a pause, so that nothing that the gallery prepares runs beside it.
double BarePicture(const GalleryDriver& driver, const QString& path) {
    bench::Settle(kSettleMs);
    return bench::BareDecode({path, driver.PictureSize(), {}});
}

/// The visible thumbnails, each as the scaled whole that covers its cell.
double BareStrip(const GalleryDriver& driver) {
    std::vector<bench::DecodeOrder> orders;
    const gallery::GalleryState& state = driver.State();
    for (int i = state.visible.first; i <= state.visible.last; ++i) {
        const GalleryItem& item = state.items[size_t(i)];
        const QSize cell = item.thumbRect.size();
        const QSize whole = item.picSize.scaled(cell, Qt::KeepAspectRatioByExpanding);
        orders.push_back({item.picPath, whole, QRect(QPoint(0, 0), cell)});
    }
    return bench::BareDecodes(orders);
}

void MeasureOpening(GalleryDriver& driver, const QStringList& paths, const QString& name,
                    bench::Report& report) {
    Series picture;
    Series strip;
    for (int i = 0; i < kOpenings; ++i) {
        const int index = i * 3 % int(paths.size());
        const PaintTimes times = driver.Open(paths, index);
        const double bare = BarePicture(driver, paths[index]);
        picture.Add(times.picture, bare);
        strip.Add(times.strip - times.picture, BareStrip(driver));
    }
    Put(report, name + u": open to picture"_s, picture);
    Put(report, name + u": strip after the picture"_s, strip);
}

int StepBy(int key) {
    return key == Qt::Key_Right ? 1 : -1;
}

/// Steps by a key after what lies ahead has been prepared.
Series Step(GalleryDriver& driver, const QStringList& paths, int key, int steps, int& lost) {
    Series series;
    for (int i = 0; i < steps; ++i) {
        bench::Settle(kSettleMs);
        const int wanted = driver.CurrentIndex() + StepBy(key);
        const PaintTimes times = driver.Press(key);
        lost += driver.CurrentIndex() == wanted ? 0 : 1;
        series.Add(times.picture, BarePicture(driver, paths[wanted]));
    }
    return series;
}

/// Steps without a pause, as a held key does.
std::vector<double> Hold(GalleryDriver& driver, int key, int steps, int& lost) {
    std::vector<double> times;
    for (int i = 0; i < steps; ++i) {
        const int wanted = driver.CurrentIndex() + StepBy(key);
        times.push_back(driver.Press(key).picture);
        lost += driver.CurrentIndex() == wanted ? 0 : 1;
    }
    return times;
}

/// There and back by one picture, as people compare two.
Series Compare(GalleryDriver& driver, const QStringList& paths, int& lost) {
    Series back;
    for (int i = 0; i < kProbeSteps / 2; ++i) {
        static_cast<void>(Step(driver, paths, Qt::Key_Right, 1, lost));
        const Series again = Step(driver, paths, Qt::Key_Left, 1, lost);
        back.Add(again.ours.front(), again.bare.front());
        static_cast<void>(Hold(driver, Qt::Key_Right, 1, lost));
    }
    return back;
}

/// By several notches of the wheel at once, to a picture that nobody could foresee.
Series Jump(GalleryDriver& driver, const QStringList& paths) {
    Series series;
    for (int i = 0; i < kJumps; ++i) {
        bench::Settle(kSettleMs);
        const PaintTimes times = driver.Wheel(i % 3 == 2 ? -kJumpNotches / 2 : kJumpNotches);
        series.Add(times.picture, BarePicture(driver, paths[driver.CurrentIndex()]));
    }
    return series;
}

void MeasureSteps(GalleryDriver& driver, const QStringList& paths, const QString& name,
                  bench::Report& report) {
    int lost = 0;
    static_cast<void>(driver.Open(paths, 0));
    // The very first key, with nothing done in between.
    static_cast<void>(Hold(driver, Qt::Key_Right, 1, lost));
    const int steps = int(std::min<qsizetype>(paths.size(), kProbeSteps)) - 2;
    Put(report, name + u": next, foreseen"_s, Step(driver, paths, Qt::Key_Right, steps, lost));
    static_cast<void>(driver.Open(paths, 0));
    Put(report, name + u": back to the one before"_s, Compare(driver, paths, lost));
    static_cast<void>(driver.Open(paths, 0));
    bench::Settle(kSettleMs);
    report.AddFigure(name + u": next, key held"_s, Median(Hold(driver, Qt::Key_Right, steps, lost)),
                     u"ms"_s);
    static_cast<void>(driver.Open(paths, 0));
    Put(report, name + u": jump, not foreseen"_s, Jump(driver, paths));
    report.AddFigure(name + u": lost keys"_s, lost, u"keys"_s);
}

void MeasurePainting(GalleryDriver& driver, const QStringList& paths, const QString& name,
                     bench::Report& report) {
    static_cast<void>(driver.Open(paths, 2));
    bench::Settle(kSettleMs);
    std::vector<double> repaints;
    for (int i = 0; i < kRepaints; ++i) {
        repaints.push_back(driver.Repaint());
    }
    report.AddFigure(name + u": repaint, all cached"_s, Median(repaints), u"ms"_s);
    std::vector<double> late;
    for (int i = 0; i < kSlides; ++i) {
        bench::Settle(kSettleMs);
        const std::vector<double> between = driver.SlideToNext();
        for (const double time : between) {
            late.push_back(time - Median(between));
        }
    }
    report.AddFigure(name + u": slide frames, nine in ten late by"_s, NinthDecile(late), u"ms"_s);
    report.AddFigure(name + u": slide frames, latest by"_s,
                     late.empty() ? 0 : *std::max_element(late.begin(), late.end()), u"ms"_s);
}

/// In a process of its own: peak after the first 30 steps, and after a hundred more.
int ProbeMemory(bench::WatchedApplication& application, const QString& folder) {
    const QStringList paths = support::FolderGallery::PicturesIn(folder);
    GalleryDriver driver(application);
    int lost = 0;
    static_cast<void>(driver.Open(paths, 0));
    const auto walk = [&](int steps) {
        for (int i = 0; i < steps; ++i) {
            bench::Settle(kSettleMs / 4);
            static_cast<void>(Hold(driver, Qt::Key_Right, 1, lost));
        }
        return bench::PeakMegabytes();
    };
    const double first = walk(kProbeSteps);
    QTextStream(stdout) << first << u' ' << walk(100) << Qt::endl;
    return lost == 0 ? 0 : 1;
}

void MeasureMemory(const QString& folder, bench::Report& report) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"--memory-probe"_s, folder});
    process.waitForFinished(-1);
    const QStringList words =
        QString::fromUtf8(process.readAllStandardOutput()).trimmed().split(u' ');
    if (process.exitCode() != 0 || words.size() != 2) {
        return;
    }
    report.AddFigure(u"1,000 of 24 MP: peak memory after 30 steps"_s, words[0].toDouble(), u"MB"_s);
    report.AddFigure(u"1,000 of 24 MP: peak memory after 130 steps"_s, words[1].toDouble(),
                     u"MB"_s);
}

int MeasureViewers(bench::WatchedApplication& application, const QCommandLineParser& options) {
    bench::Report report;
    const QStringList paths =
        bench::MakePhotos(bench::PhotoClasses()[1], options.value(u"originals"_s),
                          QDir(options.value(u"photos"_s)).filePath(u"24"_s));
    if (paths.isEmpty()) {
        return 1;
    }
    bench::MeasureDownload(paths, report);
    bench::MeasureViewer(application, paths.front(), report);
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}

int MeasureKeysAlone(bench::WatchedApplication& application, const QCommandLineParser& options) {
    bench::Report report;
    const QStringList paths =
        bench::MakePhotos(bench::PhotoClasses()[1], options.value(u"originals"_s),
                          QDir(options.value(u"photos"_s)).filePath(u"24"_s));
    if (paths.isEmpty()) {
        return 1;
    }
    bench::MeasureKeys(application, paths, bench::PhotoClasses()[1].name, report);
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}

int Measure(bench::WatchedApplication& application, const QCommandLineParser& options) {
    bench::Report report;
    const QDir photos(options.value(u"photos"_s));
    for (const PhotoClass& photoClass : bench::PhotoClasses()) {
        const QStringList paths =
            bench::MakePhotos(photoClass, options.value(u"originals"_s),
                              photos.filePath(photoClass.name.split(u' ').front()));
        if (paths.isEmpty()) {
            QTextStream(stderr) << u"no photographs"_s << Qt::endl;
            return 1;
        }
        // First of all: later the files have been seen.
        bench::MeasureKeys(application, paths, photoClass.name, report);
        GalleryDriver driver(application);
        MeasureOpening(driver, paths, photoClass.name, report);
        MeasureSteps(driver, paths, photoClass.name, report);
        MeasurePainting(driver, paths, photoClass.name, report);
        if (photoClass.name != u"24 MP"_s) {
            continue;
        }
        const QString manyFolder = photos.filePath(u"many"_s);
        const QStringList many = bench::ManyNames(paths, kManyPictures, manyFolder);
        MeasureOpening(driver, many, u"1,000 of 24 MP"_s, report);
        MeasureSteps(driver, many, u"1,000 of 24 MP"_s, report);
        MeasureMemory(manyFolder, report);
        bench::MeasureDownload(paths, report);
        bench::MeasureViewer(application, paths.front(), report);
    }
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    bench::WatchedApplication app(argc, argv);
    toolkit::ApplyLook(app);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({u"photos"_s, u"Folder of the enlarged photographs; filled once."_s,
                       u"folder"_s, u"build/bench-photos"_s});
    options.addOption(
        {u"originals"_s, u"Folder of photographs."_s, u"folder"_s, u"/usr/share/backgrounds"_s});
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"gallery.json"_s});
    options.addOption(QCommandLineOption(u"viewer"_s, u"Only the downloads and the viewer."_s));
    options.addOption(QCommandLineOption(u"keys"_s, u"Only keys at the first picture, 24 MP."_s));
    options.addOption({u"memory-probe"_s, u"Only step through a folder."_s, u"folder"_s});
    options.process(app);
    if (options.isSet(u"viewer"_s)) {
        return MeasureViewers(app, options);
    }
    if (options.isSet(u"keys"_s)) {
        return MeasureKeysAlone(app, options);
    }
    return options.isSet(u"memory-probe"_s) ? ProbeMemory(app, options.value(u"memory-probe"_s))
                                            : Measure(app, options);
}
