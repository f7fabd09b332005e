// Drawings: a crowded checkpoint in its viewer, and a large sheet in the drawing view.
#include "bench/CheckpointBench.h"
#include "bench/LargeSheet.h"
#include "bench/PhotoSet.h"
#include "bench/Report.h"
#include "bench/SheetBench.h"
#include "bench/StatementTrace.h"
#include "bench/WatchedApplication.h"
#include "toolkit/Look.h"

#include <QCommandLineParser>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

bool MeasureCrowdedCheckpoint(bench::WatchedApplication& application,
                              const QCommandLineParser& options, bench::Report& report) {
    const QStringList photos = bench::PhonePhotos(options);
    return !photos.isEmpty() && bench::MeasureCheckpoint(application, photos, report);
}

bool MeasureLargeSheet(bench::WatchedApplication& application, bench::Report& report) {
    const QTemporaryDir folder;
    const QString sheet = folder.filePath(u"a0.pdf"_s);
    if (!bench::WriteLargeSheet(sheet)) {
        QTextStream(stderr) << u"the sheet can't be written"_s << Qt::endl;
        return false;
    }
    bench::MeasureSheet(application, sheet, report);
    return true;
}

int Measure(bench::WatchedApplication& application, const QCommandLineParser& options) {
    const bool all = !options.isSet(u"checkpoint"_s) && !options.isSet(u"sheet"_s);
    bench::Report report;
    if ((all || options.isSet(u"sheet"_s)) && !MeasureLargeSheet(application, report)) {
        return 1;
    }
    if ((all || options.isSet(u"checkpoint"_s)) &&
        !MeasureCrowdedCheckpoint(application, options, report)) {
        return 1;
    }
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    bench::StartTracing();
    bench::WatchedApplication app(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    bench::AddPhotoOptions(options);
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"drawings.json"_s});
    options.addOption(QCommandLineOption(u"checkpoint"_s, u"Only the viewer."_s));
    options.addOption(QCommandLineOption(u"sheet"_s, u"Only the drawing view."_s));
    options.addOption({u"sheet-memory"_s, u"Only walk over a sheet."_s, u"file"_s});
    bench::AddBareSheetOptions(options);
    options.process(app);
    if (options.isSet(u"bare-sheet"_s)) {
        return bench::RunBareSheet(options);
    }
    toolkit::ApplyLook(app);
    QApplication::setQuitOnLastWindowClosed(false);
    return options.isSet(u"sheet-memory"_s)
               ? bench::ProbeSheetMemory(app, options.value(u"sheet-memory"_s))
               : Measure(app, options);
}
