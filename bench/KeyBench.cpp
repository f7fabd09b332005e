#include "bench/KeyBench.h"

#include "bench/BareDecode.h"

#include <algorithm>
#include <utility>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLists = 9;
constexpr int kFar = 6;   ///< notches of the wheel, to a picture that nobody could foresee
constexpr int kHeld = 8;  ///< keys one after the other
constexpr int kApart = 3; ///< from list to list, so that most files are new to the next
constexpr int kQuietMs = 400;
constexpr double kOneDecode = 1.0;
constexpr double kBlockMs = 30;

/// Milliseconds of answers, each with the bare decode of the file that it showed.
struct Answers {
    std::vector<double> ours;
    std::vector<double> bare;

    void Add(const GalleryDriver& driver, const QString& path, double milliseconds) {
        // What the gallery prepares would run beside the bare one.
        Settle(kQuietMs);
        ours.push_back(milliseconds);
        bare.push_back(BareDecode({path, driver.PictureSize(), {}}));
    }
};

void Put(Report& report, const QString& name, const Answers& answers) {
    std::vector<double> ratios;
    for (size_t i = 0; i < answers.ours.size(); ++i) {
        ratios.push_back(answers.ours[i] / answers.bare[i]);
    }
    report.AddFigure(name, Median(answers.ours), u"ms"_s);
    report.AddFigure(name + u", nine in ten"_s, NinthDecile(answers.ours), u"ms"_s);
    report.AddFigure(name + u", worst"_s,
                     *std::max_element(answers.ours.begin(), answers.ours.end()), u"ms"_s);
    report.AddFigure(name + u", bare"_s, Median(answers.bare), u"ms"_s);
    report.AddGoal(name + u", ratio"_s, Median(ratios), u"times"_s, kOneDecode);
    report.AddFigure(name + u", ratio, nine in ten"_s, NinthDecile(ratios), u"times"_s);
    report.AddFigure(name + u", ratio, worst"_s, *std::max_element(ratios.begin(), ratios.end()),
                     u"times"_s);
}

void PutBlocks(Report& report, const QString& name, const std::vector<double>& blocks) {
    report.AddFigure(name, Median(blocks), u"ms"_s);
    report.AddFigure(name + u", nine in ten"_s, NinthDecile(blocks), u"ms"_s);
    report.AddGoal(name + u", worst"_s, *std::max_element(blocks.begin(), blocks.end()), u"ms"_s,
                   kBlockMs);
}

/// The longest events of some deeds.
struct Blocks {
    std::vector<double> time; ///< by the clock
    std::vector<double> work; ///< of the thread

    void Add(WatchedApplication& application) {
        time.push_back(std::exchange(application.longestEvent, 0));
        work.push_back(std::exchange(application.longestWork, 0));
    }
    static void Begin(WatchedApplication& application) {
        application.longestEvent = 0;
        application.longestWork = 0;
    }
};

/// One list opened, and `act` at once behind it.
template <typename Act>
void OpenAndStep(WatchedApplication& application, GalleryDriver& driver, const QStringList& paths,
                 int index, Answers& answers, Blocks& blocks, const Act& act) {
    Blocks::Begin(application);
    static_cast<void>(driver.OpenToPicture(paths, index));
    const double answer = act();
    blocks.Add(application);
    answers.Add(driver, paths[driver.CurrentIndex()], answer);
}

} // namespace

void MeasureKeys(WatchedApplication& application, const QStringList& paths, const QString& name,
                 Report& report) {
    GalleryDriver driver(application);
    Answers first;
    Answers again;
    Answers far;
    Blocks blocks;
    for (Answers* answers : {&first, &again}) {
        for (int i = 0; i < kLists; ++i) {
            OpenAndStep(application, driver, paths, i * kApart % int(paths.size() - 1), *answers,
                        blocks, [&] { return driver.PressToPicture(Qt::Key_Right); });
        }
    }
    for (int i = 0; i < kLists; ++i) {
        OpenAndStep(application, driver, paths, i * 2 % int(paths.size() - kFar), far, blocks,
                    [&] { return driver.WheelToPicture(kFar); });
    }
    static_cast<void>(driver.Open(paths, 0));
    Blocks held;
    for (int i = 0; i < kHeld; ++i) {
        Blocks::Begin(application);
        static_cast<void>(driver.PressToPicture(Qt::Key_Right));
        held.Add(application);
    }
    Put(report, name + u": key at the first picture, first"_s, first);
    Put(report, name + u": key at the first picture, again"_s, again);
    Put(report, name + u": jump at the first picture"_s, far);
    PutBlocks(report, name + u": longest event, opening and stepping"_s, blocks.time);
    PutBlocks(report, name + u": longest work, opening and stepping"_s, blocks.work);
    PutBlocks(report, name + u": longest event, key held"_s, held.time);
    PutBlocks(report, name + u": longest work, key held"_s, held.work);
}

} // namespace bench
