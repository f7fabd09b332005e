#include "site/StoreName.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace site {

using namespace Qt::StringLiterals;

TEST(StoreName, LettersDigitsUnderlineAndHyphenMakeAName) {
    EXPECT_TRUE(IsStoreName(u"3f2504e0-4f89-11d3-9a0c-0305e82c3301"_s));
    EXPECT_TRUE(IsStoreName(u"A_z-9"_s));
    EXPECT_TRUE(IsStoreName(QString(64, u'a')));
}

TEST(StoreName, NothingThatAFileSystemReadsIsAName) {
    const QStringList refused{
        u""_s,   u"."_s,     u".."_s,    u"a/b"_s,          u"a\\b"_s,         u"../x"_s,
        u"C:"_s, u"C:\\x"_s, u"a.jpg"_s, u"a b"_s,          u"a\nb"_s,         u"a\tb"_s,
        u"墙"_s, u"a%2fb"_s, u"~"_s,     QString(65, u'a'), QString(QChar(0)), u"a\u007f"_s};
    for (const QString& name : refused) {
        EXPECT_FALSE(IsStoreName(name)) << name.toStdString();
    }
}

TEST(StoreName, NewNamesAreNamesAndDiffer) {
    const QString first = NewStoreName();
    EXPECT_TRUE(IsStoreName(first));
    EXPECT_NE(first, NewStoreName());
}

TEST(PlainFileName, ChineseNamesWithDotsAndBlanksAreTaken) {
    EXPECT_TRUE(IsPlainFileName(u"外墙 3.层.JPG"_s));
}

TEST(PlainFileName, PathsDrivesAndControlCharactersAreRefused) {
    for (const QString& name : {u""_s, u"  "_s, u"."_s, u".."_s, u"a/b.jpg"_s, u"a\\b.jpg"_s,
                                u"C:b.jpg"_s, u"a\u0001.jpg"_s, QString(256, u'x')}) {
        EXPECT_FALSE(IsPlainFileName(name)) << name.toStdString();
    }
}

} // namespace site
