// The editor of a rectification, step by step: order of calls, what is compared, what a failure
// leaves.
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString kDone = u"整改信息保存成功"_s;
const QString kFailed = u"整改信息保存失败"_s;
const QString kUnchanged = u"问题整改信息没有改变，不需要更改!"_s;
const QString kAsksToOverwrite = u"整改信息已被修改，是否覆盖?"_s;

class RectifyEditStepsTest : public IssueFixture {
protected:
    template <class Control> static Control& Part(QWidget& window, const char* name) {
        return *window.findChild<Control*>(QString::fromLatin1(name));
    }
    static void Type(QWidget& window, const QString& text) {
        auto& box = Part<QPlainTextEdit>(window, "rectifyEdit");
        box.selectAll();
        box.insertPlainText(text);
    }
    static void Select(QWidget& window, const QString& state) {
        Part<QComboBox>(window, "stateCombo").setCurrentText(state);
    }
    static void Ok(QWidget& window) { support::Click(&Part<QPushButton>(window, "okButton")); }
    static void Leave(QWidget& window) {
        support::Click(&Part<QPushButton>(window, "cancelButton"));
    }
    void EditWith(const support::ModalVisit::Action& action) {
        ASSERT_TRUE(OpenRectify());
        host.Log().Clear();
        const support::ModalVisit visit(u"TNRectityEditDlg"_s, action);
        support::Click(Rectify().EditButton());
        EXPECT_TRUE(visit.HasCome());
    }
    KX_DATA::RectifyRecord& Stored() { return host.questions.rectifications[u"q1"_s]; }
    [[nodiscard]] Calls Steps() {
        return Log().LinesOf({"GetStateNames", "StateToText", "TextToState", "GetRectification",
                              "AskOkCancel", "SaveRectification", "ShowMessage", "RefreshTNMarks"});
    }
    [[nodiscard]] static std::string Box(const QString& text) {
        return "ShowMessage(" + text.toStdString() + ")";
    }
    const std::string question = "AskOkCancel(" + kAsksToOverwrite.toStdString() + ")";
};

} // namespace

TEST_F(RectifyEditStepsTest, TheDialogHasItsCaptionsAndButtons) {
    EditWith([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), u"问题整改");
        EXPECT_EQ(Part<QLabel>(window, "stateCaption").text(), u"整改情况：");
        EXPECT_EQ(Part<QGroupBox>(window, "rectifyGroup").title(), u"整改说明：");
        EXPECT_EQ(Part<QPushButton>(window, "okButton").text(), u"确定");
        EXPECT_EQ(Part<QPushButton>(window, "cancelButton").text(), u"取消");
        Leave(window);
    });
    EXPECT_THAT(Steps(), ElementsAre("GetStateNames()", "StateToText(state=1)"));
}

TEST_F(RectifyEditStepsTest, OnlyTheExactNameOfTheFiltersEntryIsLeftOutAndOrderIsTheServices) {
    host.pics.stateNames = {u"已整改"_s, u"全部完成"_s, u"全部"_s, u"整改中"_s};
    EditWith([](QWidget& window) {
        EXPECT_THAT(support::Entries(Part<QComboBox>(window, "stateCombo")),
                    ElementsAre("已整改", "全部完成", "整改中"));
        EXPECT_EQ(Part<QComboBox>(window, "stateCombo").currentIndex(), 2);
        Leave(window);
    });
}

TEST_F(RectifyEditStepsTest, TheStateIsSelectedByItsExactName) {
    host.pics.stateNames = {u"DONE"_s, u"done and more"_s};
    host.states.states = {{1, u"done"_s}};
    EditWith([](QWidget& window) {
        EXPECT_EQ(Part<QComboBox>(window, "stateCombo").currentIndex(), -1);
        Leave(window);
    });
}

TEST_F(RectifyEditStepsTest, ASaveGoesThroughItsStepsInOrder) {
    prompts.ExpectOkCancel(kAsksToOverwrite, true);
    prompts.ExpectMessage(kDone);
    EditWith([this](QWidget& window) {
        Stored().rectifierName = u"赵六"_s;
        Type(window, u"已重做"_s);
        Select(window, u"已整改"_s);
        host.Log().Clear();
        Ok(window);
    });
    EXPECT_THAT(Steps(), ElementsAre("TextToState(text=已整改)", "GetRectification(id=q1)",
                                     question, "SaveRectification(id=q1,state=2)", Box(kDone),
                                     "RefreshTNMarks()", "StateToText(state=2)"));
}

TEST_F(RectifyEditStepsTest, TheWordOfSuccessComesOverTheOpenDialog) {
    QWidget* dialog = nullptr;
    bool wasOpen = false;
    prompts.ExpectMessage(kDone);
    prompts.Meanwhile([&] { wasOpen = dialog->isVisible(); });
    EditWith([&](QWidget& window) {
        dialog = &window;
        Type(window, u"已重做"_s);
        Ok(window);
    });
    EXPECT_TRUE(wasOpen);
}

TEST_F(RectifyEditStepsTest, AStateThatNobodyKnowsIsSavedAsTheOneOfNoName) {
    Stored().state = 77;
    prompts.ExpectMessage(kDone);
    EditWith([this](QWidget& window) {
        host.Log().Clear();
        Ok(window);
    });
    const auto steps = Steps();
    ASSERT_GE(steps.size(), 3U);
    EXPECT_EQ(steps[0], "TextToState(text=)");
    EXPECT_EQ(steps[2], "SaveRectification(id=q1,state=-1)") << "it counts as a change";
}

TEST_F(RectifyEditStepsTest, WhatIsTypedAndTakenBackIsNoChange) {
    prompts.ExpectMessage(kUnchanged);
    EditWith([](QWidget& window) {
        Type(window, u"已重做"_s);
        Select(window, u"已整改"_s);
        Type(window, u"已注浆"_s);
        Select(window, u"整改中"_s);
        Ok(window);
        EXPECT_TRUE(window.isVisible());
        Leave(window);
    });
    EXPECT_EQ(Log().CountOf("GetRectification"), 0);
}

TEST_F(RectifyEditStepsTest, BlanksAtTheEndOfATextAreAChange) {
    prompts.ExpectMessage(kDone);
    EditWith([](QWidget& window) {
        Type(window, u"已注浆 "_s);
        Ok(window);
    });
    EXPECT_EQ(host.questions.lastRectifySave.rectifyText, u"已注浆 ");
}

TEST_F(RectifyEditStepsTest, NamesAreComparedExactly) {
    for (const QString& name : {u"王五 "_s, u""_s}) {
        prompts.ExpectOkCancel(kAsksToOverwrite, false);
        Stored().rectifierName = u"王五"_s;
        EditWith([&](QWidget& window) {
            Stored().rectifierName = name;
            Type(window, u"已重做"_s);
            Ok(window);
            Leave(window);
        });
    }
    EXPECT_EQ(Log().CountOf("SaveRectification"), 0);
}

TEST_F(RectifyEditStepsTest, AfterARefusalNothingIsToldAndTheNextTryAsksAgain) {
    prompts.ExpectOkCancel(kAsksToOverwrite, false);
    prompts.ExpectOkCancel(kAsksToOverwrite, true);
    prompts.ExpectMessage(kDone);
    EditWith([this](QWidget& window) {
        Stored().rectifierName = u"赵六"_s;
        Type(window, u"已重做"_s);
        Ok(window);
        EXPECT_TRUE(window.isVisible());
        Ok(window);
    });
    EXPECT_EQ(Log().CountOf("GetRectification"), 2);
    EXPECT_EQ(Log().CountOf("SaveRectification"), 1);
}

TEST_F(RectifyEditStepsTest, AFailedSaveRefreshesNothingAndLeavesTheStartingValues) {
    prompts.ExpectMessage(kFailed);
    prompts.ExpectMessage(kUnchanged);
    EditWith([this](QWidget& window) {
        Select(window, u"已整改"_s);
        host.script.FailNext("SaveRectification");
        Ok(window);
        EXPECT_EQ(Log().CountOf("RefreshTNMarks"), 0);
        Select(window, u"整改中"_s);
        Ok(window);
        Leave(window);
    });
    EXPECT_EQ(Rectify().Rectify().state, 1);
    EXPECT_EQ(Rectify().Rectify().rectifierName, u"王五");
}

TEST_F(RectifyEditStepsTest, AfterAFailedSaveTheNextTryChecksAnew) {
    prompts.ExpectMessage(kFailed);
    prompts.ExpectOkCancel(kAsksToOverwrite, true);
    prompts.ExpectMessage(kDone);
    EditWith([this](QWidget& window) {
        Select(window, u"已整改"_s);
        host.script.FailNext("SaveRectification");
        Ok(window);
        Stored().rectifierName = u"赵六"_s;
        host.Log().Clear();
        Ok(window);
    });
    EXPECT_THAT(Steps(), ElementsAre("TextToState(text=已整改)", "GetRectification(id=q1)",
                                     question, "SaveRectification(id=q1,state=2)", Box(kDone),
                                     "RefreshTNMarks()", "StateToText(state=2)"));
}

TEST_F(RectifyEditStepsTest, NothingButTheNameIsTakenFromTheFreshRecord) {
    prompts.ExpectMessage(kDone);
    EditWith([this](QWidget& window) {
        Stored().pics.clear();
        Stored().state = 2;
        Stored().rectifyText = u"别人写的"_s;
        Type(window, u"已重做"_s);
        Ok(window);
    });
    EXPECT_EQ(Rectify().Rectify().state, 1);
    EXPECT_EQ(host.questions.lastRectifySave.state, 1);
    EXPECT_EQ(Rectify().Rectify().pics.size(), 2U);
    EXPECT_EQ(Rectify().Rectify().rectifyText, u"已重做");
}

TEST_F(RectifyEditStepsTest, CancelledItChangesNothingOnThePage) {
    EditWith([](QWidget& window) {
        Type(window, u"已重做"_s);
        Select(window, u"已整改"_s);
        Leave(window);
    });
    EXPECT_EQ(Rectify().Rectify().rectifyText, u"已注浆");
    EXPECT_EQ(Rectify().Rectify().state, 1);
    EXPECT_EQ(TextOf(Rectify(), "rectifierText"), u"    整改人：王五");
    EXPECT_THAT(Log().LinesOf({"SaveRectification", "GetRectification"}), IsEmpty());
}
