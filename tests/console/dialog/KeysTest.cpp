// Keys of the console: shortcuts, Tab order, Escape, paging, double click and menu.
#include "tests/console/dialog/ConsoleFixture.h"
#include "tests/support/WaitFor.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/KXComboBox.h"

#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class KeysTest : public ConsoleFixture {
protected:
    [[nodiscard]] static std::string Focused() { return support::FocusedName(); }
    /// From the project box on.
    [[nodiscard]] Calls TabOrder() { return support::TabOrder(C().projectCombo); }
    /// A button shows itself pressed for a moment before it acts.
    void Alt(Qt::Key key, const std::function<bool()>& done) {
        Key(key, Qt::AltModifier);
        EXPECT_TRUE(support::WaitFor(done)) << char(key);
    }
    [[nodiscard]] QToolButton* PagingButton(const QString& name) {
        return Console().Paging()->Widget()->findChild<QToolButton*>(name);
    }
};

TEST_F(KeysTest, F5FetchesThePresentPage) {
    Open(kModeBim, 65);
    Console().Paging()->DoPage(2);
    Log().Clear();
    Key(Qt::Key_F5);
    EXPECT_THAT(Log().LinesOf({"QueryBimPics", "RefreshBimMarks"}),
                ElementsAre("QueryBimPics(page=2,size=30,sort=last_modifytime desc)"));
}

TEST_F(KeysTest, AltSSearches) {
    Open(kModeBim);
    TypeKeyword(u"abc"_s);
    Alt(Qt::Key_S, [this] { return Searches() == 1; });
    EXPECT_EQ(BimFilter().keyword, u"abc"_s);
}

TEST_F(KeysTest, AltKGoesToTheKeywordBox) {
    Open(kModeBim);
    View().setFocus();
    Key(Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(Focused(), "keywordCombo");
}

TEST_F(KeysTest, AltPAndAltBChangeTheKind) {
    Open(kModeBim);
    Alt(Qt::Key_P, [this] { return Console().GetMode() == kModePdf; });
    Alt(Qt::Key_B, [this] { return Console().GetMode() == kModeBim; });
}

TEST_F(KeysTest, AltHAltVAltDAndAltWActOnWhatIsChecked) {
    Open(kModeBim);
    CheckRows({1});
    Alt(Qt::Key_H, [this] { return Cell(1, 11) == "隐藏"; });
    Alt(Qt::Key_V, [this] { return Cell(1, 11) == "显示"; });
    prompts.ExpectOkCancel(u"确认删除所选的照片？"_s, false);
    Alt(Qt::Key_D, [this] { return prompts.AllAnswered(); });
    prompts.ExpectFolder(u"请选择文件存放的路径："_s, QString());
    Alt(Qt::Key_W, [this] { return prompts.AllAnswered(); });
}

TEST_F(KeysTest, ShortcutsOfHiddenButtonsDoNothing) {
    host.auth.rights = {};
    Open(kModeBim);
    CheckRows({1});
    for (const Qt::Key key : {Qt::Key_D, Qt::Key_H, Qt::Key_V}) {
        Key(key, Qt::AltModifier);
    }
    for (const QPushButton* button : {C().deleteButton, C().hideButton, C().showButton}) {
        EXPECT_FALSE(button->isDown()) << button->objectName().toStdString();
    }
    Open(kModeIssue);
    Key(Qt::Key_P, Qt::AltModifier);
    EXPECT_FALSE(C().pdfRadio->isDown());
}

TEST_F(KeysTest, TooltipsNameTheShortcuts) {
    Open(kModeBim);
    const std::vector<std::pair<QWidget*, const char*>> shortcuts = {
        {C().searchButton, "Alt+S"},   {C().bimRadio, "Alt+B"},     {C().pdfRadio, "Alt+P"},
        {C().downloadButton, "Alt+W"}, {C().deleteButton, "Alt+D"}, {C().showButton, "Alt+V"},
        {C().hideButton, "Alt+H"},     {C().keywordCombo, "Alt+K"}};
    for (const auto& [control, keys] : shortcuts) {
        EXPECT_THAT(control->toolTip().toStdString(), HasSubstr(keys));
    }
    EXPECT_EQ(C().bimRadio->toolTip(), u"列出BIM模型照片（Alt+B）"_s);
    EXPECT_EQ(C().pdfRadio->toolTip(), u"列出平面图纸照片（Alt+P）"_s);
    EXPECT_EQ(C().searchButton->toolTip(), u"按以上条件搜索（Alt+S）"_s);
    EXPECT_EQ(C().downloadButton->toolTip(), u"把选中的照片下载到文件夹（Alt+W）"_s);
    EXPECT_EQ(C().deleteButton->toolTip(), u"删除选中的各项（Alt+D）"_s);
    EXPECT_EQ(C().showButton->toolTip(), u"把选中的各项设为显示（Alt+V）"_s);
    EXPECT_EQ(C().hideButton->toolTip(), u"把选中的各项设为隐藏（Alt+H）"_s);
    EXPECT_EQ(C().keywordCombo->toolTip(), u"关键字（Alt+K），回车即搜索"_s);
}

TEST_F(KeysTest, FiltersAndButtonsAreNamedForAReader) {
    Open(kModeBim);
    const std::vector<std::pair<const QWidget*, QString>> names = {
        {C().projectCombo, u"工程"_s},
        {C().markCombo, u"按标识筛选"_s},
        {C().labelCombo, u"按标签筛选"_s},
        {C().statusCombo, u"按整改情况筛选"_s},
        {C().noDateLimit, u"不限日期"_s},
        {C().startPicker, u"开始日期"_s},
        {C().dateDash, u"至"_s},
        {C().endPicker, u"结束日期"_s},
        {C().keywordCombo, u"关键字"_s},
        {C().searchButton, u"按以上条件搜索"_s},
        {C().bimRadio, u"BIM模型照片"_s},
        {C().pdfRadio, u"平面图纸照片"_s},
        {C().deleteButton, u"删除选中的各项"_s}};
    for (const auto& [control, name] : names) {
        EXPECT_EQ(control->accessibleName(), name);
    }
}

TEST_F(KeysTest, EveryControlHasAnAccessibleNameAndATooltip) {
    Open(kModeBim);
    for (const QWidget* control : C().Filters()) {
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
        EXPECT_FALSE(control->toolTip().isEmpty()) << control->objectName().toStdString();
    }
    for (const QPushButton* button : C().Actions()) {
        EXPECT_FALSE(button->accessibleName().isEmpty());
    }
}

TEST_F(KeysTest, EscapeDoesNothing) {
    Open(kModeBim);
    for (QWidget* target : {static_cast<QWidget*>(C().keywordCombo->lineEdit()),
                            static_cast<QWidget*>(&View()), static_cast<QWidget*>(Window())}) {
        QTest::keyClick(target, Qt::Key_Escape);
    }
    support::RunPendingEvents();
    ASSERT_TRUE(Console().HasWindow());
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(KeysTest, TabFollowsTheEyeOverPhotos) {
    Open(kModeBim, 65);
    Click(C().noDateLimit);
    EXPECT_THAT(TabOrder(),
                ElementsAre("projectCombo", "markCombo", "labelCombo", "statusCombo", "noDateLimit",
                            "startPicker", "endPicker", "keywordCombo", "searchButton",
                            "resultGrid", "bimRadio", "downloadButton", "deleteButton",
                            "showButton", "hideButton", "pagingBox", "pagingNext", "pagingLast"));
}

TEST_F(KeysTest, TabFollowsTheEyeOverIssues) {
    Open(kModeIssue);
    EXPECT_THAT(TabOrder(), ElementsAre("projectCombo", "markCombo", "statusCombo", "noDateLimit",
                                        "keywordCombo", "searchButton", "resultGrid",
                                        "deleteButton", "showButton", "hideButton", "pagingBox"));
}

TEST_F(KeysTest, EnterOnAnActionSearchesAndPressesNothing) {
    Open(kModeBim);
    CheckRows({1});
    for (QPushButton* action : C().Actions()) {
        Log().Clear();
        action->setFocus();
        Key(Qt::Key_Return);
        ASSERT_TRUE(support::WaitFor([this] { return Searches() == 1; }, std::chrono::seconds(3)));
        EXPECT_EQ(Cell(1, 11), "显示") << action->objectName().toStdString();
    }
}

TEST_F(KeysTest, ThePagingBarLeadsThroughThePages) {
    Open(kModeBim, 65);
    Click(PagingButton(u"pagingNext"_s));
    EXPECT_EQ(host.pics.bimQuery.lastRequest.page, 2);
    Click(PagingButton(u"pagingLast"_s));
    EXPECT_EQ(host.pics.bimQuery.lastRequest.page, 3);
    Click(PagingButton(u"pagingPrevious"_s));
    EXPECT_EQ(host.pics.bimQuery.lastRequest.page, 2);
    Click(PagingButton(u"pagingFirst"_s));
    EXPECT_EQ(host.pics.bimQuery.lastRequest.page, 1);
}

TEST_F(KeysTest, ATypedPageIsFetchedByEnterWithoutASearch) {
    Open(kModeBim, 65);
    auto* box = Console().Paging()->Widget()->findChild<QLineEdit*>(u"pagingBox"_s);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, u"3"_s);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_THAT(Log().LinesOf({"QueryBimPics"}),
                ElementsAre("QueryBimPics(page=3,size=30,sort=last_modifytime desc)"));
}

TEST_F(KeysTest, EnterInTheGridLooksTheRowUpAndSearchesNothing) {
    Open(kModeBim);
    ClickCell(1, 3);
    QTest::keyClick(&View(), Qt::Key_Return);
    EXPECT_EQ(Log().LinesOf({"LocatePicture"}).front(), "LocatePicture(position=K2,mark=1)");
    EXPECT_EQ(Searches(), 0);
}

TEST_F(KeysTest, TheMenuKeyOpensTheRowsMenu) {
    Open(kModeBim);
    ClickCell(1, 3);
    QTest::keyClick(&View(), Qt::Key_Menu);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().size(), 5);
    menu->close();
}

TEST_F(KeysTest, ADoubleClickLooksUpInEachKind) {
    const auto doubleClick = [this] {
        const QPoint place = View().visualRect(View().model()->index(0, 3)).center();
        QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, place);
    };
    Open(kModeBim);
    doubleClick();
    EXPECT_EQ(Log().CountOf("LocatePicture"), 1);
    Open(kModePdf);
    doubleClick();
    EXPECT_EQ(Log().CountOf("SelectCheckpoint"), 1);
    Open(kModeIssue);
    doubleClick();
    EXPECT_EQ(Log().CountOf("LocateIssue"), 1);
}

TEST_F(KeysTest, EnterInEachFilterPressesTheDefaultButton) {
    Open(kModeBim);
    C().noDateLimit->setChecked(false);
    C().startPicker->setEnabled(true);
    C().endPicker->setEnabled(true);
    for (QWidget* control : C().Filters()) {
        if (control == C().dateDash) {
            continue;
        }
        control->setFocus();
        Log().Clear();
        QTest::keyClick(control, Qt::Key_Return);
        EXPECT_EQ(Searches(), 1) << control->objectName().toStdString();
    }
}

} // namespace
