// The dialog for a new issue and its list of pictures.
#include "hands/Hands.h"
#include "host/ui/issues/PictureCheck.h"
#include "host/ui/issues/RaiseIssueDialog.h"
#include "tests/host/ui/PickSamples.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

const QString kLeaveQuestion = u"问题还没有登记，关闭后已填写的内容会丢失。要关闭吗？"_s;

class RaisingAnIssue : public testing::Test {
protected:
    RaisingAnIssue() {
        QObject::connect(dialog, &RaiseIssueDialog::PickWanted, [this] { ++picks; });
        QObject::connect(dialog, &RaiseIssueDialog::FilingWanted,
                         [this](const IssueDraft& draft) { filed.push_back(draft); });
        dialog->show();
    }
    ~RaisingAnIssue() override { delete dialog; }

    template <class Control> [[nodiscard]] Control& Find(const QString& name) const {
        return *dialog->findChild<Control*>(name);
    }
    void File() const { Find<QPushButton>(u"fileIssue"_s).click(); }
    [[nodiscard]] QString Fault() const {
        const auto& label = Find<QLabel>(u"faultLabel"_s);
        return label.isVisible() ? label.text() : QString();
    }
    [[nodiscard]] QString Picture(const QString& name, QSize size = {640, 480}) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(folder.Path(name)));
        return folder.Path(name);
    }
    [[nodiscard]] QString File(const QString& name, const QByteArray& bytes) const {
        QFile file(folder.Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return folder.Path(name);
    }
    [[nodiscard]] static PlanComponent Column() { return hosttest::ComponentsOf(u"1"_s)[1]; }

    support::TempFolder folder;
    QPointer<RaiseIssueDialog> dialog =
        new RaiseIssueDialog(nullptr, {{1, {u"质量"_s, 0x0000FF}}, {2, {u"安全"_s, 0x00FF00}}});
    int picks = 0;
    std::vector<IssueDraft> filed;
};

TEST_F(RaisingAnIssue, HandsOverWhatWasFilledIn) {
    const QString path = Picture(u"裂缝.jpg"_s);
    Find<QLineEdit>(u"subjectEdit"_s).setText(u" 柱脚裂缝 "_s);
    Find<QComboBox>(u"markCombo"_s).setCurrentIndex(1);
    Find<QPlainTextEdit>(u"descriptionEdit"_s).setPlainText(u"宽 0.3 mm"_s);
    dialog->SetComponent(Column());
    dialog->AddPictures({path});
    EXPECT_EQ(Find<QLabel>(u"componentText"_s).text(), u"1层 框架柱 KZ-1"_s);
    File();
    ASSERT_EQ(filed.size(), 1U);
    EXPECT_EQ(filed[0].subject, u"柱脚裂缝"_s);
    EXPECT_EQ(filed[0].markId, 2);
    EXPECT_EQ(filed[0].description, u"宽 0.3 mm"_s);
    EXPECT_EQ(filed[0].component.handle, u"c1"_s);
    ASSERT_EQ(filed[0].pictures.size(), 1U);
    EXPECT_EQ(filed[0].pictures[0].path, path);
    EXPECT_TRUE(dialog->isVisible());
    dialog->accept();
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(RaisingAnIssue, ItsQuestionsLieOnItAndNotOnTheMainWindow) {
    QWidget main;
    const toolkit::WindowId mainId =
        toolkit::RegisterWindow(&main, [](const toolkit::WindowEvent&) { return 0; });
    delete dialog;
    dialog = new RaiseIssueDialog(&main, {});
    dialog->show();
    Find<QLineEdit>(u"subjectEdit"_s).setText(u"柱脚裂缝"_s);
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(kLeaveQuestion, false);
    dialog->close();
    ASSERT_EQ(prompts.Parents().size(), 1U);
    EXPECT_NE(prompts.Parents()[0], mainId);
    EXPECT_EQ(toolkit::WidgetOf(prompts.Parents()[0]), dialog);
    delete dialog;
}

TEST_F(RaisingAnIssue, WhereTheFormScrollsAFaultIsBroughtIntoSight) {
    // As on a screen that is too low for the form.
    auto* area = new QScrollArea(dialog);
    auto* page = new QWidget;
    page->setLayout(dialog->layout());
    area->setWidgetResizable(true);
    area->setWidget(page);
    area->resize(520, 200);
    area->show();
    dialog->resize(520, 200);
    support::RunPendingEvents();
    File();
    support::RunPendingEvents();
    const auto& fault = Find<QLabel>(u"faultLabel"_s);
    EXPECT_EQ(Fault(), u"问题名称不能为空"_s);
    EXPECT_FALSE(fault.visibleRegion().isEmpty());
}

TEST_F(RaisingAnIssue, ASubjectIsNeededFirstThenAComponent) {
    Find<QLineEdit>(u"subjectEdit"_s).setText(u"   "_s);
    File();
    EXPECT_EQ(Fault(), u"问题名称不能为空"_s);
    EXPECT_EQ(dialog->focusWidget(), &Find<QLineEdit>(u"subjectEdit"_s));
    Find<QLineEdit>(u"subjectEdit"_s).setText(u"裂缝"_s);
    File();
    EXPECT_EQ(Fault(), u"请选择一个构件！"_s);
    EXPECT_EQ(dialog->focusWidget(), &Find<QPushButton>(u"pickButton"_s));
    EXPECT_TRUE(filed.empty());
    dialog->SetComponent(Column());
    EXPECT_EQ(Fault(), QString());
    File();
    EXPECT_EQ(filed.size(), 1U);
}

TEST_F(RaisingAnIssue, SubjectAndDescriptionHaveTheirLimits) {
    auto& subject = Find<QLineEdit>(u"subjectEdit"_s);
    subject.setFocus();
    QTest::keyClicks(&subject, u"b"_s.repeated(60));
    EXPECT_EQ(subject.text().size(), 50);
    auto& description = Find<QPlainTextEdit>(u"descriptionEdit"_s);
    description.setFocus();
    QTest::keyClicks(&description, u"a"_s.repeated(300));
    EXPECT_EQ(description.toPlainText().size(), 255);
}

TEST_F(RaisingAnIssue, ThePickIsAskedForAndChangesNothingOfWhatWasTyped) {
    Find<QLineEdit>(u"subjectEdit"_s).setText(u"裂缝"_s);
    Find<QPushButton>(u"pickButton"_s).click();
    EXPECT_EQ(picks, 1);
    dialog->hide();
    dialog->show();
    EXPECT_EQ(Find<QLineEdit>(u"subjectEdit"_s).text(), u"裂缝"_s);
}

TEST_F(RaisingAnIssue, PicturesShowAsThumbnailsOnceEach) {
    const QString one = Picture(u"1.jpg"_s);
    dialog->AddPictures({one, Picture(u"2.png"_s), one});
    auto& list = Find<QListWidget>(u"pictureList"_s);
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(Find<QLabel>(u"pictureNote"_s).text(), u"共 2 张图片"_s);
    EXPECT_TRUE(support::WaitFor([&] {
        const QImage icon = list.item(1)->icon().pixmap(QSize(96, 72)).toImage();
        return icon.pixelColor(icon.rect().center()) == QColor(Qt::red);
    }));
}

TEST_F(RaisingAnIssue, OneOfThePicturesIsRemovedByKeyAndItsFileStays) {
    const QString one = Picture(u"1.jpg"_s);
    dialog->AddPictures({one, Picture(u"2.jpg"_s)});
    auto& list = Find<QListWidget>(u"pictureList"_s);
    EXPECT_FALSE(Find<QPushButton>(u"removeButton"_s).isEnabled());
    list.setFocus();
    list.item(0)->setSelected(true);
    EXPECT_TRUE(Find<QPushButton>(u"removeButton"_s).isEnabled());
    ASSERT_TRUE(support::WaitFor([&] { return hands::PressKey(&list, Qt::Key_Delete); }));
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->text(), u"2.jpg"_s);
    EXPECT_TRUE(QFile::exists(one));
}

TEST_F(RaisingAnIssue, WhatIsNoPictureIsRefusedByNameAndTheOthersCome) {
    ASSERT_TRUE(QDir().mkdir(folder.Path(u"夹"_s)));
    QFile huge(folder.Path(u"huge.jpg"_s));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    ASSERT_TRUE(huge.resize(kMostPictureBytes));
    huge.close();
    dialog->AddPictures({File(u"空.jpg"_s, {}), File(u"文本.jpg"_s, "no picture"),
                         Picture(u"好.jpg"_s), folder.Path(u"没有.jpg"_s), folder.Path(u"夹"_s),
                         huge.fileName()});
    EXPECT_EQ(Find<QListWidget>(u"pictureList"_s).count(), 1);
    EXPECT_EQ(Fault(), u"没有添加：“空.jpg”是空文件（0 字节）；“文本.jpg”不是能读取的图片；"
                       "“没有.jpg”已不存在；“夹”不是文件；“huge.jpg”超过 2 GB。"_s);
}

TEST_F(RaisingAnIssue, PicturesAreChosenInAFileDialogAndDropped) {
    support::AnsweredPrompts prompts;
    const QString filter = u"图片 (*.jpg *.jpeg *.png *.bmp *.gif);;所有文件 (*)"_s;
    prompts.ExpectOpenFiles(filter, {Picture(u"1.jpg"_s)});
    Find<QPushButton>(u"addButton"_s).click();
    prompts.ExpectOpenFiles(filter, {});
    Find<QPushButton>(u"addButton"_s).click();
    auto& list = Find<QListWidget>(u"pictureList"_s);
    EXPECT_EQ(list.count(), 1);
    const QString other = Picture(u"2.jpg"_s);
    EXPECT_TRUE(support::WaitFor([&] { return hands::DropPaths(&list, {other}); }));
    EXPECT_EQ(list.count(), 2);
}

TEST_F(RaisingAnIssue, WhatWasBegunIsOnlyGivenUpAfterAQuestion) {
    support::AnsweredPrompts prompts;
    Find<QLineEdit>(u"subjectEdit"_s).setText(u"裂缝"_s);
    prompts.ExpectYesNo(kLeaveQuestion, false);
    dialog->close();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(Find<QLineEdit>(u"subjectEdit"_s).text(), u"裂缝"_s);
    prompts.ExpectYesNo(kLeaveQuestion, true);
    dialog->reject();
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(RaisingAnIssue, WhatWasNotBegunClosesWithoutAQuestion) {
    const support::AnsweredPrompts prompts;
    dialog->close();
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(RaisingAnIssue, AnotherProjectTakesTheComponentBackAndLeavesTheTexts) {
    Find<QLineEdit>(u"subjectEdit"_s).setText(u"裂缝"_s);
    dialog->TakeComponentBack();
    EXPECT_EQ(Fault(), QString());
    dialog->SetComponent(Column());
    dialog->TakeComponentBack();
    EXPECT_EQ(Fault(), u"工程已更换，请重新选择构件。"_s);
    File();
    EXPECT_TRUE(filed.empty());
    EXPECT_EQ(Find<QLineEdit>(u"subjectEdit"_s).text(), u"裂缝"_s);
}

TEST(ReducedPictures, KeepTheirShapeAndAreNeverEnlarged) {
    const support::TempFolder folder;
    QImage image(1000, 250, QImage::Format_RGB32);
    image.fill(Qt::blue);
    ASSERT_TRUE(image.save(folder.Path(u"wide.png"_s)));
    EXPECT_EQ(ReducedPicture(folder.Path(u"wide.png"_s), {480, 360}).size(), QSize(480, 120));
    ASSERT_TRUE(image.copy(0, 0, 30, 20).save(folder.Path(u"small.png"_s)));
    EXPECT_EQ(ReducedPicture(folder.Path(u"small.png"_s), {480, 360}).size(), QSize(30, 20));
    EXPECT_TRUE(ReducedPicture(folder.Path(u"none.png"_s), {480, 360}).isNull());
}

} // namespace
} // namespace host
