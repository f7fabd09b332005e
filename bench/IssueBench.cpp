// Issues: one with very many pictures in its viewer, and pictures uploaded to a rectification.
#include "bench/IssueOpening.h"
#include "bench/PhotoSet.h"
#include "bench/Report.h"
#include "bench/StatementTrace.h"
#include "bench/UploadBench.h"
#include "bench/WatchedApplication.h"
#include "frame/KXVeskPictureImpl.h"
#include "toolkit/Look.h"

#include <QCommandLineParser>
#include <QDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    bench::StartTracing();
    bench::WatchedApplication app(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    bench::AddPhotoOptions(options);
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"issues.json"_s});
    options.process(app);
    toolkit::ApplyLook(app);
    QApplication::setQuitOnLastWindowClosed(false);
    // The viewer's way back to the console goes by the facade.
    static_cast<void>(CKXVeskPictureImpl::Instance());
    const QStringList photos = bench::PhonePhotos(options);
    bench::Report report;
    if (photos.isEmpty() || !bench::MeasureIssueOpening(app, photos, report) ||
        !bench::MeasureUpload(app, photos, report)) {
        return 1;
    }
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}
