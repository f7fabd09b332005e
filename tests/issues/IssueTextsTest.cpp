#include "issues/IssueTexts.h"

#include <gtest/gtest.h>

namespace issues {
namespace {

using namespace Qt::StringLiterals;

KX_DATA::QuestionDetail Changed() {
    KX_DATA::QuestionDetail question;
    question.questionName = u"梁底裂缝"_s;
    question.floor = u"3"_s;
    question.componentSubName = u"框架梁"_s;
    question.componentName = u"KL-5"_s;
    question.creatorName = u"张三"_s;
    question.updaterName = u"李四"_s;
    question.createTime = 1772668800;
    question.updateTime = 1772672400;
    return question;
}

TEST(IssueTexts, TheComponentIsNamedByFloorSubNameAndName) {
    KX_DATA::QuestionDetail question = Changed();
    EXPECT_EQ(ComponentText(question), u"3层 框架梁 KL-5");
    question.componentSubName.clear();
    EXPECT_EQ(ComponentText(question), u"3层 KL-5");
}

TEST(IssueTexts, EveryLineHasItsCaption) {
    const IssueLines lines = LinesOf(Changed());
    EXPECT_EQ(lines.name, u"问题名称：梁底裂缝");
    EXPECT_EQ(lines.component, u"问题构件：3层 框架梁 KL-5");
    EXPECT_EQ(lines.creator, u"    创建人：张三");
    EXPECT_EQ(lines.updater, u"    更新人：李四");
    EXPECT_EQ(lines.updateTime, u"更新时间：2026年03月05日 09:00:00");
}

TEST(IssueTexts, EqualTimesOfCreationAndUpdateShowTheTwoCaptionsWithoutAValue) {
    KX_DATA::QuestionDetail question = Changed();
    question.updateTime = question.createTime;
    const IssueLines lines = LinesOf(question);
    EXPECT_EQ(lines.updater, u"    更新人：");
    EXPECT_EQ(lines.updateTime, u"更新时间：");
}

TEST(IssueTexts, TheWidthCountsBytesOfTheCodePage) {
    EXPECT_EQ(DisplayWidth(u"abc"_s), 3);
    EXPECT_EQ(DisplayWidth(u"梁a底"_s), 5);
    EXPECT_EQ(DisplayWidth({}), 0);
    // What the code page lacks becomes one "?".
    EXPECT_EQ(DisplayWidth(u"😀"_s), 1);
}

TEST(IssueTexts, ANameOfFourteenDoubleCharactersGetsNoTipAndTheFifteenthOneDoes) {
    KX_DATA::QuestionDetail question = Changed();
    question.questionName = QString(14, u'梁');
    EXPECT_EQ(LinesOf(question).nameTip, QString());
    question.questionName += u'梁';
    EXPECT_EQ(LinesOf(question).nameTip, u"问题名称："_s + question.questionName);
}

TEST(IssueTexts, AWideComponentGetsATipByTheSameRule) {
    KX_DATA::QuestionDetail question = Changed();
    question.componentSubName.clear();
    question.componentName = QString(24, u'a'); // "3层 " takes four
    EXPECT_EQ(LinesOf(question).componentTip, QString());
    question.componentName += u'a';
    EXPECT_EQ(LinesOf(question).componentTip, u"问题构件：3层 "_s + question.componentName);
}

TEST(IssueTexts, APictureHasUploaderAndTimeAndNoneTheCaptionsAlone) {
    KX_DATA::QuestionPicRecord pic;
    pic.uploaderName = u"张三"_s;
    pic.uploadTime = 1772668800;
    EXPECT_EQ(LinesOf(&pic).uploader, u"    上传人：张三");
    EXPECT_EQ(LinesOf(&pic).uploadTime, u"上传时间：2026年03月05日 08:00:00");
    EXPECT_EQ(LinesOf(nullptr).uploader, u"    上传人：");
    EXPECT_EQ(LinesOf(nullptr).uploadTime, u"上传时间：");
}

} // namespace
} // namespace issues
