// The console's list of 100,000 photos as a workbook, beside the library's own writing of the same
// cells: rows alone, then out of a site with its reading; memory.
#include "bench/PeakMemory.h"
#include "bench/Report.h"
#include "bench/Stopwatch.h"
#include "host/sheet/ListReader.h"
#include "host/sheet/SheetJob.h"
#include "sheets/CsvFile.h"
#include "sheets/SheetText.h"
#include "sheets/XlsxFile.h"
#include "site/OpenSite.h"
#include "tests/bulk/BulkSite.h"
#include "tests/support/EngineFolder.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTextStream>

#include <xlsxwriter.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 100'000;
constexpr int kFewRows = 10'000;
constexpr int kRuns = 7;
constexpr double kMostRatio = 1.5;
constexpr double kMostGrowthMb = 16; ///< of ninety thousand rows more

site::ListFilter WholeList() {
    site::ListFilter filter;
    filter.ppids = {1, 2, 3, 4, 5};
    return filter;
}

host::ListQuestion WholeQuestion() {
    return {site::ListKind::BimPhotos, WholeList(), {u"last_modifytime"_s, true}};
}

/// Rows of a portion as the library takes them.
struct BareCell {
    bool isText = false;
    double number = 0;
    bool isTime = false;
    QByteArray utf8;
};
using BareRow = std::vector<BareCell>;

std::vector<BareRow> BareRowsOf(const std::vector<sheets::SheetRow>& rows) {
    std::vector<BareRow> bare;
    for (const sheets::SheetRow& row : rows) {
        BareRow cells;
        for (const sheets::SheetCell& cell : row) {
            BareCell made;
            if (const auto* text = std::get_if<QString>(&cell)) {
                made.isText = true;
                (void)sheets::WriteCellText(*text, made.utf8);
            } else if (const auto* number = std::get_if<qint64>(&cell)) {
                made.number = double(*number);
            } else if (const auto* time = std::get_if<sheets::SheetTime>(&cell)) {
                made.isTime = true;
                made.number = 25569 + double(time->wallSeconds) / 86'400;
            }
            cells.push_back(made);
        }
        bare.push_back(std::move(cells));
    }
    return bare;
}

/// What a person would write with the library alone, in its mode of constant memory.
double WriteBare(const QString& path, const std::vector<BareRow>& rows, int count) {
    const bench::Stopwatch watch;
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    lxw_workbook* book = workbook_new_opt(path.toLocal8Bit().constData(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, "list");
    lxw_format* text = workbook_add_format(book);
    format_set_text_wrap(text);
    lxw_format* time = workbook_add_format(book);
    format_set_num_format(time, "yyyy-mm-dd hh:mm");
    for (int at = 0; at < count; ++at) {
        lxw_col_t column = 0;
        for (const BareCell& cell : rows[size_t(at) % rows.size()]) {
            if (!cell.isText) {
                worksheet_write_number(sheet, lxw_row_t(at), column, cell.number,
                                       cell.isTime ? time : nullptr);
            } else if (!cell.utf8.isEmpty()) {
                worksheet_write_string(sheet, lxw_row_t(at), column, cell.utf8.constData(), text);
            }
            ++column;
        }
    }
    workbook_close(book);
    return watch.Milliseconds();
}

double WriteOurs(const QString& path, const std::vector<sheets::SheetRow>& rows, int count) {
    const bench::Stopwatch watch;
    const std::atomic<bool> goesOn = false;
    sheets::XlsxFile file(path, {});
    file.Begin(host::LayoutOf(site::ListKind::BimPhotos, false));
    for (int at = 0; at < count; ++at) {
        file.Add(rows[size_t(at) % rows.size()]);
    }
    (void)file.End(goesOn);
    return watch.Milliseconds();
}

/// The whole of it, as the client does it; the longest event of this thread, too.
struct ListTimes {
    double whole = 0;
    double longestRead = 0;
};

/// Measures how long each portion holds the interface thread.
class WatchedReader final : public sheets::IRowSource {
public:
    WatchedReader(site::ISite& site, double& longest)
        : m_reader(site, WholeQuestion(), false), m_longest(longest) {}
    std::vector<sheets::SheetRow> Next() override {
        const bench::Stopwatch watch;
        std::vector<sheets::SheetRow> rows = m_reader.Next();
        m_longest = std::max(m_longest, watch.Milliseconds());
        return rows;
    }
    bool AtEnd() const override { return m_reader.AtEnd(); }
    qint64 Total() const override { return m_reader.Total(); }

private:
    host::ListReader m_reader;
    double& m_longest;
};

ListTimes WriteList(std::unique_ptr<sheets::ISheetFile> file, site::ISite& site) {
    const bench::Stopwatch watch;
    ListTimes times;
    host::SheetJob job;
    QEventLoop loop;
    QObject::connect(&job, &host::SheetJob::Finished, &loop, [&](const host::SheetResult& result) {
        if (result.notes.rows != kRows) {
            QTextStream(stderr) << u"not all rows: "_s << result.notes.rows << result.fault
                                << Qt::endl;
        }
        loop.quit();
    });
    job.Start(std::make_unique<WatchedReader>(site, times.longestRead), std::move(file),
              host::LayoutOf(site::ListKind::BimPhotos, false));
    loop.exec();
    times.whole = watch.Milliseconds();
    return times;
}

void PutTimes(bench::Report& report, const QString& name, const std::vector<double>& times) {
    const std::vector<double> later(times.begin() + 1, times.end());
    report.AddFigure(name + u", first"_s, times.front(), u"ms"_s);
    report.AddFigure(name + u", median"_s, bench::Median(later), u"ms"_s);
    report.AddFigure(name + u", nine in ten"_s, bench::NinthDecile(later), u"ms"_s);
    report.AddFigure(name + u", worst"_s, *std::max_element(later.begin(), later.end()), u"ms"_s);
}

/// Before anything else has taken memory: a peak never falls, so few rows come first.
void MeasureMemory(const QString& path, bench::Report& report) {
    KX_DATA::BimPicRow photo;
    photo.fileName = u"现场照片 100.jpg"_s;
    photo.description = u"地下室外墙施工缝处有渗漏"_s;
    photo.uploaderName = u"张伟"_s;
    photo.uploadStamp = 1'700'000'000;
    const std::vector<sheets::SheetRow> rows(1, host::RowOf(photo, 1, {}, false));
    WriteOurs(path, rows, kFewRows);
    const double few = bench::PeakMegabytes();
    WriteOurs(path, rows, kRows);
    const double many = bench::PeakMegabytes();
    report.AddFigure(u"peak memory, %1 rows"_s.arg(kFewRows), few, u"MB"_s);
    report.AddFigure(u"peak memory, %1 rows"_s.arg(kRows), many, u"MB"_s);
    report.AddGoal(u"more for %1 rows than for %2"_s.arg(kRows).arg(kFewRows), many - few, u"MB"_s,
                   kMostGrowthMb);
}

void MeasureSpreadsheets(site::ISite& site, const QTemporaryDir& folder, bench::Report& report) {
    host::ListReader reader(site, WholeQuestion(), false);
    const std::vector<sheets::SheetRow> rows = reader.Next();
    const std::vector<BareRow> bareRows = BareRowsOf(rows);
    const QString path = folder.filePath(u"list.xlsx"_s);
    std::vector<double> bare;
    std::vector<double> ours;
    std::vector<double> whole;
    std::vector<double> csv;
    std::vector<double> reads;
    for (int run = 0; run < kRuns; ++run) {
        bare.push_back(WriteBare(path, bareRows, kRows));
        ours.push_back(WriteOurs(path, rows, kRows));
        const ListTimes times =
            WriteList(std::make_unique<sheets::XlsxFile>(path, sheets::XlsxOptions()), site);
        whole.push_back(times.whole);
        reads.push_back(times.longestRead);
        csv.push_back(
            WriteList(std::make_unique<sheets::CsvFile>(folder.filePath(u"list.csv"_s)), site)
                .whole);
    }
    PutTimes(report, u"%1 rows by the library alone"_s.arg(kRows), bare);
    PutTimes(report, u"the same cells by ours"_s, ours);
    PutTimes(report, u"the list out of the site, workbook"_s, whole);
    PutTimes(report, u"the list out of the site, CSV"_s, csv);
    PutTimes(report, u"the interface held for a portion"_s, reads);
    report.AddGoal(u"ours beside the library alone, ratio"_s,
                   bench::Median(ours) / bench::Median(bare), u"x"_s, kMostRatio);
    report.AddFigure(u"the list out of the site beside the library alone, ratio"_s,
                     bench::Median(whole) / bench::Median(bare), u"x"_s);
    report.AddFigure(u"peak memory after all"_s, bench::PeakMegabytes(), u"MB"_s);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"bench.json"_s});
    options.process(app);
    const QTemporaryDir folder;
    bench::Report report;
    MeasureMemory(folder.filePath(u"list.xlsx"_s), report);
    const site::OpenedSite opened = site::OpenSite(folder.filePath(u"site"_s));
    if (opened.fault) {
        QTextStream(stderr) << u"the data folder can't be used"_s << Qt::endl;
        return 1;
    }
    bulk::BulkSize size;
    size.bimPhotos = kRows;
    bulk::FillBulkSite(support::FolderOf(*opened.site), size);
    MeasureSpreadsheets(*opened.site, folder, report);
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}
