// The console's two ways to a photo on disk.
#include "console/VeskPicMngDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/WaitFor.h"

#include <QDir>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"请选择文件存放的路径："_s;
const QString kDownloadQuestion = u"下载成功，是否打开下载照片的所在目录？"_s;

class ConsoleDownload : public ModuleFixture {
protected:
    /// The console with three photos of a kind that the store has.
    void Open(ConsoleMode mode) {
        FillService(host, mode, 3);
        for (KX_DATA::BimPicRow& photo : host.pics.bimPics) {
            host.files.stored[photo.text8] = photo.fileName.toUtf8();
        }
        for (KX_DATA::PdfPicRecord& photo : host.pics.pdfPics) {
            host.files.stored[photo.text1] = photo.fileName.toUtf8();
        }
        Facade().ShowPicMng(mode);
        support::RunPendingEvents();
        QDir().mkpath(folder.Path(u"out"_s));
    }
    void Check(int row) { Console().Grid()->GetRow(row)->GetItem(0)->SetValue(true); }
    static void PressDownload() {
        QTest::mouseClick(Console().Controls()->downloadButton, Qt::LeftButton);
    }
    [[nodiscard]] QStringList Files() const {
        return QDir(folder.Path(u"out"_s)).entryList(QDir::Files, QDir::Name);
    }
};

} // namespace

TEST_F(ConsoleDownload, CopiesTheCheckedRowsOfBothKindsOfPhotos) {
    struct Case {
        ConsoleMode mode;
        QString cache;
    };
    for (const Case& c : {Case{kModeBim, u"1/pics"_s}, Case{kModePdf, u"1/thumbs"_s}}) {
        Open(c.mode);
        Check(0);
        Check(2);
        prompts.ExpectFolder(kTitle, folder.Path(u"out"_s));
        prompts.ExpectYesNo(kDownloadQuestion, false);
        PressDownload();
        EXPECT_EQ(Files().size(), 2);
        EXPECT_EQ(QDir(folder.Path(c.cache)).entryList(QDir::Files).size(), 2);
        QDir(folder.Path(u"out"_s)).removeRecursively();
    }
}

TEST_F(ConsoleDownload, AUuidThatLeadsOutOfTheFolderIsFetchedFromNowhere) {
    for (const ConsoleMode mode : {kModeBim, kModePdf}) {
        FillService(host, mode, 1);
        folder.Write(u"secret.jpg"_s, "secret");
        host.files.stored[u"../../secret"_s] = "written";
        for (KX_DATA::BimPicRow& photo : host.pics.bimPics) {
            photo.text8 = u"../../secret"_s;
        }
        for (KX_DATA::PdfPicRecord& photo : host.pics.pdfPics) {
            photo.text1 = u"../../secret"_s;
        }
        Facade().ShowPicMng(mode);
        support::RunPendingEvents();
        QDir().mkpath(folder.Path(u"out"_s));
        Check(0);
        prompts.ExpectFolder(kTitle, folder.Path(u"out"_s));
        PressDownload();
        EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
        EXPECT_EQ(folder.Read(u"secret.jpg"_s), "secret");
        EXPECT_EQ(Files(), QStringList());
        EXPECT_TRUE(ModuleLog().contains(u"下载照片失败!"_s));
    }
}

TEST_F(ConsoleDownload, ACancelledFolderDialogDoesNothing) {
    Open(kModeBim);
    Check(1);
    Log().Clear();
    prompts.ExpectFolder(kTitle, QString());
    PressDownload();
    EXPECT_EQ(Log().CountOf("Progress.Create"), 0);
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 0);
}

TEST_F(ConsoleDownload, AConsoleThatClosesBehindTheFolderDialogDownloadsNothing) {
    Open(kModeBim);
    Check(1);
    prompts.ExpectFolder(kTitle, folder.Path(u"out"_s));
    prompts.Meanwhile([] { Console().CloseConsole(); });
    PressDownload();
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
    EXPECT_FALSE(Console().HasWindow());
}
