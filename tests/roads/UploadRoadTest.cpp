// Pictures of a rectification on their way into the site, with the whole client.
#include "site/IBin.h"
#include "site/IBlobs.h"
#include "site/IIssues.h"
#include "site/OpenSite.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QDir>
#include <QPushButton>
#include <QTabBar>

#include <memory>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

const QString kPictures = u"全部图片(*) (*.jpeg *.jpg *.png *.tif *.tiff *.gif *.jpe *.bmp);;"
                          u"jpg,jpeg文件(*.jpg;*.jpeg) (*.jpeg *.jpg);;"
                          u"png文件(*.png) (*.png);;"
                          u"tif,tiff文件(*.tif;*.tiff) (*.tif *.tiff);;"
                          u"gif,jpe文件(*.gif;*.jpe) (*.gif *.jpe);;"
                          u"bmp文件(*.bmp) (*.bmp)"_s;

/// The viewer stands open on the rectification of an issue that has no pictures.
class UploadRoad : public PhotoRoad {
protected:
    void Furnish() override {
        PhotoRoad::Furnish();
        site::SiteWriter writer(support::FolderOf(session));
        site::NewIssue raised;
        raised.ppid = site.firstProject;
        raised.theme = u"柱脚裂缝"_s;
        raised.floor = u"1"_s;
        raised.componentName = u"KZ-1"_s;
        raised.markId = 1;
        raised.creator = u"张伟"_s;
        raised.createTime = 1'700'000'000;
        issue = writer.FileIssue(raised);
    }
    void SetUp() override {
        PhotoRoad::SetUp();
        ASSERT_TRUE(Press(Qt::Key_3));
        ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() > 0; }));
        ClickRowIcon(int(ConsoleColumnTexts(u"问题主题"_s).indexOf(u"柱脚裂缝"_s)), u"反查"_s);
        ASSERT_TRUE(WaitFor([] { return IssueViewer() != nullptr; }));
        auto* strip = tour::FindIn(IssueViewer(), u"issueTabs"_s)->findChild<QTabBar*>();
        strip->setCurrentIndex(1);
        ASSERT_NE(UploadButton(), nullptr);
    }
    [[nodiscard]] static QWidget* IssueViewer() { return tour::FindWindow(u"TNPicViewWrap"_s); }
    [[nodiscard]] static QPushButton* UploadButton() {
        return qobject_cast<QPushButton*>(tour::FindIn(IssueViewer(), u"uploadButton"_s));
    }
    [[nodiscard]] QString Picture(const QString& name) const {
        QDir(folder.Path()).mkpath(u"from"_s);
        const QString path = folder.Path(u"from/"_s + name);
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        EXPECT_TRUE(image.save(path, "JPG"));
        return path;
    }
    [[nodiscard]] QString NoPicture() const {
        const QString path = folder.Path(u"text.jpg"_s);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("text") == 4);
        return path;
    }
    void Pick(support::AnsweredPrompts& prompts, const QStringList& files) {
        prompts.ExpectOpenFiles(kPictures, files);
        ClickOn(*IssueViewer(), u"uploadButton"_s);
    }
    /// As another client finds them.
    [[nodiscard]] std::vector<KX_DATA::QuestionPicRecord> Stored() const {
        const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        EXPECT_NE(other.site, nullptr);
        KX_DATA::RectifyRecord record;
        EXPECT_TRUE(other.site->Issues().Rectification({site.firstProject}, issue, record));
        for (const KX_DATA::QuestionPicRecord& pic : record.pics) {
            EXPECT_GT(other.site->Blobs().SizeOf(pic.fileUuid, {}), 0) << "whole";
            EXPECT_GT(other.site->Blobs().SizeOf(pic.thumbUuid, {}), 0) << "reduced";
        }
        return record.pics;
    }

    QString issue;
};

TEST_F(UploadRoad, OfThreeFilesOneOfWhichIsNoImageTwoArePicturesOfTheRectification) {
    support::AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(kPictures, {Picture(u"梁.jpg"_s), NoPicture(), Picture(u"柱.jpg"_s)});
    prompts.ExpectMessage(u"上传完成!"_s);
    ClickOn(*IssueViewer(), u"uploadButton"_s);
    ASSERT_TRUE(WaitFor([&] { return prompts.AllAnswered(); }));
    const auto stored = Stored();
    ASSERT_EQ(stored.size(), 2U);
    EXPECT_EQ(stored[0].fileName, u"梁.jpg"_s);
    EXPECT_EQ(stored[1].fileName, u"柱.jpg"_s);
    EXPECT_EQ(stored[0].uploaderName, u"张伟"_s);
    EXPECT_EQ(tour::FindWindow(u"progressStrip"_s), nullptr);
}

TEST_F(UploadRoad, AClientThatEndsDuringAnUploadFilesNothingHalf) {
    session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    auto prompts = std::make_unique<support::AnsweredPrompts>();
    Pick(*prompts, {Picture(u"梁.jpg"_s), Picture(u"柱.jpg"_s)});
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"progressStrip"_s) != nullptr; }));
    End();
    EXPECT_EQ(Stored().size(), 0U);
}

TEST_F(UploadRoad, AChangeOfProjectDuringAnUploadLeavesTheIssueItsPictures) {
    session.Desk()->SetRules({300});
    support::AnsweredPrompts prompts;
    Pick(prompts, {Picture(u"梁.jpg"_s), Picture(u"柱.jpg"_s)});
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"progressStrip"_s) != nullptr; }));
    ASSERT_TRUE(session.OpenProject(site.secondProject));
    prompts.ExpectMessage(u"上传完成!"_s);
    EXPECT_TRUE(WaitFor([&] { return prompts.AllAnswered(); }));
    EXPECT_EQ(Stored().size(), 2U);
    EXPECT_EQ(tour::FindWindow(u"progressStrip"_s), nullptr);
}

TEST_F(UploadRoad, AnIssueThatAnotherClientDeletesMeanwhileTakesNoPictures) {
    session.Desk()->SetRules({300});
    support::AnsweredPrompts prompts;
    Pick(prompts, {Picture(u"梁.jpg"_s)});
    {
        const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        ASSERT_NE(other.site, nullptr);
        other.site->Bin().DeleteIssues({site.firstProject}, {issue}, {u"李娜"_s, 1'700'000'000});
    }
    prompts.ExpectMessage(u"上传失败!"_s);
    EXPECT_TRUE(WaitFor([&] { return prompts.AllAnswered(); }));
    EXPECT_TRUE(IssueViewer()->isVisible());
}

} // namespace
} // namespace roads
