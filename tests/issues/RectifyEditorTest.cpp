// The editor of a rectification: what counts as a change, who is asked, what is saved.
#include "issues/TNRectityEditDlg.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString kSaved = u"整改信息保存成功"_s;
const QString kOverwrite = u"整改信息已被修改，是否覆盖?"_s;

template <class Control> Control& In(QWidget& window, const char* name) {
    return *window.findChild<Control*>(QString::fromLatin1(name));
}

void Write(QWidget& window, const QString& text) {
    auto& box = In<QPlainTextEdit>(window, "rectifyEdit");
    box.selectAll();
    box.insertPlainText(text);
}

void Choose(QWidget& window, const QString& state) {
    In<QComboBox>(window, "stateCombo").setCurrentText(state);
}

void Confirm(QWidget& window) {
    support::Click(&In<QPushButton>(window, "okButton"));
}

void Cancel(QWidget& window) {
    support::Click(&In<QPushButton>(window, "cancelButton"));
}

class RectifyEditorTest : public IssueFixture {
protected:
    /// Opens the page of q1 and its editor, in which the action ends.
    void EditIn(const support::ModalVisit::Action& action) {
        ASSERT_TRUE(OpenRectify());
        host.Log().Clear();
        const support::ModalVisit visit(u"TNRectityEditDlg"_s, action);
        support::Click(Rectify().EditButton());
        EXPECT_TRUE(visit.HasCome());
    }
    KX_DATA::RectifyRecord& OnServer() { return host.questions.rectifications[u"q1"_s]; }
    std::vector<std::string> Calls() {
        return Log().LinesOf({"GetRectification", "SaveRectification", "AskOkCancel", "ShowMessage",
                              "RefreshTNMarks"});
    }
};

} // namespace

TEST_F(RectifyEditorTest, OffersTheStatesWithoutTheOneOfFiltersAndShowsWhatThePageShows) {
    EditIn([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), u"问题整改");
        auto& states = In<QComboBox>(window, "stateCombo");
        QStringList names;
        for (int i = 0; i < states.count(); ++i) {
            names << states.itemText(i);
        }
        EXPECT_EQ(names, QStringList({u"待整改"_s, u"整改中"_s, u"已整改"_s}));
        EXPECT_EQ(states.currentText(), u"整改中");
        EXPECT_EQ(In<QPlainTextEdit>(window, "rectifyEdit").toPlainText(), u"已注浆");
        Cancel(window);
    });
    EXPECT_THAT(Calls(), IsEmpty());
    EXPECT_EQ(Rectify().Rectify().rectifierName, u"王五");
}

TEST_F(RectifyEditorTest, AStateThatNobodyKnowsSelectsNothing) {
    OnServer().state = 77;
    EditIn([](QWidget& window) {
        EXPECT_EQ(In<QComboBox>(window, "stateCombo").currentIndex(), -1);
        Cancel(window);
    });
}

TEST_F(RectifyEditorTest, ATextThatIsLongerThanTypingAllowsStaysWhole) {
    OnServer().rectifyText = QString(300, u'长');
    EditIn([](QWidget& window) {
        auto& box = In<QPlainTextEdit>(window, "rectifyEdit");
        EXPECT_EQ(box.toPlainText().size(), 300);
        Cancel(window);
    });
}

TEST_F(RectifyEditorTest, TypingStopsAt255Characters) {
    EditIn([](QWidget& window) {
        Write(window, QString(256, u'字'));
        EXPECT_EQ(In<QPlainTextEdit>(window, "rectifyEdit").toPlainText().size(), 255);
        Cancel(window);
    });
}

TEST_F(RectifyEditorTest, WithoutAChangeNothingIsSavedAndTheDialogStays) {
    prompts.ExpectMessage(u"问题整改信息没有改变，不需要更改!"_s);
    EditIn([](QWidget& window) {
        Confirm(window);
        EXPECT_TRUE(window.isVisible());
        Cancel(window);
    });
    EXPECT_EQ(Log().CountOf("GetRectification"), 0);
}

TEST_F(RectifyEditorTest, ATextWithForeignLineBreaksIsNoChangeUntilItIsTouched) {
    OnServer().rectifyText = u"一\r\n二"_s;
    prompts.ExpectMessage(u"问题整改信息没有改变，不需要更改!"_s);
    EditIn([](QWidget& window) {
        Confirm(window);
        Cancel(window);
    });
}

TEST_F(RectifyEditorTest, OnlyTheTextChangedIsSavedAndTheMarksStay) {
    prompts.ExpectMessage(kSaved);
    EditIn([](QWidget& window) {
        Write(window, u"已重做"_s);
        Confirm(window);
    });
    EXPECT_THAT(Calls(), ElementsAre("GetRectification(id=q1)", "SaveRectification(id=q1,state=1)",
                                     "ShowMessage(" + kSaved.toStdString() + ")"));
    EXPECT_EQ(host.questions.lastRectifySave.rectifyText, u"已重做");
    EXPECT_EQ(host.questions.lastRectifySave.text1, QString());
    EXPECT_EQ(host.questions.lastRectifySave.value1, 0);
    EXPECT_EQ(host.questions.lastRectifySave.text2, QString());
}

TEST_F(RectifyEditorTest, OnlyTheStateChangedIsSavedAndTheMarksAreRefreshed) {
    prompts.ExpectMessage(kSaved);
    EditIn([](QWidget& window) {
        Choose(window, u"已整改"_s);
        Confirm(window);
    });
    EXPECT_THAT(Calls(),
                ElementsAre("GetRectification(id=q1)", "SaveRectification(id=q1,state=2)",
                            "ShowMessage(" + kSaved.toStdString() + ")", "RefreshTNMarks()"));
    EXPECT_EQ(host.questions.lastRectifySave.rectifyText, u"已注浆");
}

TEST_F(RectifyEditorTest, ThePageShowsWhatWasSavedAndWhoSavedIt) {
    prompts.ExpectMessage(kSaved);
    EditIn([](QWidget& window) {
        Write(window, u"已重做"_s);
        Choose(window, u"已整改"_s);
        Confirm(window);
    });
    EXPECT_EQ(TextOf(Rectify(), "stateText"), u"整改情况：已整改");
    EXPECT_EQ(TextOf(Rectify(), "rectifierText"), u"    整改人：engineer");
    EXPECT_EQ(Rectify().Widget()->findChild<QPlainTextEdit*>(u"rectifyBox"_s)->toPlainText(),
              u"已重做");
    EXPECT_EQ(Uuids(Rectify()).size(), 2U);
}

TEST_F(RectifyEditorTest, ABlankTextIsAllowed) {
    prompts.ExpectMessage(kSaved);
    EditIn([](QWidget& window) {
        Write(window, QString());
        Confirm(window);
    });
    EXPECT_EQ(host.questions.lastRectifySave.rectifyText, QString());
    EXPECT_EQ(Rectify().Rectify().rectifyText, QString());
}

TEST_F(RectifyEditorTest, SomebodyElseWhoSavedMeanwhileIsOverwrittenIfThePersonSaysSo) {
    prompts.ExpectOkCancel(kOverwrite, true);
    prompts.ExpectMessage(kSaved);
    EditIn([this](QWidget& window) {
        OnServer().rectifierName = u"赵六"_s;
        Write(window, u"已重做"_s);
        Confirm(window);
    });
    EXPECT_EQ(Log().CountOf("SaveRectification"), 1);
}

TEST_F(RectifyEditorTest, WhoDoesNotWantToOverwriteIsBackInTheDialog) {
    prompts.ExpectOkCancel(kOverwrite, false);
    EditIn([this](QWidget& window) {
        OnServer().rectifierName = u"赵六"_s;
        Write(window, u"已重做"_s);
        Confirm(window);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(In<QPlainTextEdit>(window, "rectifyEdit").toPlainText(), u"已重做");
        Cancel(window);
    });
    EXPECT_EQ(Log().CountOf("SaveRectification"), 0);
    EXPECT_EQ(Rectify().Rectify().rectifyText, u"已注浆");
}

TEST_F(RectifyEditorTest, TwoPeopleUnderOneNameNeverSeeTheQuestion) {
    prompts.ExpectMessage(kSaved);
    EditIn([this](QWidget& window) {
        OnServer().rectifyText = u"别人写的"_s;
        OnServer().state = 2;
        Write(window, u"已重做"_s);
        Confirm(window);
    });
    EXPECT_EQ(Log().CountOf("SaveRectification"), 1);
}

TEST_F(RectifyEditorTest, AfterTheOwnSaveTheLoginNameIsWhatTheNextCheckStartsFrom) {
    prompts.ExpectMessage(kSaved);
    EditIn([](QWidget& window) {
        Write(window, u"已重做"_s);
        Confirm(window);
    });
    // The service hasn't taken the name over: it still gives the one from before.
    prompts.ExpectOkCancel(kOverwrite, false);
    const support::ModalVisit visit(u"TNRectityEditDlg"_s, [](QWidget& window) {
        Write(window, u"又改"_s);
        Confirm(window);
        Cancel(window);
    });
    support::Click(Rectify().EditButton());
    EXPECT_TRUE(visit.HasCome());
}

TEST_F(RectifyEditorTest, ARecordThatCannotBeReadAnewIsNotSavedAndNothingIsTold) {
    EditIn([this](QWidget& window) {
        Write(window, u"已重做"_s);
        host.script.FailNext("GetRectification");
        Confirm(window);
        EXPECT_TRUE(window.isVisible());
        Cancel(window);
    });
    EXPECT_EQ(Log().CountOf("SaveRectification"), 0);
}

TEST_F(RectifyEditorTest, ASaveThatFailsIsToldAndCanBeTriedAgain) {
    prompts.ExpectMessage(u"整改信息保存失败"_s);
    prompts.ExpectMessage(kSaved);
    EditIn([this](QWidget& window) {
        Write(window, u"已重做"_s);
        host.script.FailNext("SaveRectification");
        Confirm(window);
        EXPECT_TRUE(window.isVisible());
        Confirm(window);
    });
    EXPECT_EQ(Rectify().Rectify().rectifyText, u"已重做");
}

TEST_F(RectifyEditorTest, AViewerThatEndsDuringACallTakesTheEditorWithIt) {
    for (const char* call : {"GetRectification", "SaveRectification"}) {
        prompts.ExpectMessage(kSaved);
        EditIn([&](QWidget& window) {
            Write(window, u"已重做"_s);
            host.script.During(call, [] { Wrap().Destroy(); });
            Confirm(window);
        });
        host.script.During(call, nullptr);
        EXPECT_FALSE(Wrap().HasWindow()) << call;
    }
}
