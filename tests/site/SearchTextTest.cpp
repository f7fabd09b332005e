#include "site/sqlite/SearchText.h"

#include <gtest/gtest.h>

namespace site {

using namespace Qt::StringLiterals;

TEST(SearchText, EachCharacterIsAWord) {
    EXPECT_EQ(SearchWords(u"外墙3A"_s), u"外 墙 3 a"_s);
}

TEST(SearchText, SignsBecomeWordsOfTheirCode) {
    EXPECT_EQ(SearchWords(u"a_%"_s), u"a u005f u0025"_s);
    EXPECT_EQ(SearchWords(u"\" '"_s), u"u0022 u0020 u0027"_s);
}

TEST(SearchText, ACharacterBeyondSixteenBitsStaysWhole) {
    EXPECT_EQ(SearchWords(u"a\U00020BB7b"_s), u"a \U00020BB7 b"_s);
}

TEST(SearchText, HalfAPairIsAWordOfItsCode) {
    EXPECT_EQ(SearchWords(QString(QChar(0xd842))), u"ud842"_s);
}

TEST(SearchPhrase, IsQuotedAndEmptyForNothing) {
    EXPECT_EQ(SearchPhrase(u"墙-"_s), u"\"墙 u002d\""_s);
    EXPECT_EQ(SearchPhrase({}), QString());
}

} // namespace site
