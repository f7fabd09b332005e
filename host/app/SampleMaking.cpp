#include "host/app/SampleMaking.h"

#include "host/app/Platform.h"
#include "host/session/HostSession.h"
#include "host/ui/ProgressWindow.h"
#include "sample/SampleSite.h"

#include <QElapsedTimer>

#include <cstdio>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLineEveryMs = 2000;

/// For a start from a terminal without a display: a line now and then.
bool PrintProgress(QElapsedTimer& sinceLine, int done, int total, const QString& what) {
    if (sinceLine.elapsed() < kLineEveryMs) {
        return true;
    }
    sinceLine.restart();
    std::printf("正在生成示例工程：%s（%d / %d）\n", qUtf8Printable(what), done, total);
    std::fflush(stdout);
    return true;
}

bool CreateWithLines(site::ISite& site, sample::SampleSize size, QString& error) {
    QElapsedTimer sinceLine;
    sinceLine.start();
    return sample::CreateSampleSite(
        site, size,
        [&](int done, int total, const QString& what) {
            return PrintProgress(sinceLine, done, total, what);
        },
        error);
}

bool CreateWithWindow(site::ISite& site, sample::SampleSize size, QString& error) {
    ProgressWindow window(nullptr, u"首次启动：正在生成示例工程"_s,
                          ProgressWindow::Cancel::Possible);
    window.Begin();
    const bool isMade = sample::CreateSampleSite(
        site, size,
        [&](int done, int total, const QString& what) {
            window.SetText(u"数据文件夹还没有工程，正在生成示例工程。\n"_s + what);
            window.Report(done, total);
            window.LetThrough();
            return !window.IsCancelled();
        },
        error);
    window.End();
    return isMade;
}

} // namespace

StartResult MakeSample(HostSession& session, const CommandLine& line) {
    QString error;
    const sample::SampleSize size = line.sample.value_or(sample::SampleSize::Full);
    const bool isSeen = line.isWatched || !IsHeadless();
    const bool isMade = isSeen ? CreateWithWindow(session.Site(), size, error)
                               : CreateWithLines(session.Site(), size, error);
    return {isMade, error};
}

} // namespace host
