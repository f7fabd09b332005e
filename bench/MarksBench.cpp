// The mark panel on a site of a million photos, and cutting its trees down to what is ticked.
#include "bench/BulkFolder.h"
#include "bench/PanelBench.h"
#include "bench/Report.h"
#include "bench/StatementTrace.h"
#include "bench/Stopwatch.h"
#include "bench/WatchedApplication.h"
#include "frame/KXVeskPictureImpl.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "reminder/marks/KXVeskPicDataImpl.h"
#include "site/ICatalogue.h"
#include "site/IPanelCounts.h"
#include "toolkit/GbkText.h"
#include "toolkit/Look.h"

#include <QCommandLineParser>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

using KX_DATA::IssueMarkGroup;
using KX_DATA::PicMarkGroup;
using KX_DATA::ShownIssueMarks;
using KX_DATA::ShownPicMarks;

namespace {

constexpr int kRepetitions = 31;
constexpr int kTenth = 10;
constexpr double kCopies = 2;

double Best(const std::vector<double>& times) {
    return *std::min_element(times.begin(), times.end());
}

double TimeOf(const std::function<void()>& work) {
    const bench::Stopwatch watch;
    work();
    return watch.Milliseconds();
}

/// Builds and copies in turn, each into the memory that the one before gave back. The best time of
/// each counts: others tell of what else the machine did. `reading`: milliseconds of a plain pass
/// over what is ticked, where that is long; it counts with the copy.
template <typename Groups>
void MeasureBuilding(const QString& name, const std::function<void(Groups&)>& build,
                     const std::function<qint64(const Groups&)>& countLeaves, double reading,
                     bench::Report& report) {
    std::vector<double> builds;
    std::vector<double> copies;
    Groups result;
    build(result);
    for (int i = 0; i < kRepetitions; ++i) {
        Groups built;
        builds.push_back(TimeOf([&] { build(built); }));
        built = {};
        Groups copy;
        copies.push_back(TimeOf([&] { copy = result; }));
    }
    report.AddFigure(name + u": leaves"_s, double(countLeaves(result)), QString());
    report.AddFigure(name, Best(builds), u"ms"_s);
    report.AddFigure(name + u": plain copy"_s, Best(copies), u"ms"_s);
    if (reading > 0) {
        report.AddFigure(name + u": plain pass over what is ticked"_s, reading, u"ms"_s);
    }
    report.AddGoal(name + u": ratio"_s, Best(builds) / (Best(copies) + reading), u"x"_s, kCopies);
}

qint64 PicLeaves(const std::vector<PicMarkGroup>& groups) {
    qint64 leaves = 0;
    for (const PicMarkGroup& group : groups) {
        for (const KX_DATA::PicMarkItem& item : group.items) {
            leaves += qint64(item.leaves.size());
        }
    }
    return leaves;
}

qint64 IssueLeaves(const std::vector<IssueMarkGroup>& groups) {
    return qint64(groups.size());
}

void MeasurePicMarks(const QString& name, const ShownPicMarks& ticked, bench::Report& report,
                     double reading = 0) {
    MeasureBuilding<std::vector<PicMarkGroup>>(
        u"BuildPicMarks, "_s + name,
        [&](auto& built) { CKXVeskPicDataImpl::Instance().BuildPicMarks(ticked, built); },
        PicLeaves, reading, report);
}

void MeasureIssueMarks(const QString& name, const ShownIssueMarks& ticked, bench::Report& report) {
    MeasureBuilding<std::vector<IssueMarkGroup>>(
        u"BuildIssueMarks, "_s + name,
        [&](auto& built) { CKXVeskPicDataImpl::Instance().BuildIssueMarks(ticked, built); },
        IssueLeaves, 0, report);
}

/// Reading the names of all ticked photos once, comparing each with the one before; the least that
/// counting them can cost.
double PassOver(const ShownPicMarks& ticked) {
    std::vector<double> times;
    qint64 repeated = 0;
    for (int i = 0; i < kRepetitions; ++i) {
        times.push_back(TimeOf([&] {
            for (const auto& [floor, groups] : ticked) {
                for (const auto& [group, marks] : groups) {
                    for (const auto& [markId, photos] : marks) {
                        for (size_t at = 1; at < photos.size(); ++at) {
                            repeated += photos[at].itemName == photos[at - 1].itemName ? 1 : 0;
                        }
                    }
                }
            }
        }));
    }
    return repeated > 0 ? Best(times) : 0;
}

/// Every photo of the tree as a record, under its floor and mark.
ShownPicMarks EveryPhoto(const std::vector<PicMarkGroup>& groups) {
    ShownPicMarks ticked;
    for (const PicMarkGroup& group : groups) {
        for (const KX_DATA::PicMarkItem& item : group.items) {
            for (const KX_DATA::PicMarkLeaf& leaf : item.leaves) {
                auto& records = ticked[group.name][QString()][leaf.markId];
                records.insert(records.end(), size_t(leaf.count), {item.itemName, 1});
            }
        }
    }
    return ticked;
}

void MeasurePhotos(bench::Report& report) {
    CKXVeskPicDataImpl& data = CKXVeskPicDataImpl::Instance();
    KX_DATA::MarkFilterArg all;
    std::vector<KX_DATA::PicFilterEntry> entries;
    data.GetPicFilterData(0, 0, 0, all, entries);
    ShownPicMarks everything;
    ShownPicMarks everyMark;
    ShownPicMarks tenthOfMarks;
    ShownPicMarks tenthOfFloors;
    for (size_t floor = 0; floor < entries.size(); ++floor) {
        const std::string name = toolkit::ToGbk(entries[floor].name);
        everything[name];
        if (floor % kTenth == 0) {
            tenthOfFloors[name];
        }
        for (size_t mark = 0; mark < entries[floor].values.size(); ++mark) {
            const qint32 id = entries[floor].values[mark].first;
            everyMark[name][QString()][id];
            if ((floor + mark) % kTenth == 0) {
                tenthOfMarks[name][QString()][id];
            }
        }
    }
    MeasurePicMarks(u"all ticked"_s, everything, report);
    MeasurePicMarks(u"all marks ticked one by one"_s, everyMark, report);
    MeasurePicMarks(u"a tenth of the marks"_s, tenthOfMarks, report);
    MeasurePicMarks(u"a tenth of the floors"_s, tenthOfFloors, report);
    std::vector<PicMarkGroup> whole;
    data.BuildPicMarks(everything, whole);
    const ShownPicMarks records = EveryPhoto(whole);
    MeasurePicMarks(u"every photo as a record"_s, records, report, PassOver(records));
}

void MeasureIssues(host::HostSession& session, bench::Report& report) {
    KX_DATA::MarkFilterArg all;
    std::vector<KX_DATA::PicFilterEntry> entries;
    CKXVeskPicDataImpl::Instance().GetIssueFilterData(0, 0, 0, all, entries);
    site::PanelFilter filter;
    for (const site::ProjectEntry& project : session.OpenProjects()) {
        filter.ppids.push_back(project.ppid);
    }
    std::map<QString, qint32> byKey;
    for (const site::PanelIssueFloor& floor : session.Site().PanelCounts().Issues(filter)) {
        for (const site::PanelIssue& issue : floor.issues) {
            byKey[issue.questionId] = issue.markId;
        }
    }
    const ShownIssueMarks everything(byKey.begin(), byKey.end());
    ShownIssueMarks tenth;
    for (int at = 0; const auto& [key, markId] : everything) {
        if (at++ % kTenth == 0) {
            tenth.emplace_hint(tenth.end(), key, markId);
        }
    }
    MeasureIssueMarks(u"all ticked"_s, everything, report);
    MeasureIssueMarks(u"a tenth"_s, tenth, report);
}

int Measure(bench::WatchedApplication& app, const QCommandLineParser& options) {
    bench::Report report;
    bench::StartTracing();
    host::HostSession session;
    const host::Serving serving(session);
    if (!bench::OpenFolder(session, options)) {
        return 1;
    }
    const auto worksets = session.Site().Catalogue().Worksets();
    if (worksets.empty() || !session.OpenWorkset(worksets.front().id)) {
        return 1;
    }
    if (!options.isSet(u"no-panel"_s) && !bench::MeasurePanel(app, session, report)) {
        return 1;
    }
    MeasurePhotos(report);
    MeasureIssues(session, report);
    CKXVeskPictureImpl::ReleaseInstance();
    CKXVeskPicDataImpl::ReleaseInstance();
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    bench::WatchedApplication app(argc, argv);
    toolkit::ApplyLook(app);
    QCommandLineParser options;
    options.addHelpOption();
    bench::AddFolderOptions(options);
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"marks.json"_s});
    options.addOption(QCommandLineOption(u"no-panel"_s, u"Only the flags of the view."_s));
    options.process(app);
    return options.isSet(u"fill"_s) ? bench::FillFolder(options) : Measure(app, options);
}
