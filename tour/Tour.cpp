#include "tour/Tour.h"

#include "host/app/Program.h"
#include "tour/TourRunner.h"
#include "tour/TourScript.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
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
    for (int number = 1; number <= kImports; ++number) {
        QImage picture(640, 480, QImage::Format_RGB32);
        picture.fill(QColor::fromHsv((number - 1) * 360 / kImports, 90, 210));
        const QString name = u"巡检_%1.jpg"_s.arg(number, 2, 10, QChar(u'0'));
        if (picture.save(QDir(places.photoFolder).filePath(name))) {
            ++places.photoCount;
        }
    }
    QFile note(QDir(places.photoFolder).filePath(u"说明.jpg"_s));
    if (note.open(QIODevice::WriteOnly)) {
        note.write("not a picture\n");
    }
    return places;
}

/// At another scale a look at the windows with most in them is enough.
std::vector<TourStep> WriteSteps(const TourWords& words, const TourPlaces& places) {
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
    walked.sample = sample::SampleSize::Small;
    walked.isWatched = true;
    TourPlaces places = MakePlaces(ownFolder.path(), words.folder);
    places.dataFolder = walked.dataFolder;
    TourRunner runner(WriteSteps(words, places), {words.folder});
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

/// The screen's scale is fixed for a process.
int WalkScaled(const TourWords& words) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {u"--tour"_s, QDir(words.folder).filePath(u"x2"_s), u"--tour-scale"_s, u"2"_s});
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit) {
        return Complain(u"放大 2 倍的走查没有正常结束"_s);
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
    if (code == host::kExitDone && words.scale == 1) {
        code = WalkScaled(words);
    }
    if (code == host::kExitDone) {
        std::printf("走查通过，用时 %.1f 秒，图片在 %s\n", double(sinceStart.elapsed()) / 1000,
                    qUtf8Printable(QDir(words.folder).absolutePath()));
    }
    return code;
}

} // namespace tour
