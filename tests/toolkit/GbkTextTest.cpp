#include "toolkit/GbkText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(GbkText, IsAvailableOnThisPlatform) {
    EXPECT_TRUE(toolkit::IsGbkAvailable());
}

TEST(GbkText, ChineseAndEuroBecomeTheirBytesOfCodePage936) {
    EXPECT_EQ(toolkit::ToGbk(u"中文A€"_s), "\xd6\xd0\xce\xc4\x41\x80");
}

TEST(GbkText, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
    EXPECT_EQ(toolkit::ToGbk(u"a😀한b"_s), "a??b");
}

TEST(GbkText, BytesComeBackAsTheTextTheyWere) {
    const QString text = u"确认删除照片 IMG_01.JPG ？"_s;
    EXPECT_EQ(toolkit::FromGbk(toolkit::ToGbk(text)), text);
}

TEST(GbkText, ABadLeadByteBecomesTheReplacementCharacter) {
    const QString text = toolkit::FromGbk(std::string("a\xd6", 2));
    EXPECT_TRUE(text.startsWith(u'a'));
}

TEST(GbkText, EmptyTextStaysEmpty) {
    EXPECT_TRUE(toolkit::ToGbk(QString()).empty());
    EXPECT_TRUE(toolkit::FromGbk(std::string()).isEmpty());
}

TEST(GbkText, PlainTextIsTheSameAloneAndAmongChineseCharacters) {
    for (char byte = 1; byte > 0; ++byte) {
        const QString alone(QLatin1Char{byte});
        EXPECT_EQ(toolkit::ToGbk(alone), std::string(1, byte));
        EXPECT_EQ(toolkit::ToGbk(alone + u'中').substr(0, 1), std::string(1, byte));
        EXPECT_EQ(toolkit::FromGbk(std::string(1, byte)), alone);
        EXPECT_EQ(toolkit::FromGbk(byte + toolkit::ToGbk(u"中"_s)), alone + u'中');
    }
}
