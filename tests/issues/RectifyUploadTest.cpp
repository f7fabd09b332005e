// Uploading pictures of a rectification.
#include "issues/RectifyUpload.h"

#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gmock/gmock.h>

#include <atomic>
#include <semaphore>
#include <thread>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString kFilter = u"全部图片(*) (*.jpeg *.jpg *.png *.tif *.tiff *.gif *.jpe *.bmp);;"
                        u"jpg,jpeg文件(*.jpg;*.jpeg) (*.jpeg *.jpg);;"
                        u"png文件(*.png) (*.png);;"
                        u"tif,tiff文件(*.tif;*.tiff) (*.tif *.tiff);;"
                        u"gif,jpe文件(*.gif;*.jpe) (*.gif *.jpe);;"
                        u"bmp文件(*.bmp) (*.bmp)"_s;

class RectifyUploadTest : public IssueFixture {
protected:
    QString Jpeg(const QString& name) {
        return folder.Write(u"from/"_s + name,
                            support::JpegBytes(support::CornerMarked(QSize(40, 30))));
    }
    QString Png(const QString& name) {
        return folder.Write(u"from/"_s + name,
                            support::PngBytes(support::CornerMarked(QSize(40, 30))));
    }
    QString NoPicture(const QString& name) { return folder.Write(u"from/"_s + name, "text"); }
    QString Locked(const QString& name) { return folder.Path(u"from/gone/"_s + name); }

    void Pick(const QStringList& files) {
        prompts.ExpectOpenFiles(kFilter, files);
        support::Click(Rectify().UploadButton());
    }
    [[nodiscard]] bool WaitForEnd() {
        return support::WaitFor(
            [this] { return !Rectify().IsUploading() && prompts.AllAnswered(); });
    }
    void PickAndWait(const QStringList& files, const QString& message) {
        Pick(files);
        prompts.ExpectMessage(message);
        EXPECT_TRUE(WaitForEnd());
    }
    [[nodiscard]] QStringList LocalFiles(const QString& pattern) const {
        return QDir(folder.Path(u"1/attachments"_s)).entryList({pattern}, QDir::Files);
    }
    [[nodiscard]] const std::vector<KX_DATA::QuestionPicRecord>& Added() const {
        return host.questions.lastAddedPics;
    }
    [[nodiscard]] std::vector<std::string> AddedNames() const {
        std::vector<std::string> names;
        for (const auto& pic : Added()) {
            names.push_back(pic.fileName.toStdString());
        }
        return names;
    }
    /// The upload waits in its first transfer, or in a later one, until the test lets it go.
    void HoldFirstUpload() { HoldUpload(1); }
    void HoldUpload(int number) {
        host.script.During("UploadFile", [this, number] {
            if (++m_transfers == number) {
                m_gate.acquire();
            }
        });
    }
    void LetGo() { m_gate.release(); }

    ~RectifyUploadTest() override {
        m_gate.release();
        issues::JoinUploads();
    }

private:
    std::atomic<int> m_transfers{0};
    std::binary_semaphore m_gate{0};
};

} // namespace

TEST_F(RectifyUploadTest, APictureIsStoredWholeAndReducedAndBecomesARecord) {
    ASSERT_TRUE(OpenRectify());
    const QString file = Jpeg(u"梁.jpg"_s);
    PickAndWait({file}, u"上传完成!"_s);
    ASSERT_EQ(Added().size(), 1U);
    const KX_DATA::QuestionPicRecord& pic = Added().front();
    static const QRegularExpression guid(u"^[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}$"_s);
    EXPECT_TRUE(guid.match(pic.picId).hasMatch()) << pic.picId.toStdString();
    EXPECT_EQ(pic.fileName, u"梁.jpg");
    EXPECT_EQ(pic.uploaderName, u"engineer");
    EXPECT_EQ(pic.uploadTime, clock.NowSeconds());
    EXPECT_EQ(host.files.stored.at(pic.fileUuid), folder.Read(u"from/梁.jpg"_s));
    EXPECT_EQ(pic.fileSize, folder.Read(u"from/梁.jpg"_s).size());
    EXPECT_EQ(pic.fileMd5, gallery::FileMd5(file));
    const QString reduced = folder.Path(u"1/attachments/"_s + pic.picId + u".jpg"_s);
    EXPECT_EQ(pic.thumbMd5, gallery::FileMd5(reduced));
    EXPECT_EQ(pic.thumbSize, QFile(reduced).size());
    EXPECT_EQ(host.files.stored.count(pic.thumbUuid), 1U);
    EXPECT_EQ(LocalFiles(pic.fileUuid + u".jpg"_s).size(), 1);
}

TEST_F(RectifyUploadTest, TheServicesAreAskedInTheirOrder) {
    ASSERT_TRUE(OpenRectify());
    Log().Clear();
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传完成!"_s);
    const auto lines = Log().LinesOf({"Strip.ShowProgressBar", "UploadFile", "AddRectifyPics",
                                      "Strip.CloseProgressBar", "ShowMessage"});
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(lines[0], "Strip.ShowProgressBar(正在上传照片(1/1),0)");
    EXPECT_TRUE(QString::fromStdString(lines[1]).contains(u"/from/a.jpg"_s)) << lines[1];
    EXPECT_TRUE(QString::fromStdString(lines[2]).contains(u"/1/attachments/"_s)) << lines[2];
    EXPECT_EQ(lines[3], "AddRectifyPics(kind=0,id=q1,count=1)");
    EXPECT_EQ(lines[4], "Strip.CloseProgressBar()");
    EXPECT_EQ(lines[5], "ShowMessage(上传完成!)");
}

TEST_F(RectifyUploadTest, OfThreeFilesWithAnUnreadableSecondTwoAreAddedAndTheCounterRestarts) {
    ASSERT_TRUE(OpenRectify());
    const QStringList files{Jpeg(u"a.jpg"_s), NoPicture(u"b.jpg"_s), Jpeg(u"c.jpg"_s)};
    PickAndWait(files, u"上传完成!"_s);
    EXPECT_THAT(AddedNames(), ElementsAre("a.jpg", "c.jpg"));
    EXPECT_EQ(Uuids(Rectify()).size(), 4U);
    EXPECT_EQ(Rectify().Pics().size(), 4U);
    EXPECT_TRUE(ModuleLog().contains(u"上传照片失败,文件=b.jpg"_s));
    Log().Clear();
    PickAndWait({Jpeg(u"d.jpg"_s)}, u"上传完成!"_s);
    EXPECT_THAT(Log().LinesOf({"Strip.ShowProgressBar"}),
                ElementsAre("Strip.ShowProgressBar(正在上传照片(1/1),0)"));
}

TEST_F(RectifyUploadTest, WithNoReadableFileItFailsAndNoRecordIsAdded) {
    ASSERT_TRUE(OpenRectify());
    PickAndWait({NoPicture(u"a.jpg"_s), NoPicture(u"b.png"_s)}, u"上传失败!"_s);
    EXPECT_EQ(Log().CountOf("AddRectifyPics") + Log().CountOf("UploadFile"), 0);
    EXPECT_TRUE(Rectify().UploadButton()->isEnabled());
    EXPECT_FALSE(host.strip.isOpen);
}

TEST_F(RectifyUploadTest, ALockedFileStopsTheUploadAndTheFreeOneGoesAlongWithTheNext) {
    ASSERT_TRUE(OpenRectify());
    prompts.ExpectOpenFiles(kFilter, {Jpeg(u"free.jpg"_s), Locked(u"x.jpg"_s)});
    prompts.ExpectMessage(u"文件已被占用"_s);
    support::Click(Rectify().UploadButton());
    EXPECT_FALSE(Rectify().IsUploading());
    EXPECT_EQ(Log().CountOf("UploadFile"), 0);
    PickAndWait({Jpeg(u"next.jpg"_s)}, u"上传完成!"_s);
    EXPECT_THAT(AddedNames(), ElementsAre("free.jpg", "next.jpg"));
}

TEST_F(RectifyUploadTest, ACancelledDialogUploadsNothing) {
    ASSERT_TRUE(OpenRectify());
    Pick({});
    EXPECT_FALSE(Rectify().IsUploading());
    EXPECT_EQ(Log().CountOf("Strip.ShowProgressBar"), 0);
}

TEST_F(RectifyUploadTest, APngIsKeptUnderItsOwnEndingWhereTheGalleryDoesNotLookForIt) {
    ASSERT_TRUE(OpenRectify());
    PickAndWait({Png(u"a.png"_s)}, u"上传完成!"_s);
    const QString uuid = Added().front().fileUuid;
    EXPECT_EQ(LocalFiles(uuid + u".png"_s).size(), 1);
    EXPECT_TRUE(Rectify().State().items.back().picPath.endsWith(uuid + u".jpg"_s));
    Log().Clear();
    EXPECT_TRUE(support::WaitFor([this] {
        return Log().CountOf("StartDownload") > 0 ||
               !LocalFiles(Added().front().fileUuid + u".jpg"_s).isEmpty();
    })) << "fetched at first view";
}

TEST_F(RectifyUploadTest, AFileThatFailsInAnyOfItsTransfersIsSkipped) {
    ASSERT_TRUE(OpenRectify());
    // Of three files the first, the second of the middle one's and the last one's whole picture.
    for (const int failing : {0, 3, 4}) {
        int call = 0;
        host.script.During("UploadFile", [this, &call, failing] {
            if (++call == failing + 1) {
                host.script.FailNext("UploadFile");
            }
        });
        host.script.Succeed("UploadFile");
        PickAndWait({Jpeg(u"a.jpg"_s), Jpeg(u"b.jpg"_s), Jpeg(u"c.jpg"_s)}, u"上传完成!"_s);
        EXPECT_EQ(Added().size(), 2U) << failing;
    }
}

TEST_F(RectifyUploadTest, ATransferWithoutAUuidDoesNotCount) {
    ASSERT_TRUE(OpenRectify());
    host.script.FailAlways("UploadFile");
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传失败!"_s);
    EXPECT_EQ(Rectify().Pics().size(), 2U);
}

TEST_F(RectifyUploadTest, RecordsThatTheServiceRefusesAreNotShown) {
    ASSERT_TRUE(OpenRectify());
    host.script.FailNext("AddRectifyPics");
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传失败!"_s);
    EXPECT_EQ(Rectify().Pics().size(), 2U);
    EXPECT_EQ(Uuids(Rectify()).size(), 2U);
}

TEST_F(RectifyUploadTest, AfterAFailureUploadingIsEnabledWhateverTheRightsAreByThen) {
    ASSERT_TRUE(OpenRectify());
    host.script.FailAlways("UploadFile");
    host.global.worksetMode = true;
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传失败!"_s);
    EXPECT_TRUE(Rectify().UploadButton()->isEnabled());
}

TEST_F(RectifyUploadTest, WhileItRunsTheWindowIsInUseAndOnlyTheUploadIsDisabled) {
    ASSERT_TRUE(OpenRectify());
    HoldFirstUpload();
    Pick({Jpeg(u"a.jpg"_s), Jpeg(u"b.jpg"_s)});
    EXPECT_TRUE(support::WaitFor([this] { return host.strip.texts.size() > 1; }));
    EXPECT_EQ(host.strip.texts.back(), u"正在上传照片(1/2)");
    EXPECT_FALSE(Rectify().UploadButton()->isEnabled());
    EXPECT_TRUE(Rectify().DeleteButton()->isEnabled());
    Wrap().TabWnd()->SetActiveTab(0);
    Wrap().TabWnd()->SetActiveTab(1);
    Rectify().ApplyRights();
    EXPECT_FALSE(Rectify().UploadButton()->isEnabled());
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_TRUE(Rectify().UploadButton()->isEnabled());
}

TEST_F(RectifyUploadTest, TheStripSaysWhichFileIsUploaded) {
    ASSERT_TRUE(OpenRectify());
    HoldUpload(3);
    Pick({Jpeg(u"a.jpg"_s), Jpeg(u"b.jpg"_s)});
    EXPECT_TRUE(support::WaitFor([this] {
        return !host.strip.texts.empty() && host.strip.texts.back() == u"正在上传照片(2/2)"_s;
    }));
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
}

TEST_F(RectifyUploadTest, TheRectifierIsTheUserThenAndTheLineSaysSoLater) {
    ASSERT_TRUE(OpenRectify());
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传完成!"_s);
    EXPECT_EQ(Rectify().Rectify().rectifierName, u"engineer");
    EXPECT_EQ(TextOf(Rectify(), "rectifierText"), u"    整改人：王五");
}

TEST_F(RectifyUploadTest, AnotherIssueThatIsShownByThenGetsNothingOfIt) {
    ASSERT_TRUE(OpenRectify());
    HoldFirstUpload();
    Pick({Jpeg(u"a.jpg"_s)});
    ASSERT_TRUE(OpenRectify(u"q2"_s));
    EXPECT_FALSE(Rectify().UploadButton()->isEnabled());
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_THAT(Log().LinesOf({"AddRectifyPics"}),
                ElementsAre("AddRectifyPics(kind=0,id=q1,count=1)"));
    EXPECT_THAT(Rectify().Pics(), IsEmpty());
    EXPECT_EQ(Rectify().Rectify().rectifierName, QString());
    EXPECT_TRUE(Rectify().UploadButton()->isEnabled());
}

TEST_F(RectifyUploadTest, AWindowThatWasClosedMeanwhileStaysHiddenAndTheIssueHasItsPictures) {
    ASSERT_TRUE(OpenRectify());
    HoldFirstUpload();
    Pick({Jpeg(u"a.jpg"_s)});
    Wrap().Widget()->close();
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_FALSE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Log().CountOf("AddRectifyPics"), 1);
}

TEST_F(RectifyUploadTest, AWindowThatEndedMeanwhileLeavesTheIssueItsPicturesAndTheStripClosed) {
    ASSERT_TRUE(OpenRectify());
    HoldFirstUpload();
    Pick({Jpeg(u"a.jpg"_s)});
    Wrap().Destroy();
    LetGo();
    EXPECT_TRUE(support::WaitFor([] { return !Rectify().IsUploading(); }));
    EXPECT_EQ(Log().CountOf("AddRectifyPics"), 1);
    EXPECT_FALSE(host.strip.isOpen);
}

TEST_F(RectifyUploadTest, AChangeOfProjectMeanwhileKeepsItsFolder) {
    ASSERT_TRUE(OpenRectify());
    HoldFirstUpload();
    Pick({Jpeg(u"a.jpg"_s)});
    host.project.project = KX_DATA::ProjectRecord{u"另一个"_s, 2};
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_EQ(LocalFiles(Added().front().fileUuid + u".jpg"_s).size(), 1);
}

TEST_F(RectifyUploadTest, TheEndOfTheApplicationStopsBeforeTheNextFile) {
    ASSERT_TRUE(OpenRectify());
    HoldFirstUpload();
    Pick({Jpeg(u"a.jpg"_s), Jpeg(u"b.jpg"_s), Jpeg(u"c.jpg"_s)});
    ASSERT_TRUE(support::WaitFor([this] { return Log().CountOf("UploadFile") == 1; }));
    std::jthread later([this] { LetGo(); });
    issues::JoinUploads();
    EXPECT_LE(Log().CountOf("UploadFile"), 2);
    EXPECT_EQ(Log().CountOf("AddRectifyPics"), 0);
    Wrap().Destroy();
}

TEST_F(RectifyUploadTest, AFileThatVanishedOrIsEmptyIsSkipped) {
    ASSERT_TRUE(OpenRectify());
    const QString gone = Jpeg(u"gone.jpg"_s);
    const QString empty = folder.Write(u"from/empty.jpg"_s, {});
    prompts.ExpectOpenFiles(kFilter, {gone, empty, Jpeg(u"a.jpg"_s)});
    HoldFirstUpload();
    // Gone between the choice and its turn: the first file is reduced before anything else.
    host.script.During("Strip.ShowProgressBar", [gone] { QFile::remove(gone); });
    support::Click(Rectify().UploadButton());
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_THAT(AddedNames(), ElementsAre("a.jpg"));
}

TEST_F(RectifyUploadTest, ALongNameIsTakenAsItIs) {
    ASSERT_TRUE(OpenRectify());
    const QString name = QString(80, u'梁') + u".jpg"_s;
    PickAndWait({Jpeg(name)}, u"上传完成!"_s);
    EXPECT_EQ(Added().front().fileName, name);
}

TEST_F(RectifyUploadTest, AnEndingThatIsTheRestOfAPathLeadsNowhere) {
    ASSERT_TRUE(OpenRectify());
    PickAndWait({folder.Write(u"from/a.b/noext"_s,
                              support::JpegBytes(support::CornerMarked(QSize(40, 30))))},
                u"上传完成!"_s);
    EXPECT_EQ(LocalFiles(Added().front().fileUuid).size(), 1);
}
