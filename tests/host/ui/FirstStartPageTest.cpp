#include "host/ui/FirstStartPage.h"

#include "host/ui/ChoiceCard.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class FirstPage : public testing::Test {
protected:
    void SetUp() override { Show(); }
    void Show() {
        page.show();
        page.activateWindow();
        ASSERT_TRUE(support::WaitFor([this] { return page.isActiveWindow(); }));
    }
    [[nodiscard]] ChoiceCard* Card(const QString& name) const {
        return page.findChild<ChoiceCard*>(name);
    }
    [[nodiscard]] QPushButton* Button(const QString& name) const {
        return page.findChild<QPushButton*>(name);
    }
    [[nodiscard]] QLineEdit* Field(const QString& name) const {
        return page.findChild<QLineEdit*>(name);
    }
    [[nodiscard]] QString LabelText(const QString& name) const {
        return page.findChild<QLabel*>(name)->text();
    }
    static QString FocusName() {
        return QApplication::focusWidget() == nullptr ? QString()
                                                      : QApplication::focusWidget()->objectName();
    }
    static void PressHere(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void OpenForm() { Card(u"chooseNewSite"_s)->click(); }
    void FillForm() {
        OpenForm();
        Field(u"firstProject"_s)->setText(u" 一号楼 "_s);
        Field(u"firstPerson"_s)->setText(u" 王强 "_s);
    }

    FirstStartPage page{{u"/data/here"_s, {}, [](const QString&, const QString& person) {
                             return person == u"谁"_s ? u"不能叫“谁”。"_s : QString();
                         }}};
};

TEST_F(FirstPage, EachChoiceHasAPictureATitleAndTwoSentences) {
    for (const QString& name : {u"chooseSample"_s, u"chooseNewSite"_s, u"chooseFolder"_s}) {
        const ChoiceCard* card = Card(name);
        ASSERT_NE(card, nullptr) << name.toStdString();
        EXPECT_FALSE(card->accessibleName().isEmpty());
        EXPECT_EQ(card->accessibleDescription().count(u'。'), 2) << name.toStdString();
        EXPECT_FALSE(card->findChild<QLabel*>()->pixmap().isNull());
    }
}

TEST_F(FirstPage, EnterTakesTheFirstChoiceAndTheArrowsGoToTheOthers) {
    EXPECT_EQ(FocusName(), u"chooseSample"_s);
    PressHere(Qt::Key_Down);
    EXPECT_EQ(FocusName(), u"chooseNewSite"_s);
    PressHere(Qt::Key_Down);
    EXPECT_EQ(FocusName(), u"chooseFolder"_s);
    PressHere(Qt::Key_Up);
    PressHere(Qt::Key_Up);
    PressHere(Qt::Key_Return);
    EXPECT_EQ(page.result(), QDialog::Accepted);
    EXPECT_EQ(page.Choice(), FirstChoice::Sample);
    EXPECT_EQ(page.Folder(), u"/data/here"_s);
}

TEST_F(FirstPage, TabGoesThroughTheChoicesToTheWayOut) {
    QStringList order;
    for (int step = 0; step < 5; ++step) {
        order << FocusName();
        PressHere(Qt::Key_Tab);
    }
    EXPECT_EQ(order, (QStringList{u"chooseSample"_s, u"chooseNewSite"_s, u"chooseFolder"_s,
                                  u"firstQuit"_s, u"chooseSample"_s}));
}

TEST_F(FirstPage, EscapeAndTheWayOutRejectIt) {
    PressHere(Qt::Key_Escape);
    EXPECT_EQ(page.result(), QDialog::Rejected);
    EXPECT_FALSE(page.isVisible());
    Show();
    OpenForm();
    Button(u"firstQuit"_s)->click();
    EXPECT_FALSE(page.isVisible());
    Show();
    page.close();
    EXPECT_FALSE(page.isVisible());
}

TEST_F(FirstPage, EscapeOnTheFormLeadsBackAndKeepsWhatWasTyped) {
    FillForm();
    PressHere(Qt::Key_Escape);
    EXPECT_TRUE(page.isVisible());
    EXPECT_TRUE(Card(u"chooseNewSite"_s)->isVisible());
    OpenForm();
    EXPECT_EQ(Field(u"firstProject"_s)->text(), u" 一号楼 "_s);
    PressHere(Qt::Key_Escape);
    PressHere(Qt::Key_Escape);
    EXPECT_FALSE(page.isVisible());
}

TEST_F(FirstPage, ANewSiteNeedsAProjectAndAName) {
    OpenForm();
    EXPECT_EQ(FocusName(), u"firstProject"_s);
    EXPECT_FALSE(Button(u"firstMake"_s)->isEnabled());
    EXPECT_EQ(LabelText(u"firstLack"_s), u"请填写工程名称。"_s);
    Field(u"firstProject"_s)->setText(u"一号楼"_s);
    EXPECT_EQ(LabelText(u"firstLack"_s), u"请填写您的姓名。"_s);
    Field(u"firstPerson"_s)->setText(u"谁"_s);
    EXPECT_EQ(LabelText(u"firstLack"_s), u"不能叫“谁”。"_s);
    EXPECT_FALSE(Button(u"firstMake"_s)->isEnabled());
    PressHere(Qt::Key_Return);
    EXPECT_TRUE(page.isVisible());
    Field(u"firstPerson"_s)->setText(u"王强"_s);
    EXPECT_TRUE(LabelText(u"firstLack"_s).isEmpty());
    EXPECT_TRUE(Button(u"firstMake"_s)->isEnabled());
}

TEST_F(FirstPage, EnterInAFieldMakesTheNewSite) {
    FillForm();
    PressHere(Qt::Key_Return);
    EXPECT_EQ(page.result(), QDialog::Accepted);
    EXPECT_EQ(page.Choice(), FirstChoice::NewSite);
    EXPECT_EQ(page.Project(), u"一号楼"_s);
    EXPECT_EQ(page.Person(), u"王强"_s);
    EXPECT_EQ(page.Folder(), u"/data/here"_s);
}

TEST_F(FirstPage, TabGoesThroughTheForm) {
    FillForm();
    QStringList order;
    for (int step = 0; step < 7; ++step) {
        order << FocusName();
        PressHere(Qt::Key_Tab);
    }
    EXPECT_EQ(order,
              (QStringList{u"firstProject"_s, u"firstPerson"_s, u"firstFolder"_s, u"firstChange"_s,
                           u"firstBack"_s, u"firstMake"_s, u"firstQuit"_s}));
}

TEST_F(FirstPage, TheWayBackLeadsToTheChoicesAndForgetsNothing) {
    FillForm();
    Button(u"firstBack"_s)->click();
    EXPECT_TRUE(Card(u"chooseSample"_s)->isVisible());
    EXPECT_FALSE(Button(u"firstMake"_s)->isVisible());
    OpenForm();
    EXPECT_EQ(Field(u"firstProject"_s)->text(), u" 一号楼 "_s);
}

TEST_F(FirstPage, AnotherFolderForTheNewSiteIsAskedFor) {
    support::AnsweredPrompts prompts;
    OpenForm();
    prompts.ExpectFolder(u"选择存放站点的空文件夹"_s, {});
    Button(u"firstChange"_s)->click();
    EXPECT_EQ(Field(u"firstFolder"_s)->text(), u"/data/here"_s);
    prompts.ExpectFolder(u"选择存放站点的空文件夹"_s, u"/data/there"_s);
    Button(u"firstChange"_s)->click();
    FillForm();
    Button(u"firstMake"_s)->click();
    EXPECT_EQ(page.Folder(), u"/data/there"_s);
}

TEST_F(FirstPage, TheFolderToOpenIsAskedForAndNoAnswerLeavesThePage) {
    support::AnsweredPrompts prompts;
    prompts.ExpectFolder(u"打开已有的数据文件夹"_s, {});
    Card(u"chooseFolder"_s)->click();
    EXPECT_TRUE(page.isVisible());
    prompts.ExpectFolder(u"打开已有的数据文件夹"_s, u"/data/other"_s);
    Card(u"chooseFolder"_s)->click();
    EXPECT_EQ(page.result(), QDialog::Accepted);
    EXPECT_EQ(page.Choice(), FirstChoice::OpenFolder);
    EXPECT_EQ(page.Folder(), u"/data/other"_s);
}

TEST_F(FirstPage, WhatWentWrongStandsAboveTheChoices) {
    const auto* note = page.findChild<QLabel*>(u"firstNote"_s);
    EXPECT_FALSE(note->isVisible());
    page.ShowNote(u"磁盘已满。<b>"_s);
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->text(), u"磁盘已满。<b>"_s);
    EXPECT_EQ(note->textFormat(), Qt::PlainText);
    page.ShowNote({});
    EXPECT_FALSE(note->isVisible());
}

TEST(FirstPageOf, SomebodyNamedBeginsWithTheName) {
    const FirstStartPage page({u"/data"_s, u"李娜"_s, {}});
    EXPECT_EQ(page.Person(), u"李娜"_s);
}

} // namespace
} // namespace host
