#include "bench/DownloadBench.h"

#include "bench/Report.h"
#include "bench/Stopwatch.h"
#include "console/BatchDownload.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "host/ui/ExProgress.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRuns = 5;
const QString kUser = u"bench"_s;

/// Nobody is there to be asked: always no.
class NoPrompts final : public toolkit::IPrompts {
public:
    NoPrompts() : m_before(toolkit::SetPrompts(this)) {}
    ~NoPrompts() override { toolkit::SetPrompts(m_before); }

    void ShowMessage(toolkit::WindowId, const QString& text) override {
        QTextStream(stderr) << text << Qt::endl;
    }
    bool AskOkCancel(toolkit::WindowId, const QString&) override { return false; }
    bool AskYesNo(toolkit::WindowId, const QString&) override { return false; }
    QString AskFolder(toolkit::WindowId, const QString&) override { return {}; }
    QString AskSaveFile(const toolkit::SaveFileRequest&) override { return {}; }
    QStringList AskOpenFiles(const toolkit::OpenFilesRequest&) override { return {}; }
    void OpenFolder(const QString&) override {}
    void RevealFile(const QString&) override {}

private:
    toolkit::IPrompts* m_before;
};

/// A site with the pictures as its photos, opened; rows as the console would have them.
std::vector<BatchRow> FileAll(host::HostSession& session, const QStringList& pictures,
                              const QString& cache) {
    site::SiteWriter writer(support::FolderOf(session));
    const qint32 ppid = writer.AddProject(u"测速"_s);
    writer.AddUser(kUser, {});
    std::vector<qint32> ids;
    for (const QString& picture : pictures) {
        site::NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = QFileInfo(picture).fileName();
        photo.uploader = kUser;
        photo.uploadTime = 1;
        ids.push_back(writer.FilePhoto(photo, {picture, {}}));
    }
    if (!session.SignIn(kUser) || !session.OpenProject(ppid)) {
        return {};
    }
    std::vector<KX_DATA::PicFileEntry> files;
    GetVeskPicMng()->GetPicFiles(ids, files);
    std::vector<BatchRow> rows;
    for (const KX_DATA::PicFileEntry& file : files) {
        rows.push_back(
            {true,
             {file.picUuid, file.picUuid + u".jpg"_s, cache + u'/' + file.picUuid + u".jpg"_s}});
    }
    return rows;
}

void Empty(const QString& folder) {
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
}

double PlainCopy(const QStringList& pictures, const QString& folder) {
    Empty(folder);
    const Stopwatch timer;
    for (const QString& picture : pictures) {
        QFile::copy(picture, folder + u'/' + QFileInfo(picture).fileName());
    }
    return timer.Milliseconds();
}

/// What comes out of the store is checked on its way.
double Checksums(const QStringList& pictures) {
    const Stopwatch timer;
    for (const QString& picture : pictures) {
        QFile file(picture);
        QCryptographicHash hash(QCryptographicHash::Md5);
        if (file.open(QIODevice::ReadOnly)) {
            hash.addData(&file);
        }
        static_cast<void>(hash.result());
    }
    return timer.Milliseconds();
}

double Download(const std::vector<BatchRow>& rows, const QString& folder) {
    Empty(folder);
    const Stopwatch timer;
    DownloadRows(rows, folder, toolkit::MainWindow());
    const double time = timer.Milliseconds();
    const bool whole = QDir(folder).entryList(QDir::Files).size() == qsizetype(rows.size());
    return whole ? time : -1;
}

} // namespace

void MeasureDownload(const QStringList& pictures, Report& report) {
    // Beside the photographs: the same disk for all copies.
    const QTemporaryDir place(QFileInfo(pictures.front()).path() + u"/download-XXXXXX"_s);
    const NoPrompts prompts;
    host::HostSession session;
    host::Serving serving(session);
    if (session.Open(place.filePath(u"site"_s))) {
        return;
    }
    host::ExProgress progress;
    serving.Around().progress = &progress;
    const QString cache = place.filePath(u"cache"_s);
    const std::vector<BatchRow> rows = FileAll(session, pictures, cache);
    std::vector<double> plain;
    std::vector<double> cold;
    std::vector<double> warm;
    std::vector<double> checksums;
    for (int i = 0; i < kRuns; ++i) {
        plain.push_back(PlainCopy(pictures, place.filePath(u"plain"_s)));
        checksums.push_back(Checksums(pictures));
        Empty(cache);
        cold.push_back(Download(rows, place.filePath(u"cold"_s)));
        warm.push_back(Download(rows, place.filePath(u"warm"_s)));
    }
    serving.TakeBack();
    session.Close();
    report.AddFigure(u"plain copy of 30 of 24 MP"_s, Median(plain), u"ms"_s);
    report.AddFigure(u"batch download, nothing in the cache"_s, Median(cold), u"ms"_s);
    // The store's file to the cache, checked, and from there to the folder.
    report.AddFigure(u"batch download, nothing in the cache, ratio to two copies and checksums"_s,
                     Median(cold) / (2 * Median(plain) + Median(checksums)), u"times"_s);
    report.AddFigure(u"batch download, nothing in the cache, ratio"_s, Median(cold) / Median(plain),
                     u"times"_s);
    report.AddFigure(u"batch download, all in the cache"_s, Median(warm), u"ms"_s);
    report.AddFigure(u"batch download, all in the cache, ratio"_s, Median(warm) / Median(plain),
                     u"times"_s);
}

} // namespace bench
