// The console on a site of a million photos: the time from the search to painted rows.
#include "bench/BareGrid.h"
#include "bench/BulkFolder.h"
#include "bench/ConsoleDriver.h"
#include "bench/PeakMemory.h"
#include "bench/Report.h"
#include "bench/StartBench.h"
#include "bench/StatementTrace.h"
#include "console/ColumnTable.h"
#include "console/SortKeys.h"
#include "console/VeskPicMngDlg.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>

#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

using bench::CaseResult;
using bench::ConsoleDriver;
using bench::FilterCase;
using bench::FilterKind;

namespace {

constexpr int kRepetitions = 3;
constexpr int kDeepPage = 1000;

struct ListCase {
    QString name;
    int kind;
};

const std::vector<ListCase>& Lists() {
    static const std::vector<ListCase> lists = {
        {u"BIM photos"_s, 1}, {u"drawing photos"_s, 2}, {u"issues"_s, 3}};
    return lists;
}

/// Common, rare and absent ones of several lengths.
std::vector<std::pair<QString, QString>> Keywords() {
    return {{u"1 character"_s, u"墙"_s},          {u"2 characters"_s, u"裂缝"_s},
            {u"across words"_s, u"缝渗"_s},       {u"4 characters"_s, u"外墙裂缝"_s},
            {u"Latin fragment"_s, u"MG_00012"_s}, {u"absent"_s, u"龘龘"_s}};
}

std::vector<FilterCase> Filters(int kind) {
    std::vector<FilterCase> filters = {{u"none"_s, FilterKind::None, {}},
                                       {u"mark"_s, FilterKind::Mark, {}},
                                       {u"state"_s, FilterKind::State, {}},
                                       {u"date"_s, FilterKind::Date, {}}};
    if (kind != 3) {
        filters.push_back({u"label"_s, FilterKind::Label, {}});
    }
    for (const auto& [name, keyword] : Keywords()) {
        filters.push_back({u"keyword "_s + name, FilterKind::Keyword, keyword});
    }
    return filters;
}

/// One sort in one direction, by the column that a person would click.
struct SortCase {
    int column;
    QString order;
};

std::vector<SortCase> Sorts(int kind) {
    std::vector<SortCase> sorts;
    const std::vector<ColumnSpec>& columns = ConsoleColumns(kind);
    for (int column = 0; column < int(columns.size()); ++column) {
        if (columns[size_t(column)].sortable && column != kProjectColumn) {
            for (const QString& order : {u"asc"_s, u"desc"_s}) {
                sorts.push_back({column, order});
            }
        }
    }
    return sorts;
}

CaseResult Measure(ConsoleDriver& driver, int page) {
    CaseResult result;
    static_cast<void>(bench::TakeTrace());
    result.first = driver.FetchAndPaint(page);
    result.rawFirst = bench::ReplayMilliseconds(bench::TakeTrace());
    std::vector<double> again;
    std::vector<double> rawAgain;
    for (int i = 0; i < kRepetitions; ++i) {
        again.push_back(driver.FetchAndPaint(page));
        rawAgain.push_back(bench::ReplayMilliseconds(bench::TakeTrace()));
    }
    result.again = bench::Median(again);
    result.rawAgain = bench::Median(rawAgain);
    result.hits = driver.Hits();
    return result;
}

void MeasurePages(ConsoleDriver& driver, const CaseResult& description, bench::Report& report) {
    const auto add = [&](const QString& page, int number) {
        CaseResult result = Measure(driver, number);
        result.list = description.list;
        result.sort = description.sort;
        result.filter = description.filter;
        result.page = page;
        report.Add(result);
    };
    add(u"first"_s, 1);
    const int last = driver.PageCount();
    if (last > kDeepPage) {
        add(u"1000th"_s, kDeepPage);
    }
    if (last > 1) {
        add(u"last"_s, last);
    }
}

void MeasureList(const ListCase& list, bench::Report& report) {
    ConsoleDriver driver(list.kind);
    for (const FilterCase& filter : Filters(list.kind)) {
        driver.SetFilter(filter);
        for (const SortCase& sort : Sorts(list.kind)) {
            driver.SortBy(sort.column, sort.order);
            CaseResult description;
            description.list = list.name;
            description.filter = filter.name;
            description.sort = SortField(list.kind, sort.column) + u' ' + sort.order;
            MeasurePages(driver, description, report);
        }
        QTextStream(stderr) << list.name << u", "_s << filter.name << u": "_s << driver.Hits()
                            << u" hits"_s << Qt::endl;
    }
}

void MeasureClientStart(const QString& dataFolder, bench::Report& report) {
    const QString folder = dataFolder + u"-sample"_s;
    const bench::StartTimes times = bench::MeasureStart(folder);
    report.AddFigure(u"start to painted main window, sample site"_s, times.mainWindow, u"ms"_s);
    report.AddFigure(u"start to painted console, sample site"_s, times.console, u"ms"_s);
}

int MeasureConsole(const QCommandLineParser& options) {
    bench::Report report;
    MeasureClientStart(options.value(u"data"_s), report);
    bench::StartTracing();
    host::HostSession session;
    const host::Serving serving(session);
    if (!bench::OpenFolder(session, options)) {
        return 1;
    }
    bench::BareGrid bare;
    std::vector<double> paints;
    for (int i = 0; i < 21; ++i) {
        paints.push_back(bare.ReplaceAndPaint());
    }
    report.SetBarePaint(bench::Median(paints));
    for (const ListCase& list : Lists()) {
        MeasureList(list, report);
    }
    report.PrintTable();
    report.AddFigure(u"peak memory"_s, bench::PeakMegabytes(), u"MB"_s);
    CVeskPicMngDlg::ReleaseInstance();
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}

void AddOptions(QCommandLineParser& options) {
    options.addHelpOption();
    bench::AddFolderOptions(options);
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"bench.json"_s});
    options.addOption({u"start-probe"_s, u"Only open the client there."_s, u"folder"_s});
    options.addOption({u"spawned"_s, u"When the probe was started."_s, u"ms"_s, u"0"_s});
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    toolkit::ApplyLook(app);
    QCommandLineParser options;
    AddOptions(options);
    options.process(app);
    if (options.isSet(u"start-probe"_s)) {
        return bench::RunStartProbe(options.value(u"start-probe"_s),
                                    options.value(u"spawned"_s).toLongLong());
    }
    return options.isSet(u"fill"_s) ? bench::FillFolder(options) : MeasureConsole(options);
}
