#include "host/ui/ImportDialog.h"
#include "host/ui/ProjectNameDialog.h"
#include "host/ui/SignInDialog.h"

#include "tests/support/AnsweredPrompts.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(SignInDialog, BeginsWithWhoSignedInLast) {
    const SignInDialog dialog({{u"张伟"_s, {}}, {u"李娜"_s, {}}}, u"李娜"_s, u"/data"_s);
    EXPECT_EQ(dialog.UserName(), u"李娜"_s);
}

TEST(SignInDialog, BeginsWithTheFirstWhereTheLastOneIsGone) {
    const SignInDialog dialog({{u"张伟"_s, {}}, {u"李娜"_s, {}}}, u"王强"_s, u"/data"_s);
    EXPECT_EQ(dialog.UserName(), u"张伟"_s);
}

TEST(SignInDialog, EnterSignsInWhomTheArrowKeysChose) {
    SignInDialog dialog({{u"张伟"_s, {}}, {u"李娜"_s, {}}}, {}, u"/data"_s);
    dialog.show();
    auto* list = dialog.findChild<QListWidget*>(u"userList"_s);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.UserName(), u"李娜"_s);
}

TEST(SignInDialog, WithoutPeopleNobodyCanSignIn) {
    const SignInDialog dialog({}, {}, u"/data"_s);
    EXPECT_FALSE(dialog.findChild<QPushButton*>(u"signInButton"_s)->isEnabled());
    EXPECT_TRUE(dialog.UserName().isEmpty());
}

TEST(ProjectNameDialog, TakesANameThatIsNeitherBlankNorTaken) {
    ProjectNameDialog dialog(nullptr, {u"一期"_s});
    auto* name = dialog.findChild<QLineEdit*>(u"projectName"_s);
    const auto canAccept = [&] {
        return dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled();
    };
    EXPECT_FALSE(canAccept());
    name->setText(u"   "_s);
    EXPECT_FALSE(canAccept());
    name->setText(u" 一期 "_s);
    EXPECT_FALSE(canAccept());
    EXPECT_EQ(dialog.findChild<QLabel*>(u"projectNameNote"_s)->text(), u"已经有同名的工程。"_s);
    name->setText(u" 二期 "_s);
    EXPECT_TRUE(canAccept());
    EXPECT_EQ(dialog.Name(), u"二期"_s);
}

class ImportQuestion : public testing::Test {
protected:
    ImportQuestion() {
        scripted.pics.floors = {u"-1"_s, u"1"_s};
        scripted.pics.axesX = {u"3"_s};
        scripted.pics.axesY = {{u"B"_s, u"key-3B"_s}};
    }

    [[nodiscard]] static QComboBox* Combo(const ImportDialog& dialog, const QString& name) {
        return dialog.findChild<QComboBox*>(name);
    }
    static void Choose(const ImportDialog& dialog, const QString& name, int index) {
        QComboBox* combo = Combo(dialog, name);
        combo->setFocus();
        while (combo->currentIndex() < index) {
            QTest::keyClick(combo, Qt::Key_Down);
        }
    }
    [[nodiscard]] static bool CanStart(const ImportDialog& dialog) {
        return dialog.findChild<QPushButton*>(u"importStart"_s)->isEnabled();
    }

    support::ScriptedHost scripted;
    support::TempFolder folder;
    std::vector<ImportProject> projects = {{1, u"一期"_s}, {2, u"二期"_s}};
};

TEST_F(ImportQuestion, NeedsAFolderThatExists) {
    ImportDialog dialog(nullptr, {}, projects);
    EXPECT_FALSE(CanStart(dialog));
    auto* paths = dialog.findChild<QLineEdit*>(u"pathsEdit"_s);
    paths->setText(folder.Path(u"nothing"_s));
    EXPECT_FALSE(CanStart(dialog));
    EXPECT_EQ(dialog.findChild<QLabel*>(u"noteLabel"_s)->text(), u"这个文件夹不存在。"_s);
    paths->setText(u"  "_s + folder.Path());
    EXPECT_TRUE(CanStart(dialog));
    EXPECT_EQ(dialog.Choice().paths, QStringList{folder.Path()});
}

TEST_F(ImportQuestion, AFolderThatComesAfterItHasGoneIsNobodys) {
    support::AnsweredPrompts prompts;
    auto* dialog = new ImportDialog(nullptr, {}, projects);
    prompts.ExpectFolder(u"选择照片所在的文件夹"_s, folder.Path());
    prompts.Meanwhile([dialog] { delete dialog; });
    dialog->findChild<QPushButton*>(u"browseButton"_s)->click();
    EXPECT_TRUE(prompts.AllAnswered());
}

TEST_F(ImportQuestion, AsksForTheFolderOnWish) {
    support::AnsweredPrompts prompts;
    prompts.ExpectFolder(u"选择照片所在的文件夹"_s, folder.Path());
    ImportDialog dialog(nullptr, {}, projects);
    dialog.findChild<QPushButton*>(u"browseButton"_s)->click();
    EXPECT_EQ(dialog.Choice().paths, QStringList{folder.Path()});
}

TEST_F(ImportQuestion, WithoutAPlacePhotosGoToTheFirstProjectWithoutPosition) {
    const ImportDialog dialog(nullptr, {folder.Path()}, projects);
    EXPECT_TRUE(CanStart(dialog));
    const ImportChoice choice = dialog.Choice();
    EXPECT_EQ(choice.ppid, 1);
    EXPECT_TRUE(choice.positionKey.isEmpty());
    EXPECT_EQ(choice.markId, 0);
}

TEST_F(ImportQuestion, MarksComeInTheOrderThatPeopleGave) {
    ImportDialog dialog(nullptr, {folder.Path()}, projects);
    const auto ids = [&] {
        std::vector<int> found;
        for (int row = 0; row < Combo(dialog, u"markCombo"_s)->count(); ++row) {
            found.push_back(Combo(dialog, u"markCombo"_s)->itemData(row).toInt());
        }
        return found;
    };
    const std::vector<int> byId = ids();
    ASSERT_EQ(byId.size(), 4U) << "none and three marks";
    dialog.OrderMarks({byId[3], 4711, byId[1]});
    EXPECT_EQ(ids(), (std::vector<int>{0, byId[3], byId[1], byId[2]}));
}

TEST_F(ImportQuestion, AFloorNeedsBothAxes) {
    ImportDialog dialog(nullptr, {folder.Path()}, projects);
    dialog.show();
    EXPECT_FALSE(Combo(dialog, u"axisXCombo"_s)->isEnabled());
    Choose(dialog, u"floorCombo"_s, 1);
    EXPECT_EQ(Combo(dialog, u"floorCombo"_s)->currentText(), u"-1层"_s);
    EXPECT_FALSE(CanStart(dialog));
    Choose(dialog, u"axisXCombo"_s, 1);
    EXPECT_FALSE(CanStart(dialog));
    Choose(dialog, u"axisYCombo"_s, 1);
    EXPECT_TRUE(CanStart(dialog));
    EXPECT_EQ(dialog.Choice().positionKey, u"key-3B"_s);
}

TEST_F(ImportQuestion, AnotherProjectForgetsTheFloor) {
    ImportDialog dialog(nullptr, {folder.Path()}, projects);
    dialog.show();
    Choose(dialog, u"floorCombo"_s, 1);
    Choose(dialog, u"projectCombo"_s, 1);
    EXPECT_EQ(dialog.Choice().ppid, 2);
    EXPECT_EQ(Combo(dialog, u"floorCombo"_s)->currentIndex(), 0);
    EXPECT_TRUE(CanStart(dialog));
}

TEST_F(ImportQuestion, TheChosenPlaceIsTakenOver) {
    const ImportDialog dialog(nullptr, {folder.Path()}, projects,
                              {2, u"-1"_s, u"3"_s, u"key-3B"_s});
    EXPECT_EQ(dialog.Choice().ppid, 2);
    EXPECT_EQ(Combo(dialog, u"floorCombo"_s)->currentText(), u"-1层"_s);
    EXPECT_EQ(Combo(dialog, u"axisXCombo"_s)->currentText(), u"3"_s);
    EXPECT_EQ(Combo(dialog, u"axisYCombo"_s)->currentText(), u"B"_s);
    EXPECT_EQ(dialog.Choice().positionKey, u"key-3B"_s);
    EXPECT_TRUE(CanStart(dialog));
}

TEST_F(ImportQuestion, APlaceThatIsNotKnownAnyMoreLeavesTheQuestionOpen) {
    const std::vector<ImportPlace> gone{{0, u"7"_s, u"3"_s, u"key-3B"_s},
                                        {0, u"-1"_s, u"9"_s, u"key-3B"_s},
                                        {0, u"-1"_s, u"3"_s, u"key-9Z"_s},
                                        {0, u"-1"_s, {}, {}}};
    for (const ImportPlace& place : gone) {
        const ImportDialog dialog(nullptr, {folder.Path()}, projects, place);
        EXPECT_EQ(Combo(dialog, u"floorCombo"_s)->currentIndex(), 0);
        EXPECT_TRUE(dialog.Choice().positionKey.isEmpty());
        EXPECT_EQ(dialog.Choice().ppid, 1);
        EXPECT_TRUE(CanStart(dialog));
    }
}

TEST_F(ImportQuestion, SeveralDroppedPathsStandAsTheyWereDropped) {
    const QStringList paths = {folder.Path(u"a.jpg"_s), folder.Path(u"b.jpg"_s)};
    const ImportDialog dialog(nullptr, paths, projects);
    EXPECT_TRUE(dialog.findChild<QLineEdit*>(u"pathsEdit"_s)->isReadOnly());
    EXPECT_EQ(dialog.Choice().paths, paths);
    EXPECT_TRUE(CanStart(dialog));
}

TEST_F(ImportQuestion, OffersTheMarksOfTheClient) {
    ImportDialog dialog(nullptr, {folder.Path()}, projects);
    dialog.show();
    ASSERT_EQ(Combo(dialog, u"markCombo"_s)->count(), 4);
    Choose(dialog, u"markCombo"_s, 2);
    EXPECT_EQ(dialog.Choice().markId, 2);
}

} // namespace
} // namespace host
