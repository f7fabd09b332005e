#include "console/RecentKeywords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Keywords = std::vector<QString>;

const Keywords& Full() {
    static const Keywords keywords = {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s};
    return keywords;
}

TEST(RecentKeywords, ANewKeywordStandsFirst) {
    EXPECT_THAT(WithRecentKeyword({}, u"a"_s), ElementsAre(u"a"_s));
    EXPECT_THAT(WithRecentKeyword({u"a"_s, u"b"_s}, u"c"_s), ElementsAre(u"c"_s, u"a"_s, u"b"_s));
}

TEST(RecentKeywords, AnEmptyKeywordChangesNothing) {
    EXPECT_THAT(WithRecentKeyword({u"a"_s}, QString()), ElementsAre(u"a"_s));
    EXPECT_THAT(WithRecentKeyword({}, QString()), IsEmpty());
}

TEST(RecentKeywords, AKnownKeywordMovesToTheTopWithoutGrowingTheList) {
    EXPECT_THAT(WithRecentKeyword({u"a"_s, u"b"_s, u"c"_s}, u"b"_s),
                ElementsAre(u"b"_s, u"a"_s, u"c"_s));
    EXPECT_THAT(WithRecentKeyword({u"a"_s, u"b"_s}, u"a"_s), ElementsAre(u"a"_s, u"b"_s));
}

TEST(RecentKeywords, OnlyAnExactlyEqualEntryIsTheSame) {
    EXPECT_THAT(WithRecentKeyword({u"Abc"_s, u"ab"_s}, u"abc"_s),
                ElementsAre(u"abc"_s, u"Abc"_s, u"ab"_s));
}

TEST(RecentKeywords, OfTwoEqualEntriesTheFirstGoes) {
    EXPECT_THAT(WithRecentKeyword({u"x"_s, u"a"_s, u"y"_s, u"a"_s}, u"a"_s),
                ElementsAre(u"a"_s, u"x"_s, u"y"_s, u"a"_s));
}

TEST(RecentKeywords, TheSixthKeywordStillFindsRoom) {
    const Keywords five(Full().begin(), Full().begin() + 5);
    EXPECT_THAT(WithRecentKeyword(five, u"n"_s),
                ElementsAre(u"n"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s));
}

TEST(RecentKeywords, ASeventhKeywordDropsTheOldest) {
    EXPECT_THAT(WithRecentKeyword(Full(), u"n"_s),
                ElementsAre(u"n"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s));
}

TEST(RecentKeywords, AKnownKeywordInAFullListDropsNothing) {
    EXPECT_THAT(WithRecentKeyword(Full(), u"6"_s),
                ElementsAre(u"6"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s));
}

TEST(RecentKeywords, AListThatCameTooLongLosesOneEntryOfASearch) {
    Keywords eight = Full();
    eight.insert(eight.end(), {u"7"_s, u"8"_s});
    EXPECT_THAT(WithRecentKeyword(eight, u"n"_s),
                ElementsAre(u"n"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"7"_s, u"8"_s));
}

TEST(EffectiveKeyword, IsTrimmedAtBothEnds) {
    EXPECT_EQ(EffectiveKeyword(u"  裂缝 一层\t"_s, u"hint"_s), u"裂缝 一层"_s);
}

TEST(EffectiveKeyword, BlanksCountAsEmpty) {
    EXPECT_EQ(EffectiveKeyword(u"   "_s, u"hint"_s), QString());
    EXPECT_EQ(EffectiveKeyword(QString(), u"hint"_s), QString());
}

TEST(EffectiveKeyword, TheHintItselfCountsAsEmpty) {
    EXPECT_EQ(EffectiveKeyword(u"输入照片名称"_s, u"输入照片名称"_s), QString());
    EXPECT_EQ(EffectiveKeyword(u" 输入照片名称 "_s, u"输入照片名称"_s), QString());
    EXPECT_EQ(EffectiveKeyword(u"输入照片名称x"_s, u"输入照片名称"_s), u"输入照片名称x"_s);
}

} // namespace
