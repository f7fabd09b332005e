// The form: Tab order, names and tips, and that nothing is cut off at any scale and face.
#include "tests/editors/dialog/EditorFixture.h"
#include "tests/support/WaitFor.h"

#include <QGroupBox>
#include <QScreen>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

class FormTest : public EditorFixture {
protected:
    template <class Control> void ExpectWhole() {
        for (const Control* control : Window()->findChildren<Control*>()) {
            const std::string name = control->objectName().toStdString();
            if (!control->isVisible()) {
                continue;
            }
            EXPECT_GE(control->width(), control->sizeHint().width()) << name;
            EXPECT_GE(control->height(), control->sizeHint().height()) << name;
            const QRect place(control->mapTo(Window(), QPoint(0, 0)), control->size());
            EXPECT_TRUE(Window()->rect().contains(place)) << name;
        }
    }
    void ExpectNothingCut() {
        Window()->resize(Window()->minimumSizeHint());
        support::RunPendingEvents();
        ExpectWhole<QLabel>();
        ExpectWhole<QPushButton>();
        ExpectWhole<QLineEdit>();
        for (const QComboBox* combo : Window()->findChildren<QComboBox*>()) {
            if (!combo->isVisible()) {
                continue;
            }
            EXPECT_GE(combo->height(), combo->sizeHint().height());
            EXPECT_GE(combo->width(), combo->minimumSizeHint().width());
        }
    }
    static int Right(const QWidget& control) {
        return control.mapTo(control.window(), QPoint(control.width(), 0)).x();
    }
    static int Left(const QWidget& control) {
        return control.mapTo(control.window(), QPoint(0, 0)).x();
    }
};

TEST_F(FormTest, TabFollowsTheEye) {
    Open();
    EXPECT_THAT(support::TabOrder(&Name()),
                ElementsAre("picNameEdit", "markCombo", "statusCombo", "floorCombo", "axisXCombo",
                            "axisYCombo", "labelTree", "newLabelEdit", "descriptionEdit",
                            "okButton", "cancelButton"));
}

TEST_F(FormTest, TabComesByTheButtonForLabelsWhileItCanBePressed) {
    Open();
    support::TypeOver(NewLabel(), u"a"_s);
    Key(Qt::Key_Tab);
    EXPECT_EQ(support::FocusedName(), "addLabelButton");
}

TEST_F(FormTest, EveryControlHasANameForScreenReadersAndATip) {
    Open();
    for (const char* name :
         {"picNameEdit", "markCombo", "statusCombo", "floorCombo", "axisXCombo", "axisYCombo",
          "newLabelEdit", "addLabelButton", "descriptionEdit", "okButton", "cancelButton"}) {
        EXPECT_FALSE(Find<QWidget>(name).accessibleName().isEmpty()) << name;
        EXPECT_FALSE(Find<QWidget>(name).toolTip().isEmpty()) << name;
    }
    EXPECT_FALSE(Tree().accessibleName().isEmpty());
}

TEST_F(FormTest, CaptionsAreTheSystems) {
    Open();
    Calls captions;
    for (const char* name : {"picNameCaption", "markCaption", "statusCaption", "floorCaption",
                             "axisXCaption", "axisYCaption", "newLabelCaption"}) {
        captions.push_back(Find<QLabel>(name).text().toStdString());
    }
    EXPECT_THAT(captions, ElementsAre("照片名称：", "照片标识：", "状态：", "楼层：", "X轴：",
                                      "Y轴：", "若无合适标签，请添加标签："));
    EXPECT_EQ(AddLabel().text(), u"增加标签"_s);
    EXPECT_EQ(Ok().text(), u"确定"_s);
    EXPECT_EQ(Cancel().text(), u"取消"_s);
    EXPECT_EQ(Find<QGroupBox>("descriptionGroup").title(), u"描述"_s);
}

TEST_F(FormTest, LabelsEndAtTheirFieldsAndButtonsStandAtTheBottomRight) {
    Open();
    EXPECT_EQ(Right(Find<QLabel>("picNameCaption")), Right(Find<QLabel>("floorCaption")));
    EXPECT_EQ(Right(Find<QLabel>("statusCaption")), Right(Find<QLabel>("axisXCaption")));
    EXPECT_EQ(Left(Name()), Left(Floor()));
    EXPECT_EQ(Left(Status()), Left(AxisX()));
    EXPECT_EQ(Floor().width(), Mark().width());
    EXPECT_EQ(Ok().size(), Cancel().size());
    EXPECT_EQ(Right(Cancel()), Window()->width() - 12);
    EXPECT_EQ(Left(Cancel()) - Right(Ok()), 8);
    EXPECT_TRUE(Ok().isDefault());
}

TEST_F(FormTest, NothingIsCutOffAtTheLeastSize) {
    Open();
    ExpectNothingCut();
}

TEST_F(FormTest, NothingIsCutOffWithAWiderFace) {
    Open();
    QFont wide = Window()->font();
    wide.setLetterSpacing(QFont::PercentageSpacing, 110);
    Window()->setFont(wide);
    support::RunPendingEvents();
    ExpectNothingCut();
}

TEST_F(FormTest, NothingIsCutOffWithoutTheRights) {
    host.auth.rights.clear();
    Open();
    ExpectNothingCut();
}

TEST_F(FormTest, ItFitsTheScreen) {
    Open();
    const QSize screen = Window()->screen()->availableSize();
    EXPECT_LE(Window()->height(), screen.height());
    EXPECT_LE(Window()->width(), screen.width());
}

TEST_F(FormTest, ALargerWindowGivesItsRoomToTreeAndDescription) {
    Open();
    const int tree = Tree().height();
    const int description = Description().height();
    const int line = Name().height();
    Window()->resize(Window()->width() + 200, Window()->height() + 300);
    support::RunPendingEvents();
    EXPECT_GT(Tree().height(), tree + 100);
    EXPECT_GT(Description().height(), description + 50);
    EXPECT_EQ(Name().height(), line);
}

} // namespace
