// A report of 200 photographs of 12 megapixels as a PDF, beside the bare decode and re-encode of
// the same pictures; its first page on the screen; memory and size.
#include "bench/PeakMemory.h"
#include "bench/PhotoSet.h"
#include "bench/Report.h"
#include "bench/Stopwatch.h"
#include "host/report/PdfReport.h"
#include "host/report/WebReport.h"
#include "host/report/WordReport.h"
#include "host/ui/report/ReportPreview.h"
#include "host/ui/report/ReportWindow.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPhotos = 200;
constexpr int kRuns = 5;
constexpr int kOpenings = 7;
constexpr int kRecordParagraphs = 6000; ///< some two hundred pages
constexpr double kMostRatio = 1.3;
constexpr double kMostMegabytes = 300;
constexpr double kMostFileMegabytes = 60;
constexpr double kMostFirstPageMs = 1000;
constexpr double kMegabyte = 1024 * 1024;

class NoStore final : public host::IReportStore {
public:
    host::ReportOptions Options() override { return {}; }
    void KeepOptions(const host::ReportOptions&) override {}
    host::ReportTemplate Template(qint32) override { return {}; }
    QString KeepTemplate(qint32, const host::ReportTemplate&) override { return {}; }
};

host::ReportContent ContentOf(const QStringList& files) {
    host::ReportContent content;
    content.project = u"城东示例工程"_s;
    content.kind = u"照片报告"_s;
    content.place = u"3层 2-B轴 质量"_s;
    host::ReportSection section;
    section.title = u"照片"_s;
    for (const QString& file : files) {
        host::ReportPhoto photo;
        photo.title = QFileInfo(file).fileName();
        photo.file = file;
        photo.facts = {{u"上传"_s, u"张三  2026-03-05 14:00"_s},
                       {u"描述"_s, u"地下室外墙施工缝处有渗漏，已通知班组处理。"_s}};
        section.photos.push_back(photo);
    }
    content.sections.push_back(section);
    return content;
}

/// As large as a report has it.
QSize PrintedSize(const QString& file) {
    const QSizeF room = host::GridOf({}).picture * (host::kPrintDpi / host::kReportDpi);
    return QImageReader(file).size().scaled(room.toSize(), Qt::KeepAspectRatio);
}

/// Nothing but Qt's own scaled decode and its writer, on as many threads as there are processors.
double BareReencode(const QStringList& files, const QTemporaryDir& folder) {
    std::atomic<qsizetype> next{0};
    const auto work = [&] {
        for (qsizetype at = next++; at < files.size(); at = next++) {
            QImageReader reader(files[at]);
            reader.setAutoTransform(true);
            reader.setScaledSize(PrintedSize(files[at]));
            QImageWriter writer(folder.filePath(u"bare%1.jpg"_s.arg(at)), "jpeg");
            writer.setQuality(host::kPrintQuality);
            writer.write(reader.read());
        }
    };
    const bench::Stopwatch watch;
    {
        std::vector<std::jthread> others;
        for (int other = 1; other < QThread::idealThreadCount(); ++other) {
            others.emplace_back(work);
        }
        work();
    }
    return watch.Milliseconds();
}

using Writer = void (*)(const host::ReportSheet&, host::PrintPictures&, host::ReportFile&,
                        const host::ReportSteps&);

double WriteReport(Writer writer, const host::ReportSheet& sheet, const QString& path) {
    const bench::Stopwatch watch;
    host::PrintPictures pictures(QThread::idealThreadCount());
    host::ReportFile file(path);
    writer(sheet, pictures, file, {});
    return watch.Milliseconds();
}

void PutTimes(bench::Report& report, const QString& name, const std::vector<double>& times) {
    const std::vector<double> later(times.begin() + 1, times.end());
    report.AddFigure(name + u", first"_s, times.front(), u"ms"_s);
    report.AddFigure(name + u", median"_s, bench::Median(later), u"ms"_s);
    report.AddFigure(name + u", nine in ten"_s, bench::NinthDecile(later), u"ms"_s);
    report.AddFigure(name + u", worst"_s, *std::max_element(later.begin(), later.end()), u"ms"_s);
}

void MeasureFiles(const QStringList& files, const QTemporaryDir& folder, bench::Report& report) {
    const host::ReportSheet sheet = host::SheetOf(ContentOf(files), {}, {});
    const QString path = folder.filePath(u"report.pdf"_s);
    std::vector<double> bare;
    std::vector<double> pdf;
    for (int run = 0; run < kRuns; ++run) {
        pdf.push_back(WriteReport(&host::WritePdf, sheet, path));
        if (run == 0) {
            // A peak never falls: before anything else has taken memory.
            report.AddGoal(u"peak memory"_s, bench::PeakMegabytes(), u"MB"_s, kMostMegabytes);
        }
        bare.push_back(BareReencode(files, folder));
    }
    PutTimes(report, u"%1 photographs as a PDF"_s.arg(kPhotos), pdf);
    PutTimes(report, u"the bare decode and re-encode"_s, bare);
    report.AddGoal(u"a PDF beside the bare, ratio"_s, bench::Median(pdf) / bench::Median(bare),
                   u"x"_s, kMostRatio);
    report.AddGoal(u"size of the file"_s, double(QFileInfo(path).size()) / kMegabyte, u"MB"_s,
                   kMostFileMegabytes);
    report.AddFigure(u"as a Word document, once"_s,
                     WriteReport(&host::WriteWord, sheet, folder.filePath(u"report.docx"_s)),
                     u"ms"_s);
    report.AddFigure(u"as a web page, once"_s,
                     WriteReport(&host::WriteWeb, sheet, folder.filePath(u"report.html"_s)),
                     u"ms"_s);
    report.AddFigure(u"peak memory after these"_s, bench::PeakMegabytes(), u"MB"_s);
}

struct Opening {
    double firstPage = 0; ///< until it stands there with its photographs
    double whole = 0;     ///< until all pages are known
    double longest = 0;   ///< event of the interface thread
};

Opening OpenWindow(const host::ReportContent& content) {
    NoStore store;
    Opening opening;
    const bench::Stopwatch watch;
    host::ReportWindow window(store);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.show();
    const bench::Stopwatch setting;
    window.SetContent(content);
    opening.longest = setting.CpuMilliseconds();
    const auto& preview = *window.findChild<host::ReportPreview*>();
    while (opening.firstPage == 0 || opening.whole == 0) {
        const bench::Stopwatch turn;
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        opening.longest = std::max(opening.longest, turn.CpuMilliseconds());
        if (opening.firstPage == 0 && preview.IsPainted()) {
            opening.firstPage = watch.Milliseconds();
        }
        if (opening.whole == 0 && preview.IsWhole()) {
            opening.whole = watch.Milliseconds();
        }
    }
    return opening;
}

void MeasureWindow(const QString& name, const host::ReportContent& content, bench::Report& report) {
    std::vector<double> firstPages;
    std::vector<double> wholes;
    std::vector<double> longest;
    for (int run = 0; run < kOpenings; ++run) {
        const Opening opening = OpenWindow(content);
        firstPages.push_back(opening.firstPage);
        wholes.push_back(opening.whole);
        longest.push_back(opening.longest);
    }
    PutTimes(report, name + u", first page"_s, firstPages);
    PutTimes(report, name + u", all pages known"_s, wholes);
    PutTimes(report, name + u", longest event"_s, longest);
    report.AddGoal(name + u", first page at worst"_s,
                   *std::max_element(firstPages.begin(), firstPages.end()), u"ms"_s,
                   kMostFirstPageMs);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    toolkit::ApplyLook(app);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"bench.json"_s});
    bench::AddPhotoOptions(options);
    options.process(app);
    const QStringList photos = bench::PhonePhotos(options);
    const QTemporaryDir folder;
    const QStringList files = bench::ManyNames(photos, kPhotos, folder.path());
    if (files.isEmpty()) {
        return 1;
    }
    bench::Report report;
    MeasureFiles(files, folder, report);
    host::ReportContent content = ContentOf(files);
    MeasureWindow(u"window of %1 photographs"_s.arg(kPhotos), content, report);
    QString html;
    for (int paragraph = 0; paragraph < kRecordParagraphs; ++paragraph) {
        html += u"<p>记录第%1段：混凝土强度合格，垂直度复核无误。</p>"_s.arg(paragraph);
    }
    content.record = host::ReportRecord{html, {}, {}};
    MeasureWindow(u"the same with a long record"_s, content, report);
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}
