#include "console/BatchDownload.h"

#include "tests/console/ModuleFixture.h"
#include "tests/support/FileSizeLimit.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString kBatchQuestion = u"下载成功，是否打开下载照片的所在目录？"_s;

class BatchDownloadTest : public ModuleFixture {
protected:
    BatchDownloadTest() {
        QDir().mkpath(folder.Path(u"cache"_s));
        QDir().mkpath(folder.Path(u"out"_s));
        out = folder.Path(u"out"_s);
    }

    /// A checked row whose file the store has.
    BatchRow Row(const QString& uuid, const QString& name) {
        host.files.stored[uuid] = uuid.toUtf8();
        return {true, {uuid, name, folder.Path(u"cache/"_s + uuid + u".jpg"_s)}};
    }
    void Run(const std::vector<BatchRow>& rows, bool anyDone = true) {
        if (anyDone) {
            prompts.ExpectYesNo(kBatchQuestion, false);
        }
        DownloadRows(rows, out, toolkit::kNoWindow);
    }
    [[nodiscard]] QStringList Files() const {
        return QDir(out).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QString out;
};

} // namespace

TEST_F(BatchDownloadTest, GoesThroughTheRowsInOrderWithProgress) {
    prompts.ExpectYesNo(kBatchQuestion, true);
    prompts.ExpectOpenFolder(out);
    DownloadRows({Row(u"u1"_s, u"a.jpg"_s), BatchRow(), Row(u"u2"_s, u"b.jpg"_s)}, out,
                 toolkit::kNoWindow);
    EXPECT_EQ(Log().Lines(),
              (Calls{"Progress.Create(ZVKX)", "Progress.SetTitle(正在下载Vesk照片...)",
                     "Progress.Show()", "Progress.SetRange(3)",
                     "DownloadFile(uuid=u1,kind=5,flag=false,value=0)", "Progress.SetPos(1)",
                     "Progress.SetPos(2)", "DownloadFile(uuid=u2,kind=5,flag=false,value=0)",
                     "Progress.SetPos(3)", "AskYesNo(" + kBatchQuestion.toStdString() + ")",
                     "OpenFolder(" + out.toStdString() + ")", "Progress.Close()",
                     "WriteActionLog(下载Vesk照片)"}));
    EXPECT_EQ(folder.Read(u"out/a.jpg"_s), "u1");
    EXPECT_EQ(folder.Read(u"out/b.jpg"_s), "u2");
}

TEST_F(BatchDownloadTest, WithNoRowCheckedAsksNothingAndStillWritesTheActionLog) {
    Run({BatchRow(), BatchRow()}, false);
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
    EXPECT_EQ(Log().CountOf("Progress.SetPos"), 2);
    EXPECT_EQ(Log().CountOf("Progress.Close"), 1);
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 1);
}

TEST_F(BatchDownloadTest, AnUpperCaseExtensionIsKept) {
    Run({Row(u"u1"_s, u"IMG.PNG"_s)});
    EXPECT_EQ(Files(), QStringList{u"IMG.PNG"_s});
}

TEST_F(BatchDownloadTest, AnotherExtensionOrNoneBelongsToTheBase) {
    Run({Row(u"u1"_s, u"plan.dwg"_s), Row(u"u2"_s, u"plan"_s), Row(u"u3"_s, u"end."_s)});
    EXPECT_EQ(Files(), (QStringList{u"end..jpg"_s, u"plan.dwg.jpg"_s, u"plan.jpg"_s}));
}

TEST_F(BatchDownloadTest, TwoPhotosOfTheSameNameGetTheSecondANumber) {
    Run({Row(u"u1"_s, u"a.jpg"_s), Row(u"u2"_s, u"a.jpg"_s)});
    EXPECT_EQ(Files(), (QStringList{u"a(1).jpg"_s, u"a.jpg"_s}));
    EXPECT_EQ(folder.Read(u"out/a(1).jpg"_s), "u2");
}

TEST_F(BatchDownloadTest, TheNumbersRunToThirtyOneAndThenThePhotoIsLeftOut) {
    folder.Write(u"out/a.jpg"_s, "old");
    for (int n = 1; n <= 30; ++n) {
        folder.Write(u"out/a(%1).jpg"_s.arg(n), "old");
    }
    Run({Row(u"u1"_s, u"a.jpg"_s), Row(u"u2"_s, u"a.jpg"_s), Row(u"u3"_s, u"b.jpg"_s)});
    EXPECT_EQ(folder.Read(u"out/a(31).jpg"_s), "u1");
    EXPECT_FALSE(QFile::exists(folder.Path(u"out/a(32).jpg"_s)));
    EXPECT_EQ(folder.Read(u"out/b.jpg"_s), "u3") << "the next row follows";
    EXPECT_EQ(Files().size(), 33);
}

TEST_F(BatchDownloadTest, AFailedDownloadEndsAllOfItAndLeavesTheProgressOpen) {
    BatchRow unknown = Row(u"u2"_s, u"b.jpg"_s);
    unknown.source.uuid = u"unknown"_s;
    Run({Row(u"u1"_s, u"a.jpg"_s), unknown, Row(u"u3"_s, u"c.jpg"_s)}, false);
    EXPECT_EQ(Files(), QStringList{u"a.jpg"_s});
    EXPECT_EQ(Log().CountOf("Progress.Close"), 0);
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 0);
    EXPECT_EQ(Log().CountOf("DownloadFile"), 2);
    EXPECT_TRUE(ModuleLog().contains(u"scripted failure"_s));
}

TEST_F(BatchDownloadTest, AFolderThatIsGonePassesSilently) {
    QDir(out).removeRecursively();
    Run({Row(u"u1"_s, u"a.jpg"_s)});
    EXPECT_FALSE(QDir(out).exists());
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 1);
}

TEST_F(BatchDownloadTest, AFolderThatCantBeWrittenPassesSilentlyAndTheNextRowFollows) {
    for (const QString& unwritable : {QString::fromLatin1(support::kUnwritableFolder),
                                      folder.Write(u"file"_s, "stands in the way")}) {
        out = unwritable;
        Log().Clear();
        Run({Row(u"u1"_s, u"a.jpg"_s), Row(u"u2"_s, u"b.jpg"_s)});
        EXPECT_EQ(Log().CountOf("DownloadFile"), 2);
        EXPECT_EQ(Log().CountOf("Progress.Close"), 1);
        EXPECT_EQ(Log().CountOf("WriteActionLog"), 1);
        EXPECT_FALSE(QFile::exists(out + u"/a.jpg"_s));
    }
    EXPECT_EQ(folder.Read(u"file"_s), "stands in the way");
}

TEST_F(BatchDownloadTest, AFullFolderPassesSilentlyAndKeepsNothingHalf) {
    const BatchRow large = Row(u"u1"_s, u"a.jpg"_s);
    const BatchRow small = Row(u"u2"_s, u"b.jpg"_s);
    // Both in the cache already, so that only the copies meet the limit.
    folder.Write(u"cache/u1.jpg"_s, QByteArray(300'000, 'x'));
    folder.Write(u"cache/u2.jpg"_s, "u2");
    host.files.keepsWhatIsThere = true;
    {
        const support::FileSizeLimit limit(100'000);
        Run({large, small});
    }
    EXPECT_EQ(Files(), QStringList{u"b.jpg"_s});
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 1);
}

TEST_F(BatchDownloadTest, APhotoThatIsGoneFromTheCacheAfterItsDownloadPassesSilently) {
    BatchRow lost = Row(u"u1"_s, u"a.jpg"_s);
    lost.source.localPath = folder.Path(u"cache/u1.jpg"_s);
    host.files.keepsWhatIsThere = true;
    Run({lost, Row(u"u2"_s, u"b.jpg"_s)});
    EXPECT_TRUE(Files().isEmpty());
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 1);
}

TEST_F(BatchDownloadTest, TheCacheItselfAsTargetKeepsWhatItHolds) {
    out = folder.Path(u"cache"_s);
    Run({Row(u"u1"_s, u"u1.jpg"_s), Row(u"u2"_s, u"b.jpg"_s)});
    EXPECT_EQ(Files(), (QStringList{u"b.jpg"_s, u"u1.jpg"_s, u"u2.jpg"_s}));
    EXPECT_EQ(folder.Read(u"cache/u1.jpg"_s), "u1");
}

TEST_F(BatchDownloadTest, NamesThatAFileSystemRefusesStayInTheFolder) {
    Run({Row(u"u1"_s, u"../1层/柱:A.jpg"_s), Row(u"u2"_s, QString(200, u'梁'))});
    EXPECT_EQ(Files().size(), 2);
    EXPECT_EQ(folder.Read(u"out/.._1层_柱_A.jpg"_s), "u1");
}
