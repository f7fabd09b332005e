// Lists that drop down, menus, cells.
#include "hands/Choices.h"

#include "hands/Hands.h"
#include "tests/hands/Recorder.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QComboBox>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTableWidget>

#include <gtest/gtest.h>

#include <utility>

namespace hands {
namespace {

using namespace Qt::StringLiterals;

class Lists : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        window.resize(300, 200);
        box.setGeometry(10, 10, 160, 28);
        box.addItems({u"全部"_s, u"一层"_s, u"二层"_s});
        box.setEditable(GetParam());
        ASSERT_TRUE(ShowInFront(window));
        QObject::connect(&box, &QComboBox::activated, [this](int row) { chosen << row; });
    }

    QWidget window;
    QComboBox box{&window};
    QList<int> chosen;
};

INSTANTIATE_TEST_SUITE_P(PlainOrWithAnEditField, Lists, testing::Bool());

TEST_P(Lists, AListDropsDownByItsArrowAndClosesWithoutAChoice) {
    EXPECT_FALSE(CloseList(&box));
    ASSERT_TRUE(DropDown(&box));
    EXPECT_TRUE(box.view()->isVisible());
    EXPECT_TRUE(CloseList(&box));
    EXPECT_FALSE(box.view()->isVisible());
    EXPECT_EQ(chosen, QList<int>());
}

TEST_P(Lists, AnEntryIsChosenByItsRow) {
    EXPECT_TRUE(ChooseRow(&box, 2));
    EXPECT_EQ(box.currentText(), u"二层"_s);
    EXPECT_TRUE(ChooseRow(&box, 0));
    EXPECT_EQ(box.currentText(), u"全部"_s);
    EXPECT_EQ(chosen, QList<int>({2, 0}));
}

TEST_P(Lists, AnEntryIsChosenByWhatItBeginsWith) {
    EXPECT_TRUE(ChooseInCombo(&box, u"一"_s));
    EXPECT_EQ(box.currentText(), u"一层"_s);
    EXPECT_EQ(chosen, QList<int>{1});
}

TEST_P(Lists, WithoutSuchAnEntryTheListClosesAgain) {
    EXPECT_FALSE(ChooseInCombo(&box, u"三层"_s));
    EXPECT_FALSE(box.view()->isVisible());
    EXPECT_FALSE(ChooseRow(&box, 3));
    EXPECT_FALSE(box.view()->isVisible());
    EXPECT_EQ(chosen, QList<int>());
}

TEST_P(Lists, ABoxThatCantBeReachedStaysAsItIs) {
    box.setEnabled(false);
    EXPECT_FALSE(DropDown(&box));
    EXPECT_FALSE(ChooseRow(&box, 1));
    EXPECT_FALSE(ChooseInCombo(&box, u"一层"_s));
    EXPECT_FALSE(DropDown(nullptr));
    EXPECT_FALSE(CloseList(nullptr));
    EXPECT_EQ(box.currentText(), u"全部"_s);
}

class Menus : public testing::Test {
protected:
    void SetUp() override {
        window.resize(300, 200);
        for (const QString& text : {u"打开(&O)\tCtrl+O"_s, u"保存"_s}) {
            QAction* action = file->addAction(text);
            QObject::connect(action, &QAction::triggered, [this, text] { done << text.left(2); });
        }
        ASSERT_TRUE(ShowInFront(window));
    }

    QMainWindow window;
    QMenu* file = window.menuBar()->addMenu(u"文件(&F)"_s);
    QStringList done;
};

TEST_F(Menus, AnEntryIsClickedByItsTextWithoutMnemonicAndKey) {
    EXPECT_TRUE(ClickInMenuBar(window.menuBar(), u"文件(F)"_s, u"打开(O)"_s));
    EXPECT_EQ(done, QStringList{u"打开"_s});
    EXPECT_FALSE(file->isVisible());
}

TEST_F(Menus, AnEntryThatIsntThereOrIsDisabledCantBeClicked) {
    EXPECT_FALSE(ClickInMenuBar(window.menuBar(), u"编辑"_s, u"打开(O)"_s));
    EXPECT_FALSE(ClickInMenuBar(window.menuBar(), u"文件(F)"_s, u"打印"_s));
    file->actions().last()->setEnabled(false);
    EXPECT_FALSE(ClickInMenuBar(window.menuBar(), u"文件(F)"_s, u"保存"_s));
    EXPECT_FALSE(ClickInMenuBar(nullptr, u"文件(F)"_s, u"保存"_s));
    EXPECT_EQ(done, QStringList());
}

TEST_F(Menus, AMenuMustBeOpen) {
    EXPECT_FALSE(ClickInMenu(file, u"保存"_s));
    EXPECT_FALSE(ClickInMenu(nullptr, u"保存"_s));
    file->popup(window.mapToGlobal(QPoint(10, 10)));
    EXPECT_TRUE(ClickInMenu(file, u"保存"_s));
    EXPECT_EQ(done, QStringList{u"保存"_s});
}

class Cells : public testing::Test {
protected:
    void SetUp() override {
        table.resize(300, 200);
        QObject::connect(&table, &QTableWidget::cellPressed, [this](int row, int column) {
            pressed << std::pair(row, column);
            button = QApplication::mouseButtons();
        });
        ASSERT_TRUE(ShowInFront(table));
    }

    QTableWidget table{200, 3};
    QList<std::pair<int, int>> pressed;
    Qt::MouseButtons button;
};

TEST_F(Cells, ACellIsScrolledIntoSightAndClicked) {
    EXPECT_TRUE(ClickCell(&table, 150, 1));
    EXPECT_EQ(pressed, (QList<std::pair<int, int>>{{150, 1}}));
    EXPECT_EQ(button, Qt::LeftButton);
    EXPECT_EQ(table.currentRow(), 150);
}

TEST_F(Cells, TheRightButtonIsAsGood) {
    EXPECT_TRUE(ClickCell(&table, 1, 2, Qt::RightButton));
    EXPECT_EQ(pressed, (QList<std::pair<int, int>>{{1, 2}}));
    EXPECT_EQ(button, Qt::RightButton);
}

TEST_F(Cells, ACellThatIsntThereCantBeClicked) {
    EXPECT_FALSE(ClickCell(&table, 200, 0));
    EXPECT_FALSE(ClickCell(&table, 0, 3));
    EXPECT_FALSE(ClickCell(nullptr, 0, 0));
    table.setEnabled(false);
    EXPECT_FALSE(ClickCell(&table, 0, 0));
    EXPECT_TRUE(pressed.isEmpty());
}

} // namespace
} // namespace hands
