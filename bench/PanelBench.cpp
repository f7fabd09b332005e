#include "bench/PanelBench.h"

#include "bench/BareTree.h"
#include "bench/FileCache.h"
#include "bench/PanelRig.h"
#include "bench/PeakMemory.h"
#include "bench/Report.h"
#include "bench/StatementTrace.h"
#include "host/session/HostSession.h"
#include "services/PicRecords.h"
#include "site/IBimPhotos.h"
#include "site/ICatalogue.h"
#include "tests/support/EngineFolder.h"

#include <algorithm>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kOpenings = 7;
constexpr int kChoices = 3;
constexpr qint32 kSomePhoto = 1;
constexpr double kPanelGoalMs = 300;
constexpr double kRangeGoalMs = 1000;

/// The bulk site's photos were changed in the years from 2015 on.
struct DayRange {
    QString name;
    host::MarkDays days;
};

std::vector<DayRange> Ranges() {
    const auto range = [](const QString& name, QDate from, QDate to) {
        return DayRange{name, {true, from, to}};
    };
    return {range(u"all years"_s, {2014, 1, 1}, {2026, 12, 31}),
            range(u"all years but the first month"_s, {2015, 2, 1}, {2026, 12, 31}),
            range(u"one year"_s, {2020, 1, 1}, {2020, 12, 31}),
            range(u"one month"_s, {2020, 6, 1}, {2020, 6, 30}),
            range(u"one day"_s, {2020, 6, 15}, {2020, 6, 15})};
}

/// A new connection, as a new client has it.
bool OpenAnew(host::HostSession& session, bool fromDisk) {
    const QString path = support::FolderOf(session).Path();
    const QString database = support::FolderOf(session).DatabasePath();
    const QString user = session.UserName();
    session.Close();
    if (fromDisk) {
        DropFromCache(database);
    }
    if (session.Open(path) || !session.SignIn(user)) {
        return false;
    }
    const auto worksets = session.Site().Catalogue().Worksets();
    return !worksets.empty() && session.OpenWorkset(worksets.front().id);
}

/// Hides a photo, or shows it again: the panel's rows have to be read anew.
void ChangeData(host::HostSession& session) {
    static bool isHidden = false;
    isHidden = !isHidden;
    const qint32 status = isHidden ? KX_DATA::kStatusHidden : KX_DATA::kStatusShown;
    const site::Projects open = session.OpenPpids();
    const bool isChanged = std::any_of(open.begin(), open.end(), [&](qint32 ppid) {
        return session.Site().BimPhotos().SetStatus(ppid, {kSomePhoto}, status) > 0;
    });
    if (!isChanged) {
        qFatal("no photo to be changed");
    }
}

/// The same statements and the same rows in a plain tree.
double BareOpening(const PanelRig& rig, const std::vector<TracedStatement>& statements) {
    return ReplayMilliseconds(statements) + FillAndPaintBareTree(rig.Tree(), rig.TreeSize());
}

/// Beside the time that passed the work in it, which other programs on the machine don't lengthen.
void PutTimes(Report& report, const QString& name, const std::vector<PanelTime>& times,
              double most) {
    std::vector<double> passed;
    std::vector<double> worked;
    for (const PanelTime& time : times) {
        passed.push_back(time.passed);
        worked.push_back(time.worked);
    }
    report.AddGoal(name, Median(passed), u"ms"_s, most);
    report.AddFigure(name + u", own work"_s, Median(worked), u"ms"_s);
}

bool MeasureOpenings(PanelRig& rig, host::HostSession& session, Report& report) {
    if (!OpenAnew(session, true)) {
        return false;
    }
    PutTimes(report, u"panel, first opening, from the disk"_s, {rig.Fill()}, kPanelGoalMs);
    std::vector<PanelTime> first;
    std::vector<PanelTime> later;
    std::vector<PanelTime> shown;
    std::vector<double> bare;
    for (int i = 0; i < kOpenings; ++i) {
        if (!OpenAnew(session, false)) {
            return false;
        }
        first.push_back(rig.Fill());
        ChangeData(session);
        static_cast<void>(TakeTrace());
        later.push_back(rig.ReadAnew());
        bare.push_back(BareOpening(rig, TakeTrace()));
        shown.push_back(rig.ShowAgain());
    }
    PutTimes(report, u"panel, first opening, file cached"_s, first, kPanelGoalMs);
    std::vector<double> behind;
    for (const PanelTime& time : first) {
        behind.push_back(time.behind);
    }
    report.AddFigure(u"panel, first opening, own work on issues behind it"_s, Median(behind),
                     u"ms"_s);
    PutTimes(report, u"panel, later opening, after a change"_s, later, kPanelGoalMs);
    PutTimes(report, u"panel, later opening, nothing changed"_s, shown, kPanelGoalMs);
    report.AddFigure(u"panel, bare statements and plain tree"_s, Median(bare), u"ms"_s);
    report.AddFigure(u"panel, peak memory"_s, PeakMegabytes(), u"MB"_s);
    return true;
}

void MeasureRange(PanelRig& rig, host::HostSession& session, const DayRange& range,
                  Report& report) {
    std::vector<PanelTime> times;
    std::vector<double> bare;
    for (int i = 0; i < kChoices; ++i) {
        ChangeData(session);
        static_cast<void>(TakeTrace());
        times.push_back(rig.Choose(range.days));
        bare.push_back(BareOpening(rig, TakeTrace()));
    }
    const QString name = u"panel, days: "_s + range.name;
    report.AddFigure(name + u", photos"_s, CountOf(rig.Tree()), QString());
    PutTimes(report, name, times, kRangeGoalMs);
    report.AddFigure(name + u", bare statements and plain tree"_s, Median(bare), u"ms"_s);
}

} // namespace

bool MeasurePanel(WatchedApplication& application, host::HostSession& session, Report& report) {
    report.AddFigure(u"panel, peak memory before it is there"_s, PeakMegabytes(), u"MB"_s);
    PanelRig rig(application, session);
    if (!MeasureOpenings(rig, session, report)) {
        return false;
    }
    for (const DayRange& range : Ranges()) {
        MeasureRange(rig, session, range, report);
    }
    static_cast<void>(rig.Choose({}));
    report.AddFigure(u"panel, peak memory with ranges of days"_s, PeakMegabytes(), u"MB"_s);
    return true;
}

} // namespace bench
