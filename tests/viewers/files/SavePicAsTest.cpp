#include "viewers/SavePicAs.h"

#include "frame/KXVeskPictureImpl.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/FileSizeLimit.h"
#include "toolkit/windows/Prompts.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using ZelvorNRQ_KXVeskPicture::SavePicAs;

namespace {

const QString kSavedQuestion = u"下载成功，是否打开下载照片的所在目录？"_s;

class SavePicAsTest : public ModuleFixture {
protected:
    SavePicAsTest() {
        host.files.stored[u"u1"_s] = "photo";
        local = folder.Path(u"cache/u1.jpg"_s);
        target = folder.Path(u"out.jpg"_s);
        QDir().mkpath(folder.Path(u"cache"_s));
    }

    QString local;
    QString target;
};

/// Takes down what the save dialog is opened with and cancels it.
class DialogTaker final : public toolkit::IPrompts {
public:
    DialogTaker() : m_before(toolkit::SetPrompts(this)) {}
    ~DialogTaker() override { toolkit::SetPrompts(m_before); }

    toolkit::SaveFileRequest taken;

    void ShowMessage(toolkit::WindowId, const QString&) override { ADD_FAILURE(); }
    bool AskOkCancel(toolkit::WindowId, const QString&) override { return false; }
    bool AskYesNo(toolkit::WindowId, const QString&) override { return false; }
    QString AskFolder(toolkit::WindowId, const QString&) override { return {}; }
    QString AskSaveFile(const toolkit::SaveFileRequest& request) override {
        taken = request;
        return {};
    }
    QStringList AskOpenFiles(const toolkit::OpenFilesRequest&) override { return {}; }
    void OpenFolder(const QString&) override { ADD_FAILURE(); }
    void RevealFile(const QString&) override { ADD_FAILURE(); }

private:
    toolkit::IPrompts* m_before;
};

} // namespace

TEST_F(SavePicAsTest, TheNameGivesBaseAndExtensionOfTheDialog) {
    struct Case {
        QString name;
        QString base;
        QString extension;
    };
    for (const Case& c :
         {Case{u"IMG.PNG"_s, u"IMG"_s, u"PNG"_s}, Case{u"plan.dwg"_s, u"plan.dwg"_s, u"jpg"_s},
          Case{u"plan"_s, u"plan"_s, u"jpg"_s}, Case{u"a.b.jpg"_s, u"a.b"_s, u"jpg"_s}}) {
        DialogTaker dialog;
        EXPECT_TRUE(SavePicAs(u"u1"_s, c.name, local));
        EXPECT_EQ(dialog.taken.proposedName, c.base);
        EXPECT_EQ(dialog.taken.defaultExtension, c.extension);
        EXPECT_EQ(dialog.taken.filter, u"KX文档(*.%1)"_s.arg(c.extension));
    }
}

TEST_F(SavePicAsTest, ACancelledDialogIsNoFailureAndFetchesNothing) {
    prompts.ExpectSaveFile(u"a"_s, QString());
    EXPECT_TRUE(SavePicAs(u"u1"_s, u"a.jpg"_s, local));
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 0);
    EXPECT_EQ(ModuleLog(), QString());
}

TEST_F(SavePicAsTest, FetchesCopiesAsksAndWritesTheActionLog) {
    prompts.ExpectSaveFile(u"a"_s, target);
    prompts.ExpectYesNo(kSavedQuestion, false);
    EXPECT_TRUE(SavePicAs(u"u1"_s, u"a.jpg"_s, local));
    EXPECT_EQ(folder.Read(u"out.jpg"_s), "photo");
    EXPECT_EQ(folder.Read(u"cache/u1.jpg"_s), "photo");
    EXPECT_EQ(
        Log().LinesOf({"AskSaveFile", "DownloadFile", "AskYesNo", "WriteActionLog"}),
        (Calls{"AskSaveFile(a)", "DownloadFile(uuid=u1,kind=5,flag=true,value=0)",
               "AskYesNo(" + kSavedQuestion.toStdString() + ")", "WriteActionLog(下载Vesk照片)"}));
    EXPECT_TRUE(ModuleLog().contains(u"[开始]下载图片,UUID=u1, Path="_s + target));
}

TEST_F(SavePicAsTest, OnYesTheFileIsShownInItsFolder) {
    prompts.ExpectSaveFile(u"a"_s, target);
    prompts.ExpectYesNo(kSavedQuestion, true);
    prompts.ExpectRevealFile(target);
    EXPECT_TRUE(SavePicAs(u"u1"_s, u"a.jpg"_s, local));
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 1);
}

TEST_F(SavePicAsTest, AFailedDownloadIsShownLoggedAndLeavesTheTarget) {
    folder.Write(u"out.jpg"_s, "old");
    prompts.ExpectSaveFile(u"a"_s, target);
    prompts.ExpectMessage(u"scripted failure"_s);
    EXPECT_FALSE(SavePicAs(u"unknown"_s, u"a.jpg"_s, local));
    EXPECT_EQ(folder.Read(u"out.jpg"_s), "old");
    EXPECT_TRUE(ModuleLog().contains(u"scripted failure"_s));
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 0);
}

TEST_F(SavePicAsTest, AFailedCopyIsNotNoticed) {
    const QString nowhere = folder.Path(u"no/folder/a.jpg"_s);
    prompts.ExpectSaveFile(u"a"_s, nowhere);
    prompts.ExpectYesNo(kSavedQuestion, false);
    EXPECT_TRUE(SavePicAs(u"u1"_s, u"a.jpg"_s, local));
    EXPECT_EQ(Log().CountOf("WriteActionLog"), 1);
}

TEST_F(SavePicAsTest, AFullDiskKeepsTheOldFileAndLeavesNothingHalf) {
    folder.Write(u"out.jpg"_s, "old");
    folder.Write(u"cache/u1.jpg"_s, QByteArray(300'000, 'x'));
    host.files.keepsWhatIsThere = true;
    prompts.ExpectSaveFile(u"a"_s, target);
    prompts.ExpectYesNo(kSavedQuestion, false);
    {
        const support::FileSizeLimit limit(100'000);
        EXPECT_TRUE(SavePicAs(u"u1"_s, u"a.jpg"_s, local));
    }
    EXPECT_EQ(folder.Read(u"out.jpg"_s), "old");
    EXPECT_EQ(QDir(folder.Path()).entryList({u"*.part"_s}, QDir::Files | QDir::Hidden),
              QStringList());
}

TEST_F(SavePicAsTest, SavingOverTheCachedFileItselfLeavesIt) {
    prompts.ExpectSaveFile(u"a"_s, local);
    prompts.ExpectYesNo(kSavedQuestion, false);
    EXPECT_TRUE(SavePicAs(u"u1"_s, u"a.jpg"_s, local));
    EXPECT_EQ(folder.Read(u"cache/u1.jpg"_s), "photo");
}

TEST_F(SavePicAsTest, TheFacadeProposesTheTargetThatItIsGiven) {
    KX_DATA::PicFileEntry file;
    file.picId = 7;
    file.picUuid = u"u1"_s;
    host.pics.files = {file};
    host.pics.bimPics = {BimPhoto(7)};
    prompts.ExpectSaveFile(folder.Path(u"chosen"_s), target);
    prompts.ExpectYesNo(kSavedQuestion, false);
    EXPECT_EQ(Facade().SaveBimPicAs(1, 7, folder.Path(u"chosen.jpg"_s)), 1);
    EXPECT_EQ(folder.Read(u"out.jpg"_s), "photo");
    EXPECT_EQ(folder.Read(u"1/pics/u1.jpg"_s), "photo") << "by way of the project's folder";
}

TEST_F(SavePicAsTest, TheFacadeAnswersOneWhateverTheDownloadDid) {
    KX_DATA::PicFileEntry file;
    file.picId = 7;
    file.picUuid = u"unknown"_s;
    host.pics.files = {file};
    host.pics.bimPics = {BimPhoto(7)};
    prompts.ExpectSaveFile(u"a"_s, target);
    prompts.ExpectMessage(u"scripted failure"_s);
    EXPECT_EQ(Facade().SaveBimPicAs(1, 7, u"a.jpg"_s), 1);
}

TEST_F(SavePicAsTest, AUuidThatLeadsOutOfTheFolderIsAFailedDownload) {
    KX_DATA::PicFileEntry file;
    file.picId = 7;
    host.pics.bimPics = {BimPhoto(7)};
    QDir().mkpath(folder.Path(u"1/pics"_s));
    folder.Write(u"secret.jpg"_s, "secret");
    for (const auto& [uuid, message] : {std::pair(u"../../secret"_s, u"下载照片失败!"_s),
                                        std::pair(QString(), u"图片UUID为空!"_s)}) {
        file.picUuid = uuid;
        host.files.stored[uuid] = "written";
        host.pics.files = {file};
        prompts.ExpectSaveFile(u"a"_s, target);
        prompts.ExpectMessage(message);
        EXPECT_EQ(Facade().SaveBimPicAs(1, 7, u"a.jpg"_s), 1);
        EXPECT_TRUE(ModuleLog().contains(message));
    }
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
    EXPECT_EQ(folder.Read(u"secret.jpg"_s), "secret");
    EXPECT_FALSE(QFile::exists(target));
}
