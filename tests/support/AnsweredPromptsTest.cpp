#include "tests/support/AnsweredPrompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

using namespace Qt::StringLiterals;
using support::AnsweredPrompts;
using testing::ElementsAre;

TEST(AnsweredPrompts, AnswersInOrderAndKeepsTheParents) {
    support::CallLog log;
    AnsweredPrompts prompts(&log);
    prompts.ExpectMessage(u"done"_s);
    prompts.ExpectOkCancel(u"delete?"_s, true);
    prompts.ExpectYesNo(u"sure?"_s, false);
    prompts.ExpectFolder(u"where?"_s, u"/tmp/a"_s);
    toolkit::Prompts().ShowMessage(7, u"done"_s);
    EXPECT_TRUE(toolkit::Prompts().AskOkCancel(8, u"delete?"_s));
    EXPECT_FALSE(toolkit::Prompts().AskYesNo(9, u"sure?"_s));
    EXPECT_EQ(toolkit::Prompts().AskFolder(0, u"where?"_s), u"/tmp/a"_s);
    EXPECT_TRUE(prompts.AllAnswered());
    EXPECT_THAT(prompts.Parents(), ElementsAre(7U, 8U, 9U, 0U));
    EXPECT_THAT(log.Lines(), ElementsAre("ShowMessage(done)", "AskOkCancel(delete?)",
                                         "AskYesNo(sure?)", "AskFolder(where?)"));
}

TEST(AnsweredPrompts, AnUnexpectedQuestionFailsTheTestAndIsDeclined) {
    AnsweredPrompts prompts;
    bool answer = true;
    EXPECT_NONFATAL_FAILURE(answer = toolkit::Prompts().AskOkCancel(0, u"delete?"_s), "unexpected");
    EXPECT_FALSE(answer);
}

TEST(AnsweredPrompts, AnotherTextFailsTheTest) {
    AnsweredPrompts prompts;
    prompts.ExpectMessage(u"right"_s);
    EXPECT_NONFATAL_FAILURE(toolkit::Prompts().ShowMessage(0, u"wrong"_s), "right");
    toolkit::Prompts().ShowMessage(0, u"right"_s);
}

TEST(AnsweredPrompts, AnExpectationLeftOverFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(
        {
            AnsweredPrompts prompts;
            prompts.ExpectMessage(u"never shown"_s);
        },
        "never came");
}

TEST(AnsweredPrompts, RunsWhatHappensMeanwhileAndNests) {
    AnsweredPrompts prompts;
    prompts.ExpectMessage(u"outer"_s);
    prompts.Meanwhile([] { toolkit::Prompts().ShowMessage(0, u"inner"_s); });
    prompts.ExpectMessage(u"inner"_s);
    toolkit::Prompts().ShowMessage(0, u"outer"_s);
    EXPECT_TRUE(prompts.AllAnswered());
}

TEST(AnsweredPrompts, PutsBackThePromptsThatWereInUse) {
    AnsweredPrompts outer;
    {
        AnsweredPrompts inner;
        EXPECT_EQ(&toolkit::Prompts(), &inner);
    }
    EXPECT_EQ(&toolkit::Prompts(), &outer);
}
