// The gallery with the client's own transfers.
#include "tests/viewers/site/GallerySite.h"

#include "base/PictureLog.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/HastyClock.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/Decoders.h"
#include "viewers/DownloadWorker.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QStringDecoder>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using site::TransferFault;

namespace {

class GalleryOnASite : public testing::Test {
protected:
    GalleryOnASite() : site(folder.Path(u"data"_s)) {
        ZelvorNRQ_KXVeskPicture::SetLogFilePath(folder.Path(u"module.log"_s));
        gallery = std::make_unique<support::FolderGallery>();
        for (int i = 0; i < 4; ++i) {
            site.AddPhoto(Photo(i), Note());
        }
        items = site.Items();
    }
    ~GalleryOnASite() override {
        gallery.reset();
        End();
        ZelvorNRQ_KXVeskPicture::SetLogFilePath(QString());
    }
    /// In the order of a program's end: transfers, then the module's threads.
    void End() {
        site.EndSession();
        gallery::JoinDownloadWorkers();
        gallery::JoinDecoders();
        support::RunPendingEvents();
    }

    static QColor Colour(int index) { return QColor(QColor::fromHsv(index * 80, 200, 180).rgb()); }
    /// Three blocks long: what stands behind the picture's end is not looked at.
    static QByteArray Photo(int index) {
        return support::PngBytes(support::OneColour({300, 200}, Colour(index)))
            .append(QByteArray(600'000, char(index)));
    }
    static QByteArray Note() { return QByteArray("#!AMR\n").append(QByteArray(1'000, '\0')); }

    void Open() {
        gallery->Create(toolkit::kNoWindow);
        gallery->Widget()->resize(500, 400);
        gallery->Widget()->show();
        support::RunPendingEvents();
    }
    void Show(int current = 0) {
        gallery->SetCurrentIndex(current);
        gallery->SetPicItems(items);
    }
    [[nodiscard]] const gallery::GalleryState& State() const { return gallery->State(); }
    [[nodiscard]] bool WaitForState(int index, qint32 state) const {
        return support::WaitFor([&] { return State().items.at(size_t(index)).picState == state; });
    }
    [[nodiscard]] bool WaitForAll() const {
        return support::WaitFor([this] {
            return State().activeDownloads <= 0 &&
                   !gallery::NextDownload(State().items, State().visible, State().currentIndex);
        });
    }
    [[nodiscard]] QString ModuleLog() const {
        QStringDecoder decode("GBK");
        return decode(folder.Read(u"module.log"_s));
    }
    /// Red text in the middle of the item's cell: "下载失败".
    [[nodiscard]] int RedIn(int index) const {
        const QImage shown = gallery->Widget()->grab().toImage();
        const QRect cell = State().items.at(size_t(index)).thumbRect;
        int count = 0;
        for (int y = cell.center().y() - 9; y < cell.center().y() + 9; ++y) {
            for (int x = cell.left(); x <= cell.right(); ++x) {
                count += support::IsNear(shown.pixelColor(x, y), QColor(255, 0, 0), 40);
            }
        }
        return count;
    }
    /// The big area says that there is no picture, the cell that the download failed.
    void ExpectFailed(int index, const QString& reason) const {
        EXPECT_EQ(State().items.at(size_t(index)).picState, kDownloadFailedState);
        EXPECT_TRUE(ModuleLog().contains(
            u"下载照片失败,UUID=%1, 信息="_s.arg(items.at(size_t(index)).picUuid)));
        EXPECT_TRUE(ModuleLog().contains(reason)) << ModuleLog().toStdString();
        EXPECT_GT(RedIn(index), 20);
        EXPECT_TRUE(State().currentIndex != index || State().picRect.isEmpty());
    }
    /// Whatever lies in the cache is whole.
    void ExpectNothingHalf() {
        for (const QString& name : site.Cached()) {
            const qint64 size = QFileInfo(site.CacheFolder() + name).size();
            EXPECT_TRUE(name.endsWith(u".jpg"_s) || name.endsWith(u".amr"_s)) << name.toStdString();
            EXPECT_EQ(size, name.endsWith(u".jpg"_s) ? Photo(0).size() : Note().size())
                << name.toStdString();
        }
    }

    support::HastyClock clock;
    support::TempFolder folder;
    support::GallerySite site;
    std::unique_ptr<support::FolderGallery> gallery;
    std::vector<GalleryItem> items;
};

} // namespace

TEST_F(GalleryOnASite, PicturesAndNotesArriveAndAreShown) {
    Open();
    Show(2);
    ASSERT_TRUE(WaitForAll());
    const QImage shown = gallery->Widget()->grab().toImage();
    EXPECT_EQ(shown.pixelColor(State().bigArea.center()), Colour(2));
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(shown.pixelColor(State().items[size_t(i)].thumbRect.center()), Colour(i)) << i;
    }
    EXPECT_EQ(site.Cached().size(), 8);
    ExpectNothingHalf();
}

TEST_F(GalleryOnASite, ADownloadThatFailsAtTheStartIsSaidInItsCellAndTheNextFollows) {
    site.session->Desk()->SetRules({0, TransferFault::AtStart});
    Open();
    Show();
    ASSERT_TRUE(WaitForAll());
    ExpectFailed(0, u"文件传输中断，请检查网络后重试。"_s);
    ExpectFailed(3, u"文件传输中断"_s);
    EXPECT_TRUE(site.Cached().isEmpty());
}

TEST_F(GalleryOnASite, ADownloadThatFailsInTheMiddleLeavesNoFile) {
    site.session->Desk()->SetRules({0, TransferFault::InTheMiddle});
    Open();
    Show();
    ASSERT_TRUE(WaitForAll());
    ExpectFailed(0, u"文件传输中断"_s);
    EXPECT_TRUE(site.Cached().isEmpty());
}

TEST_F(GalleryOnASite, ADownloadThatNeverEndsShowsHowFarItCameAndHoldsNothingElseUp) {
    site.session->Desk()->SetRules({0, TransferFault::NeverEnds});
    Open();
    Show();
    ASSERT_TRUE(support::WaitFor([this] { return State().items[0].picProgress > 0; }));
    EXPECT_EQ(State().items[0].picState, kDownloading);
    EXPECT_EQ(State().items[0].picProgress, 262144 * 100 / int(Photo(0).size()));
    EXPECT_EQ(State().items[1].picState, kWaiting);
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_EQ(State().currentIndex, 1);
    gallery->Destroy();
    const QString cache = site.CacheFolder();
    End();
    EXPECT_TRUE(QDir(cache).isEmpty(QDir::Files | QDir::Hidden));
}

TEST_F(GalleryOnASite, WrongBytesAreAFailureNotAPicture) {
    site.Damage(items[0].picUuid);
    Open();
    Show();
    ASSERT_TRUE(WaitForAll());
    ExpectFailed(0, u"的内容已损坏，请从备份恢复。"_s);
    EXPECT_EQ(State().items[1].picState, kOnDisk);
    ExpectNothingHalf();
    EXPECT_EQ(site.Cached().size(), 7);
}

TEST_F(GalleryOnASite, AnEmptyUuidFailsWithoutATransfer) {
    items[0].picUuid.clear();
    Open();
    Show();
    ASSERT_TRUE(WaitForAll());
    EXPECT_EQ(State().items[0].picState, kDownloadFailedState);
    EXPECT_GT(RedIn(0), 20);
    EXPECT_EQ(State().items[1].picState, kOnDisk);
}

TEST_F(GalleryOnASite, AMissingCacheFolderIsMadeAgain) {
    Open();
    ASSERT_TRUE(QDir(folder.Path(u"data/cache"_s)).removeRecursively());
    Show();
    ASSERT_TRUE(WaitForAll());
    EXPECT_EQ(site.Cached().size(), 8);
}

TEST_F(GalleryOnASite, ACacheFolderThatCantBeWrittenIsSaidInTheCellAndTheLog) {
    for (GalleryItem& item : items) {
        item.picPath = u"%1/%2.jpg"_s.arg(QLatin1String(support::kUnwritableFolder), item.picUuid);
    }
    // A file stands where the folder of the last one should be.
    items[3].picPath = folder.Write(u"file"_s, "x") + u"/3.jpg"_s;
    Open();
    Show();
    ASSERT_TRUE(WaitForAll());
    ExpectFailed(0, u"没有写入权限，请检查文件夹的权限"_s);
    ExpectFailed(3, folder.Path(u"file"_s) + u"：没有写入权限"_s);
}

TEST_F(GalleryOnASite, AFullDiskIsSaidInTheCellAndTheLogAndLeavesNothing) {
    Open();
    {
        const support::FileSizeLimit limit(300'000);
        Show();
        ASSERT_TRUE(WaitForAll());
    }
    ExpectFailed(0, u"磁盘空间不足，请清理磁盘后重试。"_s);
    ExpectNothingHalf();
    EXPECT_EQ(site.Cached().size(), 4) << "the notes are small enough";
}

TEST_F(GalleryOnASite, AWindowMayCloseWhileADownloadRuns) {
    for (int round = 0; round < 10; ++round) {
        Open();
        Show(round % 4);
        if (round % 2 == 0) {
            support::RunPendingEvents();
        }
        gallery->Destroy();
        if (round % 3 == 0) {
            QDir(site.CacheFolder()).removeRecursively();
        }
    }
    gallery::JoinDownloadWorkers();
    ExpectNothingHalf();
    EXPECT_EQ(State().activeDownloads, 0);
}

TEST_F(GalleryOnASite, AGalleryMayDieWhileADownloadRuns) {
    for (int round = 0; round < 10; ++round) {
        Open();
        Show();
        gallery = std::make_unique<support::FolderGallery>();
        support::RunPendingEvents();
        QDir(site.CacheFolder()).removeRecursively();
    }
    gallery::JoinDownloadWorkers();
    ExpectNothingHalf();
}

TEST_F(GalleryOnASite, TheListMayBeReplacedWhileADownloadRuns) {
    Open();
    const std::vector<GalleryItem> all = items;
    for (int round = 0; round < 10; ++round) {
        items = std::vector<GalleryItem>(all.begin(), all.begin() + 1 + round % 4);
        Show(round % int(items.size()));
        support::RunPendingEvents();
        QDir(site.CacheFolder()).removeRecursively();
    }
    items = all;
    ASSERT_TRUE(WaitForAll());
    Show();
    ASSERT_TRUE(WaitForAll());
    EXPECT_EQ(State().activeDownloads, 0);
    ExpectNothingHalf();
}

TEST_F(GalleryOnASite, TheProjectMayChangeWhileADownloadRuns) {
    site.session->Desk()->SetRules({1});
    Open();
    Show();
    ASSERT_TRUE(support::WaitFor([this] { return State().activeDownloads == 1; }));
    const QString cache = site.CacheFolder();
    gallery->Destroy();
    site.session->CloseProject();
    gallery::JoinDownloadWorkers();
    support::RunPendingEvents();
    EXPECT_EQ(site.CacheFolder(), cache) << "the worker kept the folder that it was given";
    ExpectNothingHalf();
    EXPECT_EQ(site.Cached().size(), 1) << "it ran to its end";
}

TEST_F(GalleryOnASite, ASessionMayEndWhileADownloadRuns) {
    for (const site::TransferRules& rules : {site::TransferRules{}, site::TransferRules{1'000'000},
                                             site::TransferRules{0, TransferFault::NeverEnds}}) {
        if (!site.session) {
            site.BeginSession();
        }
        ASSERT_FALSE(site.session->Open(folder.Path(u"data"_s)));
        site.session->Desk()->SetRules(rules);
        gallery = std::make_unique<support::FolderGallery>();
        Open();
        Show();
        ASSERT_TRUE(support::WaitFor([this] { return State().activeDownloads == 1; }));
        gallery->Destroy();
        End();
    }
    site.BeginSession();
    ASSERT_FALSE(site.session->Open(folder.Path(u"data"_s)));
    ExpectNothingHalf();
}

TEST_F(GalleryOnASite, TwoGalleriesMayFetchTheSamePictures) {
    support::FolderGallery other;
    Open();
    other.Create(toolkit::kNoWindow);
    other.Widget()->resize(500, 400);
    Show();
    other.SetPicItems(items);
    ASSERT_TRUE(WaitForAll());
    ASSERT_TRUE(support::WaitFor([&] {
        const auto& state = other.State();
        return state.activeDownloads <= 0 &&
               !gallery::NextDownload(state.items, state.visible, state.currentIndex);
    }));
    for (const GalleryItem& item : other.State().items) {
        EXPECT_EQ(item.picState, kOnDisk);
    }
    EXPECT_EQ(site.Cached().size(), 8);
    ExpectNothingHalf();
    other.Destroy();
}

TEST(GallerySiteProgram, MayEndWhileADownloadRuns) {
    for (const QString& transfers : {u"slow"_s, u"never"_s, u"quick"_s}) {
        const support::TempFolder folder;
        folder.Write(u"pics/a.png"_s,
                     support::PngBytes(support::OneColour({64, 64}, Qt::darkGreen)));
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QCoreApplication::applicationDirPath() + u"/gallery_site"_s,
                      {folder.Path(u"pics"_s), u"--quit"_s, u"--transfers"_s, transfers});
        ASSERT_TRUE(program.waitForFinished(60'000)) << transfers.toStdString();
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0) << program.readAll().toStdString();
    }
}
