// Keys as numbers: what they have in common left out, eight or four characters of the rest.
#include "reminder/marks/KeyPrefix.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

KeyPrefix PrefixOf(const QStringList& keys) {
    KeyPrefix::Finder finder;
    for (const QString& key : keys) {
        finder.Add(key);
    }
    return finder.Result();
}

} // namespace

TEST(KeyPrefix, EightCharactersOfAByteEachFollowTheCommonOnes) {
    const KeyPrefix prefix = PrefixOf({u"key-B2345678"_s, u"key-A2345678"_s});
    EXPECT_EQ(prefix.NumberOf(u"key-A2345678"_s), 0x4132333435363738U);
    EXPECT_EQ(prefix.NumberOf(u"key-A23456789"_s), 0x4132333435363738U) << "the ninth is cut off";
    EXPECT_EQ(prefix.NumberOf(u"key-A2"_s), 0x4132000000000000U) << "what is short ends in zeros";
    EXPECT_EQ(prefix.NumberOf(u"key-"_s), 0U);
    EXPECT_EQ(prefix.NumberOf(u"key-甲ÿ"_s), 0xFFFF000000000000U) << "others count as the last";
}

TEST(KeyPrefix, FourCharactersOfTwoBytesEachIfAnyKeyNeedsThem) {
    const KeyPrefix prefix = PrefixOf({u"k甲1"_s, u"k乙2"_s, u"kA"_s});
    EXPECT_EQ(prefix.NumberOf(u"k甲123"_s), 0x7532003100320033U);
    EXPECT_EQ(prefix.NumberOf(u"k甲1234"_s), 0x7532003100320033U);
    EXPECT_EQ(prefix.NumberOf(u"kA"_s), 0x0041000000000000U);
    EXPECT_EQ(PrefixOf({u"aÿ"_s, u"b"_s}).NumberOf(u"aÿ"_s), 0x61FF000000000000U) << "a byte yet";
    EXPECT_EQ(PrefixOf({u"aĀ"_s, u"b"_s}).NumberOf(u"aĀ"_s), 0x0061010000000000U) << "no more";
}

TEST(KeyPrefix, AKeyFitsThatBeginsAsAllDo) {
    const KeyPrefix prefix = PrefixOf({u"key-2"_s, u"key-1"_s, u"key-3"_s});
    EXPECT_TRUE(prefix.Fits(u"key-"_s));
    EXPECT_TRUE(prefix.Fits(u"key-9"_s));
    EXPECT_FALSE(prefix.Fits(u"key"_s));
    EXPECT_FALSE(prefix.Fits(u"kex-1"_s));
    EXPECT_TRUE(PrefixOf({u"a"_s, u"b"_s}).Fits(u"z"_s)) << "nothing in common";
    EXPECT_TRUE(PrefixOf({u"only"_s}).Fits(u"only"_s));
    EXPECT_FALSE(PrefixOf({u"only"_s}).Fits(u"onl"_s));
}
