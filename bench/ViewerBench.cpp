#include "bench/ViewerBench.h"

#include "bench/BareDecode.h"
#include "bench/GalleryDriver.h"
#include "bench/Report.h"
#include "bench/Stopwatch.h"
#include "console/VeskPicMngDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IKXView.h"
#include "services/IVeskPicMng.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "viewers/BimPicViewWrap.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kViewerOpenings = 9;
constexpr int kPhotosOfAPlace = 1000;
constexpr int kViewerSettleMs = 400;
constexpr qint32 kViewerMark = 1;
constexpr double kBareDecodes = 1.5;
constexpr double kUnnoticedMs = 100; ///< less than a person notices
const QString kViewerUser = u"bench"_s;

/// A view that shows every mark.
class ShowingView final : public KX_DATA::IKXView {
public:
    void GetPickedComponents(std::vector<KX_DATA::PickedComponent>&) override {}
    void SaveViewState(std::vector<qint32>&) override {}
    void RestoreViewState(const std::vector<qint32>&) override {}
    void SetVeskPicMarkers(const std::vector<KX_DATA::PicMarkGroup>&) override {}
    void SetTNIssueMarkers(const std::vector<KX_DATA::IssueMarkGroup>&) override {}
    bool LocatePicture(const QString&, qint32) override { return true; }
    bool LocateIssue(const QString&) override { return true; }
    void ShowComponentProperties(qint32, const QString&, const QString&) override {}
    qint32 GetViewTool() override { return 0; }
    void SetViewTool(qint32) override {}
    void BeginComponentPick() override {}
};

QByteArray SmallPicture() {
    QImage image(320, 240, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG");
    return bytes;
}

site::NewBimPhoto PhotoAt(const QString& positionKey, int number) {
    site::NewBimPhoto photo;
    photo.ppid = 1;
    photo.fileName = u"%1.jpg"_s.arg(number);
    photo.positionKey = positionKey;
    photo.markId = kViewerMark;
    photo.uploader = kViewerUser;
    photo.uploadTime = number + 1;
    return photo;
}

struct ViewerSite {
    QString single;  ///< position key of the large photo
    QString crowded; ///< of the thousand
};

/// One place with the large photo, the newest of all, and one with a thousand small ones.
ViewerSite FileSite(host::HostSession& session, const QString& photo) {
    site::SiteWriter writer(support::FolderOf(session));
    writer.BeginBatch();
    writer.AddProject(u"测速"_s);
    writer.AddUser(kViewerUser, {});
    writer.AddMark(kViewerMark, u"质量"_s, 0x00C0FF);
    const ViewerSite site{writer.AddPosition({1, u"1"_s, u"1"_s, u"A"_s, {}, true}),
                          writer.AddPosition({1, u"1"_s, u"2"_s, u"A"_s, {}, true})};
    const QByteArray small = SmallPicture();
    for (int i = 0; i < kPhotosOfAPlace; ++i) {
        writer.FilePhoto(PhotoAt(site.crowded, i), {{}, small});
    }
    writer.FilePhoto(PhotoAt(site.single, kPhotosOfAPlace), {photo, {}});
    writer.CommitBatch();
    return session.SignIn(kViewerUser) && session.OpenProject(1) ? site : ViewerSite();
}

/// Puts the place's pictures into the cache; gives the path of the first.
QString FillCache(const QString& positionKey, const QString& photo) {
    std::vector<KX_DATA::PicFileEntry> files;
    GetVeskPicMng()->GetPicFilesByPosition(1, positionKey, kViewerMark, files);
    QString folder;
    GetKXPathMng()->GetPicFolder(folder, 1, u"测速"_s);
    for (const KX_DATA::PicFileEntry& file : files) {
        QFile::copy(photo, folder + file.picUuid + u".jpg"_s);
    }
    return files.empty() ? QString() : folder + files.front().picUuid + u".jpg"_s;
}

/// Milliseconds until the current picture is on the screen.
double UntilPainted(WatchedApplication& application, const std::function<void()>& open) {
    CBimPicViewDlg& pane = CBimPicViewWrap::Instance().Pane();
    double painted = -1;
    const Stopwatch timer;
    application.onPainted = [&] {
        if (painted < 0 && pane.ShowsPicture()) {
            painted = timer.Milliseconds();
        }
    };
    open();
    application.watched = pane.Widget();
    while (painted < 0 && pane.HasWindow()) {
        QCoreApplication::processEvents();
    }
    application.onPainted = {};
    application.watched = nullptr;
    return painted;
}

void MeasureRow(WatchedApplication& application, const QString& picture, Report& report) {
    CVeskPicMngDlg& console = CVeskPicMngDlg::Instance();
    std::vector<double> ours;
    std::vector<double> bare;
    for (int i = 0; i < kViewerOpenings; ++i) {
        CKXVeskPictureImpl::Instance().ShowPicMng(kModeBim);
        Settle(kViewerSettleMs);
        CVeskPicMngGrid& grid = *console.Grid();
        ours.push_back(
            UntilPainted(application, [&] { grid.Manager()->LocateRow(*grid.GetRow(0)); }));
        CBimPicViewDlg& pane = CBimPicViewWrap::Instance().Pane();
        const QSize shown =
            gallery::DeviceSize(pane.State().picRect.size(), pane.Widget()->devicePixelRatio());
        Settle(kViewerSettleMs);
        bare.push_back(BareDecode({picture, shown, {}}));
        CBimPicViewWrap::Instance().Widget()->close();
    }
    console.CloseConsole();
    const QString name = u"row to photo of 24 MP in the viewer"_s;
    report.AddFigure(name, Median(ours), u"ms"_s);
    report.AddFigure(name + u", bare decode"_s, Median(bare), u"ms"_s);
    report.AddGoal(name + u", ratio"_s, Median(ours) / Median(bare), u"x"_s, kBareDecodes);
}

void MeasureCrowd(WatchedApplication& application, const QString& positionKey, Report& report) {
    std::vector<double> ours;
    for (int i = 0; i < kViewerOpenings; ++i) {
        ours.push_back(UntilPainted(application, [&] {
            CKXVeskPictureImpl::Instance().OpenBimPicView(1, u"1"_s, positionKey, kViewerMark);
        }));
        CBimPicViewWrap::Instance().Widget()->close();
        Settle(kViewerSettleMs);
    }
    report.AddGoal(u"place with 1,000 photos in the viewer"_s, Median(ours), u"ms"_s, kUnnoticedMs);
}

} // namespace

void MeasureViewer(WatchedApplication& application, const QString& photo, Report& report) {
    const QTemporaryDir place(QFileInfo(photo).path() + u"/viewer-XXXXXX"_s);
    host::HostSession session;
    host::Serving serving(session);
    if (session.Open(place.filePath(u"site"_s))) {
        return;
    }
    ShowingView view;
    serving.Around().view = &view;
    const ViewerSite site = FileSite(session, photo);
    QFile small(place.filePath(u"small.jpg"_s));
    if (small.open(QIODevice::WriteOnly)) {
        small.write(SmallPicture());
    }
    small.close();
    const QString picture = FillCache(site.single, photo);
    FillCache(site.crowded, small.fileName());
    MeasureRow(application, picture, report);
    MeasureCrowd(application, site.crowded, report);
    serving.TakeBack();
    session.Close();
}

} // namespace bench
