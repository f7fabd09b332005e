#include "bench/UploadBench.h"

#include "bench/IssueSite.h"
#include "bench/Report.h"
#include "bench/Stopwatch.h"
#include "bench/WatchedApplication.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "issues/TNPicViewWrap.h"
#include "toolkit/windows/Prompts.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kUploads = 5;
constexpr int kReduced = 30; ///< quality
constexpr int kUploadPatienceMs = 600'000;
constexpr double kMostOfBareUpload = 1.2;
constexpr double kMostOfKey = 50;
constexpr int kKeyEveryMs = 40;

/// What the dialog for files is opened with, whatever that is.
class PickedPhotos final : public toolkit::IPrompts {
public:
    explicit PickedPhotos(QStringList photos)
        : m_photos(std::move(photos)), m_before(toolkit::SetPrompts(this)) {}
    ~PickedPhotos() override { toolkit::SetPrompts(m_before); }
    PickedPhotos(const PickedPhotos&) = delete;
    PickedPhotos& operator=(const PickedPhotos&) = delete;

    QString lastMessage;

    void ShowMessage(toolkit::WindowId /*parent*/, const QString& text) override {
        lastMessage = text;
    }
    bool AskOkCancel(toolkit::WindowId /*parent*/, const QString& /*text*/) override {
        return false;
    }
    bool AskYesNo(toolkit::WindowId /*parent*/, const QString& /*text*/) override { return false; }
    QString AskFolder(toolkit::WindowId /*parent*/, const QString& /*title*/) override {
        return {};
    }
    QString AskSaveFile(const toolkit::SaveFileRequest& /*request*/) override { return {}; }
    QStringList AskOpenFiles(const toolkit::OpenFilesRequest& /*request*/) override {
        return m_photos;
    }
    void OpenFolder(const QString& /*folder*/) override {}
    void RevealFile(const QString& /*path*/) override {}

private:
    const QStringList m_photos;
    toolkit::IPrompts* m_before;
};

void Checksum(const QString& path) {
    QFile file(path);
    QCryptographicHash sum(QCryptographicHash::Md5);
    if (file.open(QIODevice::ReadOnly)) {
        sum.addData(&file);
    }
    if (sum.result().isEmpty()) {
        qFatal("no checksum");
    }
}

/// Everything that has to be done with one picture, on one thread, by the shortest way: decoded and
/// encoded small, both summed, the picture copied into store and cache, the small one into the
/// store.
void BareUpload(const QString& photo, const QString& folder) {
    const QString reduced = folder + u"/reduced.jpg"_s;
    QFile::remove(reduced);
    QImage(photo).save(reduced, "JPG", kReduced);
    int number = 0;
    for (const QString& file : {photo, photo, reduced}) {
        const QString target = folder + u"/copy%1.jpg"_s.arg(number++);
        QFile::remove(target);
        QFile::copy(file, target);
    }
    Checksum(photo);
    Checksum(reduced);
}

double BareUploads(const QStringList& photos, const QString& folder) {
    const Stopwatch timer;
    for (const QString& photo : photos) {
        BareUpload(photo, folder);
    }
    return timer.Milliseconds();
}

/// What a person does meanwhile: a key at the gallery, answered.
void PressKey(QWidget& page, std::vector<double>& keys) {
    const Stopwatch timer;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_Right, Qt::NoModifier);
        QCoreApplication::sendEvent(&page, &event);
    }
    keys.push_back(timer.Milliseconds());
}

/// Milliseconds until the end is told.
double UploadOnce(WatchedApplication& application, const QStringList& photos,
                  std::vector<double>& keys, double& longest) {
    CTNPicChangeViewDlg& page = CTNPicViewWrap::Instance().ChangeView();
    const PickedPhotos prompts(photos);
    const Stopwatch timer;
    page.UploadButton()->click();
    application.longestEvent = 0;
    const QDeadlineTimer patience(kUploadPatienceMs);
    Stopwatch sinceKey;
    while (page.IsUploading() && !patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        if (sinceKey.Milliseconds() > kKeyEveryMs) {
            PressKey(*page.Widget(), keys);
            sinceKey = Stopwatch();
        }
    }
    longest = std::max(longest, application.longestEvent);
    return prompts.lastMessage == u"上传完成!"_s ? timer.Milliseconds() : -1;
}

} // namespace

bool MeasureUpload(WatchedApplication& application, const QStringList& photos, Report& report) {
    const QTemporaryDir place;
    host::HostSession session;
    host::Serving serving(session);
    if (session.Open(place.filePath(u"site"_s))) {
        return false;
    }
    const IssueSite site = FileIssue(session, photos);
    CTNPicViewWrap& viewer = CTNPicViewWrap::Instance();
    if (site.ppid == 0 || !viewer.ShowQuestion(site.ppid, site.questionId, toolkit::kNoWindow)) {
        return false;
    }
    viewer.TabWnd()->SetActiveTab(1);
    Settle(1000);
    std::vector<double> uploads;
    std::vector<double> bare;
    std::vector<double> ratio;
    std::vector<double> keys;
    double longest = 0;
    for (int i = 0; i < kUploads; ++i) {
        uploads.push_back(UploadOnce(application, photos, keys, longest));
        bare.push_back(BareUploads(photos, place.path()));
        ratio.push_back(uploads.back() / bare.back());
        if (uploads.back() < 0) {
            QTextStream(stderr) << u"the upload failed"_s << Qt::endl;
            return false;
        }
    }
    const QString name = u"upload of %1: "_s.arg(photos.size());
    report.AddFigure(name + u"first time"_s, uploads.front(), u"ms"_s);
    report.AddFigure(name + u"to the end"_s, Median(uploads), u"ms"_s);
    report.AddFigure(name + u"worst"_s, *std::max_element(uploads.begin(), uploads.end()), u"ms"_s);
    report.AddFigure(name + u"bare work"_s, Median(bare), u"ms"_s);
    report.AddGoal(name + u"ratio to bare work"_s, Median(ratio), u"x"_s, kMostOfBareUpload);
    report.AddFigure(name + u"a key meanwhile"_s, Median(keys), u"ms"_s);
    report.AddFigure(name + u"a key, nine in ten"_s, NinthDecile(keys), u"ms"_s);
    report.AddGoal(name + u"a key, worst"_s, *std::max_element(keys.begin(), keys.end()), u"ms"_s,
                   kMostOfKey);
    report.AddGoal(name + u"longest event"_s, longest, u"ms"_s, kMostOfKey);
    viewer.Destroy();
    serving.TakeBack();
    session.Close();
    return true;
}

} // namespace bench
