#include "issues/IssueEdit.h"

#include <gtest/gtest.h>

namespace issues {
namespace {

using namespace Qt::StringLiterals;

TEST(IssueEdit, EveryTradeHasItsWordAndOthersNone) {
    EXPECT_EQ(MajorWord(1), u"土建");
    EXPECT_EQ(MajorWord(2), u"钢筋");
    EXPECT_EQ(MajorWord(3), u"安装");
    EXPECT_EQ(MajorWord(4), u"Revit");
    for (const qint32 other : {0, 5, -1}) {
        EXPECT_EQ(MajorWord(other), QString()) << other;
    }
}

TEST(IssueEdit, TheQueryOfACodeTakesWhatTheViewPicked) {
    KX_DATA::PickedComponent component;
    component.floor = u"f"_s;
    component.text1 = u"1"_s;
    component.text2 = u"2"_s;
    component.text3 = u"3"_s;
    component.componentName = u"n"_s;
    component.componentHandle = u"h"_s;
    component.componentSubName = u"s"_s;
    const KX_DATA::QRCodeQuery query = QueryOf(component, u"土建"_s, 7);
    EXPECT_EQ(query.text2 + query.text3 + query.componentName + query.floor, u"23nf");
    EXPECT_EQ(query.componentHandle + query.componentSubName, u"hs");
    EXPECT_EQ(query.majorWord + query.text1, u"土建1");
    EXPECT_EQ(query.ppid, 7);
}

TEST(IssueEdit, TheUpdateOfAnUnchangedIssueIsTheIssue) {
    KX_DATA::QuestionDetail question;
    question.description = u"d"_s;
    question.questionId = u"q"_s;
    question.questionName = u"n"_s;
    question.markId = 5;
    question.status = 1;
    question.componentHandle = u"h"_s;
    question.floor = u"f"_s;
    question.qrCode = u"c"_s;
    const KX_DATA::IssueUpdate update = UpdateOf(question);
    EXPECT_EQ(update.description + update.questionId + update.questionName, u"dqn");
    EXPECT_EQ(update.markId, 5);
    EXPECT_EQ(update.status, 1);
    EXPECT_EQ(update.text1, QString());
    EXPECT_EQ(update.componentHandle + update.floor + update.qrCode, u"hfc");
}

} // namespace
} // namespace issues
