#include "tour/Tour.h"

#include "host/app/Program.h"
#include "tour/SitePhotos.h"
#include "tour/TourRunner.h"
#include "tour/TourScript.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

constexpr int kImports = 12;

int Complain(const QString& text) {
    std::fprintf(stderr, "走查失败：%s\n", qUtf8Printable(text));
    return host::kExitFault;
}

/// Pictures to import, and a file that is none.
TourPlaces MakePlaces(const QString& folder, const QString& pictures) {
    TourPlaces places;
    places.pictures = pictures;
    places.downloadFolder = QDir(folder).filePath(u"下载"_s);
    places.photoFolder = QDir(folder).filePath(u"现场照片"_s);
    QDir().mkpath(places.photoFolder);
    places.photoCount = WriteSitePhotos(places.photoFolder, kImports);
    QFile note(QDir(places.photoFolder).filePath(u"说明.jpg"_s));
    if (note.open(QIODevice::WriteOnly)) {
        note.write("not a picture\n");
    }
    return places;
}

std::vector<TourStep> WriteOwnSite(const TourPlaces& places) {
    TourScript script;
    WriteFirstStart(script);
    WriteSetup(script);
    WriteUnplacedImport(script, places);
    WriteInbox(script, places);
    WriteStatistics(script);
    WritePhotoFacts(script);
    WriteEnd(script);
    return script.Take();
}

/// At another scale a look at the windows with most in them is enough.
std::vector<TourStep> WriteSampleSite(const TourWords& words, const TourPlaces& places) {
    TourScript script;
    WriteStart(script);
    WriteBimSearch(script);
    WriteEditor(script);
    WriteViewer(script, places);
    if (words.scale == 1) {
        WriteImport(script, places);
        WriteBimActions(script);
        WriteDownloads(script, places);
        WriteOtherConsoles(script);
        WriteMarks(script);
        WriteDrawingView(script);
        WriteIssueWindows(script, places);
        WriteRecordWindows(script);
        WriteHostWindows(script);
        WriteReminders(script, places);
    }
    WriteEnd(script);
    return script.Take();
}

int Walk(const TourWords& words) {
    QTemporaryDir ownFolder;
    host::CommandLine walked = words.client;
    if (walked.dataFolder.isEmpty()) {
        walked.dataFolder = ownFolder.filePath(u"data"_s);
    }
    if (words.walk == WalkKind::Sample) {
        walked.sample = sample::SampleSize::Small;
    }
    walked.isWatched = true;
    TourPlaces places = MakePlaces(ownFolder.path(), words.folder);
    places.dataFolder = walked.dataFolder;
    TourRunner runner(words.walk == WalkKind::OwnSite ? WriteOwnSite(places)
                                                      : WriteSampleSite(words, places),
                      {words.folder});
    QObject::connect(&runner, &TourRunner::Finished, &runner, [](const QString& failure) {
        if (!failure.isEmpty()) {
            QCoreApplication::exit(host::kExitFault);
        }
    });
    runner.Start();
    const int code = host::RunClient(walked);
    runner.RunToEnd();
    if (!runner.Failure().isEmpty()) {
        return Complain(runner.Failure());
    }
    return code == host::kExitDone ? host::kExitDone : Complain(u"客户端以 %1 结束"_s.arg(code));
}

/// A walk on another screen, in a folder of its own: the screen is fixed for a process.
int WalkElsewhere(const TourWords& words, const QString& name, const QStringList& options) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  QStringList{u"--tour"_s, QDir(words.folder).filePath(name)} + options);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit) {
        return Complain(u"走查 %1 没有正常结束"_s.arg(name));
    }
    return process.exitCode();
}

} // namespace

int RunTour(const TourWords& words) {
    if (!QDir().mkpath(words.folder)) {
        return Complain(u"无法创建文件夹 %1"_s.arg(words.folder));
    }
    QElapsedTimer sinceStart;
    sinceStart.start();
    int code = Walk(words);
    const std::vector<std::pair<QString, QStringList>> others{
        {u"x2"_s, {u"--tour-scale"_s, u"2"_s}},
        {u"own"_s, {u"--tour-walk"_s, u"own"_s}},
        {u"own-small-screen"_s, {u"--tour-walk"_s, u"own"_s, u"--tour-screen"_s, u"1366x768"_s}}};
    const TourWords plain;
    const bool isFirst =
        words.walk == plain.walk && words.scale == plain.scale && words.screen == plain.screen;
    for (std::size_t at = 0; isFirst && code == host::kExitDone && at < others.size(); ++at) {
        code = WalkElsewhere(words, others[at].first, others[at].second);
    }
    if (code == host::kExitDone) {
        std::printf("走查通过，用时 %.1f 秒，图片在 %s\n", double(sinceStart.elapsed()) / 1000,
                    qUtf8Printable(QDir(words.folder).absolutePath()));
    }
    return code;
}

} // namespace tour
