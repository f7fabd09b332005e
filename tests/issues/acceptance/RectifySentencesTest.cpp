// The rectification page's promises: uploads and deletions.
#include "issues/RectifyUpload.h"

#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTest>
#include <gmock/gmock.h>

#include <semaphore>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString kAllPictures = u"全部图片(*) (*.jpeg *.jpg *.png *.tif *.tiff *.gif *.jpe *.bmp);;"
                             u"jpg,jpeg文件(*.jpg;*.jpeg) (*.jpeg *.jpg);;"
                             u"png文件(*.png) (*.png);;"
                             u"tif,tiff文件(*.tif;*.tiff) (*.tif *.tiff);;"
                             u"gif,jpe文件(*.gif;*.jpe) (*.gif *.jpe);;"
                             u"bmp文件(*.bmp) (*.bmp)"_s;

class RectifySentencesTest : public IssueFixture {
protected:
    QString Jpeg(const QString& name) {
        return folder.Write(u"from/"_s + name,
                            support::JpegBytes(support::CornerMarked(QSize(40, 30))));
    }
    void Pick(const QStringList& files) {
        prompts.ExpectOpenFiles(kAllPictures, files);
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
    [[nodiscard]] bool IsLocal(const QString& name) const {
        return QFile::exists(folder.Path(u"1/attachments/"_s + name));
    }
    void HoldUpload() {
        host.script.During("UploadFile", [this] {
            if (!m_held) {
                m_held = true;
                m_gate.acquire();
            }
        });
    }
    void LetGo() { m_gate.release(); }

    ~RectifySentencesTest() override {
        m_gate.release();
        issues::JoinUploads();
    }

private:
    bool m_held = false; ///< asked by the upload's thread alone
    std::counting_semaphore<4> m_gate{0};
};

} // namespace

TEST_F(RectifySentencesTest, ThirtyFilesBecomeThirtyRecordsInTheirOrder) {
    ASSERT_TRUE(OpenRectify());
    QStringList files;
    std::vector<std::string> names;
    for (int number = 1; number <= 30; ++number) {
        const QString name = u"%1.jpg"_s.arg(number);
        files.push_back(Jpeg(name));
        names.push_back(name.toStdString());
    }
    PickAndWait(files, u"上传完成!"_s);
    EXPECT_EQ(AddedNames(), names);
    EXPECT_EQ(host.strip.texts.front(), u"正在上传照片(1/30)");
    EXPECT_EQ(Log().CountOf("UploadFile"), 60);
    EXPECT_EQ(Log().CountOf("AddRectifyPics"), 1);
    EXPECT_EQ(Uuids(Rectify()).size(), 32U);
    EXPECT_FALSE(host.strip.isOpen);
}

TEST_F(RectifySentencesTest, NamesWithQuotesPercentAndLineBreaksArriveAsTheyAre) {
    ASSERT_TRUE(OpenRectify());
    const QStringList names{u"it's \"5%1\".jpg"_s, u"a\nb.jpg"_s, u"%s&<b>.jpg"_s};
    PickAndWait({Jpeg(names[0]), Jpeg(names[1]), Jpeg(names[2])}, u"上传完成!"_s);
    ASSERT_EQ(Added().size(), 3U);
    for (int at = 0; at < 3; ++at) {
        EXPECT_EQ(Added()[size_t(at)].fileName, names[at]);
    }
}

TEST_F(RectifySentencesTest, AnUpperCaseEndingIsKeptInTheFolder) {
    ASSERT_TRUE(OpenRectify());
    PickAndWait({Jpeg(u"a.b.JPEG"_s)}, u"上传完成!"_s);
    ASSERT_EQ(Added().size(), 1U);
    EXPECT_EQ(Added()[0].fileName, u"a.b.JPEG");
    EXPECT_TRUE(IsLocal(Added()[0].fileUuid + u".JPEG"_s));
    EXPECT_TRUE(IsLocal(Added()[0].picId + u".jpg"_s));
}

TEST_F(RectifySentencesTest, TheReducedPictureIsAJpegOfTheSameSizeWhateverItWas) {
    ASSERT_TRUE(OpenRectify());
    const QByteArray png = support::PngBytes(support::CornerMarked(QSize(61, 37)));
    PickAndWait({folder.Write(u"from/a.PNG"_s, png)}, u"上传完成!"_s);
    ASSERT_EQ(Added().size(), 1U);
    QImageReader reduced(folder.Path(u"1/attachments/"_s + Added()[0].picId + u".jpg"_s));
    EXPECT_EQ(reduced.format(), "jpeg");
    EXPECT_EQ(reduced.size(), QSize(61, 37));
    EXPECT_EQ(host.files.stored.at(Added()[0].fileUuid), png);
    EXPECT_EQ(folder.Read(u"from/a.PNG"_s), png) << "the source is never altered";
}

TEST_F(RectifySentencesTest, WhatWaitsFromALockedPickGoesAlongEvenWithACancelledDialog) {
    ASSERT_TRUE(OpenRectify());
    prompts.ExpectOpenFiles(kAllPictures, {Jpeg(u"free.jpg"_s), folder.Path(u"from/none.jpg"_s)});
    prompts.ExpectMessage(u"文件已被占用"_s);
    support::Click(Rectify().UploadButton());
    EXPECT_EQ(Log().CountOf("UploadFile") + Log().CountOf("Strip.ShowProgressBar"), 0);
    EXPECT_TRUE(Rectify().UploadButton()->isEnabled());
    PickAndWait({}, u"上传完成!"_s);
    EXPECT_THAT(AddedNames(), ElementsAre("free.jpg"));
    Log().Clear();
    Pick({});
    EXPECT_EQ(Log().CountOf("Strip.ShowProgressBar"), 0) << "nothing waits any more";
}

TEST_F(RectifySentencesTest, WhatWaitsStandsBeforeTheNextPick) {
    ASSERT_TRUE(OpenRectify());
    prompts.ExpectOpenFiles(kAllPictures, {folder.Path(u"from/none.jpg"_s), Jpeg(u"z.jpg"_s)});
    prompts.ExpectMessage(u"文件已被占用"_s);
    support::Click(Rectify().UploadButton());
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传完成!"_s);
    EXPECT_THAT(AddedNames(), ElementsAre("z.jpg", "a.jpg"));
    EXPECT_EQ(host.strip.texts.front(), u"正在上传照片(1/2)");
}

TEST_F(RectifySentencesTest, ARefusedRecordLeavesRectifierPicturesAndNothingWaiting) {
    ASSERT_TRUE(OpenRectify());
    host.script.FailNext("AddRectifyPics");
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传失败!"_s);
    EXPECT_EQ(Rectify().Rectify().rectifierName, u"王五");
    EXPECT_TRUE(Rectify().UploadButton()->isEnabled());
    Log().Clear();
    Pick({});
    EXPECT_EQ(Log().CountOf("UploadFile"), 0);
}

TEST_F(RectifySentencesTest, WhenItIsOverThePictureOnShowStays) {
    ASSERT_TRUE(OpenRectify());
    QTest::keyClick(Rectify().Widget(), Qt::Key_Right);
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传完成!"_s);
    EXPECT_EQ(Rectify().State().currentIndex, 1);
    EXPECT_EQ(TextOf(Rectify(), "uploaderText"), u"    上传人：上传者r2");
}

TEST_F(RectifySentencesTest, TheFirstPictureOfARepairCanBeDeletedAgain) {
    ASSERT_TRUE(OpenRectify(u"q2"_s));
    ASSERT_FALSE(Rectify().DeleteButton()->isEnabled());
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传完成!"_s);
    EXPECT_TRUE(Rectify().DeleteButton()->isEnabled());
    EXPECT_EQ(TextOf(Rectify(), "uploaderText"), u"    上传人：engineer");
    const QString id = Added()[0].picId;
    prompts.ExpectOkCancel(u"确定删除当前照片!"_s, true);
    support::Click(Rectify().DeleteButton());
    EXPECT_EQ(Log().LinesOf({"DeleteRectifyPics"}).back(),
              "DeleteRectifyPics(kind=0,id=q2,ids=[" + id.toStdString() + "])");
    EXPECT_THAT(Uuids(Rectify()), IsEmpty());
}

TEST_F(RectifySentencesTest, TheUploadButtonComesBackBeforeTheWord) {
    ASSERT_TRUE(OpenRectify());
    Pick({Jpeg(u"a.jpg"_s)});
    bool isEnabled = false;
    bool isOpen = true;
    size_t shown = 0;
    prompts.ExpectMessage(u"上传完成!"_s);
    prompts.Meanwhile([&] {
        isEnabled = Rectify().UploadButton()->isEnabled();
        isOpen = host.strip.isOpen;
        shown = Uuids(Rectify()).size();
    });
    EXPECT_TRUE(WaitForEnd());
    EXPECT_TRUE(isEnabled);
    EXPECT_FALSE(isOpen);
    EXPECT_EQ(shown, 2U) << "the gallery follows the word";
    EXPECT_EQ(Uuids(Rectify()).size(), 3U);
}

TEST_F(RectifySentencesTest, OpenedReadOnlyMeanwhileTheButtonStaysDisabled) {
    ASSERT_TRUE(OpenRectify());
    HoldUpload();
    Pick({Jpeg(u"a.jpg"_s)});
    ASSERT_TRUE(Open(u"q1"_s, 1));
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_FALSE(Rectify().UploadButton()->isEnabled());
    EXPECT_EQ(Uuids(Rectify()).size(), 3U);
}

TEST_F(RectifySentencesTest, ADeletionWhileItRunsKeepsWhatIsUploaded) {
    ASSERT_TRUE(OpenRectify());
    HoldUpload();
    Pick({Jpeg(u"a.jpg"_s)});
    prompts.ExpectOkCancel(u"确定删除当前照片!"_s, true);
    support::Click(Rectify().DeleteButton());
    EXPECT_THAT(Uuids(Rectify()), ElementsAre("uuid-r2"));
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
    EXPECT_EQ(Uuids(Rectify()).size(), 2U);
}

TEST_F(RectifySentencesTest, ADeletionAsksFirstAndKeepsTheIndexBefore) {
    host.questions.rectifications[u"q1"_s].pics.push_back(Picture(u"r3"_s));
    ASSERT_TRUE(OpenRectify());
    QTest::keyClick(Rectify().Widget(), Qt::Key_Right);
    QTest::keyClick(Rectify().Widget(), Qt::Key_Right);
    Log().Clear();
    prompts.ExpectOkCancel(u"确定删除当前照片!"_s, true);
    support::Click(Rectify().DeleteButton());
    EXPECT_THAT(
        Log().LinesOf({"AskOkCancel", "DeleteRectifyPics", "ShowMessage"}),
        ElementsAre("AskOkCancel(确定删除当前照片!)", "DeleteRectifyPics(kind=0,id=q1,ids=[r3])"));
    EXPECT_EQ(Rectify().State().currentIndex, 1);
}

TEST_F(RectifySentencesTest, TheNewRectifierShowsAtTheNextRefresh) {
    ASSERT_TRUE(OpenRectify());
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传完成!"_s);
    Wrap().Refresh();
    EXPECT_EQ(TextOf(Rectify(), "rectifierText"), u"    整改人：engineer");
}

TEST_F(RectifySentencesTest, TheFolderIsOfTheCurrentProjectWhateverTheIssuesIs) {
    Row().ppid = 2;
    Wrap().readOnly = 0;
    ASSERT_TRUE(Wrap().ShowQuestion(2, u"q1"_s, mainWindow.Id()));
    Wrap().TabWnd()->SetActiveTab(1);
    PickAndWait({Jpeg(u"a.jpg"_s)}, u"上传完成!"_s);
    ASSERT_EQ(Added().size(), 1U);
    EXPECT_TRUE(IsLocal(Added()[0].fileUuid + u".jpg"_s));
    EXPECT_EQ(Uuids(Rectify()).size(), 3U) << "the issue is still on show";
}

TEST_F(RectifySentencesTest, TheProgressIsSetByTheTimerAfterTheStripWasOpened) {
    ASSERT_TRUE(OpenRectify());
    Log().Clear();
    HoldUpload();
    Pick({Jpeg(u"a.jpg"_s)});
    EXPECT_TRUE(support::WaitFor([this] { return Log().CountOf("Strip.SetShowInfo") == 1; }));
    EXPECT_THAT(Log().LinesOf({"Strip.ShowProgressBar", "Strip.SetShowInfo"}),
                ElementsAre("Strip.ShowProgressBar(正在上传照片(1/1),0)",
                            "Strip.SetShowInfo(正在上传照片(1/1))"));
    prompts.ExpectMessage(u"上传完成!"_s);
    LetGo();
    EXPECT_TRUE(WaitForEnd());
}
