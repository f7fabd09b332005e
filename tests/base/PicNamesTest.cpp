#include "base/PicNames.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ZelvorNRQ_KXVeskPicture::CopyTarget;
using ZelvorNRQ_KXVeskPicture::IsPicExtension;
using ZelvorNRQ_KXVeskPicture::SafeFileName;
using ZelvorNRQ_KXVeskPicture::SplitPicName;

namespace {

struct Parts {
    QString base;
    QString extension;
    bool operator==(const Parts&) const = default;
};

Parts Split(const QString& name, bool withDot = false) {
    Parts parts;
    SplitPicName(name, parts.base, parts.extension, withDot);
    return parts;
}

} // namespace

TEST(PicNames, AnUpperCaseExtensionIsKnownAndKeepsItsSpelling) {
    EXPECT_EQ(Split(u"IMG.PNG"_s), (Parts{u"IMG"_s, u"PNG"_s}));
    EXPECT_EQ(Split(u"照片.JpEg"_s), (Parts{u"照片"_s, u"JpEg"_s}));
}

TEST(PicNames, AnotherExtensionOrNoneIsAllBaseAndGetsJpg) {
    EXPECT_EQ(Split(u"plan.dwg"_s), (Parts{u"plan.dwg"_s, u"jpg"_s}));
    EXPECT_EQ(Split(u"plan"_s), (Parts{u"plan"_s, u"jpg"_s}));
    EXPECT_EQ(Split(QString()), (Parts{QString(), u"jpg"_s}));
}

TEST(PicNames, OnlyTheLastDotParts) {
    EXPECT_EQ(Split(u"a.b.jpg"_s), (Parts{u"a.b"_s, u"jpg"_s}));
}

TEST(PicNames, ADotAtTheVeryEndBelongsToTheBase) {
    EXPECT_EQ(Split(u"plan."_s), (Parts{u"plan."_s, u"jpg"_s}));
    EXPECT_EQ(Split(u".jpg"_s), (Parts{QString(), u"jpg"_s}));
}

TEST(PicNames, TheExtensionComesWithItsDotOnRequest) {
    EXPECT_EQ(Split(u"plan"_s, true).extension, u".jpg");
    EXPECT_EQ(Split(u"a.GIF"_s, true).extension, u".GIF");
}

TEST(PicNames, TheOutsMayBeTheNameItself) {
    QString name = u"a.png"_s;
    QString extension;
    SplitPicName(name, name, extension, false);
    EXPECT_EQ(name, u"a");
    EXPECT_EQ(extension, u"png");
}

TEST(PicNames, FiveExtensionsAreKnown) {
    for (const QString& known : {u"jpg"_s, u"jpeg"_s, u"png"_s, u"bmp"_s, u"gif"_s, u"GIF"_s}) {
        EXPECT_TRUE(IsPicExtension(known));
    }
    for (const QString& other : {u""_s, u"tif"_s, u".jpg"_s, u"jpgx"_s}) {
        EXPECT_FALSE(IsPicExtension(other));
    }
}

TEST(CopyTarget, NumbersStandInBracketsBehindTheBase) {
    EXPECT_EQ(CopyTarget(u"/out"_s, u"a"_s, 0, u"jpg"_s), u"/out/a.jpg");
    EXPECT_EQ(CopyTarget(u"/out"_s, u"a"_s, 1, u"jpg"_s), u"/out/a(1).jpg");
    EXPECT_EQ(CopyTarget(u"/out"_s, u"plan."_s, 31, u"jpg"_s), u"/out/plan.(31).jpg");
}

TEST(CopyTarget, NeverLeavesTheFolder) {
    EXPECT_EQ(CopyTarget(u"/out"_s, u"../../etc/x"_s, 0, u"jpg"_s), u"/out/.._.._etc_x.jpg");
    EXPECT_EQ(CopyTarget(u"/out"_s, u"C:\\x"_s, 0, u"jpg"_s), u"/out/C__x.jpg");
}

TEST(SafeFileName, ReplacesWhatFileSystemsRefuse) {
    EXPECT_EQ(SafeFileName(u"1/2:*?\"<>|\t层"_s), u"1_2________层");
    EXPECT_EQ(SafeFileName(QString()), u"_");
    EXPECT_EQ(SafeFileName(u".."_s), u"_");
    EXPECT_EQ(SafeFileName(u"三层 梁柱节点"_s), u"三层 梁柱节点");
}

TEST(SafeFileName, CutsWholeCharactersOffATooLongName) {
    const QString name = SafeFileName(QString(300, u'梁') + u"\U00020BB7"_s);
    EXPECT_EQ(name, QString(73, u'梁'));
    const QString astral = SafeFileName(u"\U00020BB7"_s.repeated(100));
    EXPECT_EQ(astral.toUtf8().size(), 220);
    EXPECT_TRUE(astral.isValidUtf16());
}

TEST(SafeFileName, TakesTheLastControlCharactersOutAndLeavesTheirNeighbours) {
    for (const QChar refused : {QChar(0x01), QChar(0x1F), QChar(0x7F)}) {
        EXPECT_EQ(SafeFileName(u"a"_s + refused), u"a_") << int(refused.unicode());
    }
    for (const QChar kept : {QChar(0x20), QChar(0x7E), QChar(0x80)}) {
        EXPECT_EQ(SafeFileName(u"a"_s + kept), u"a"_s + kept) << int(kept.unicode());
    }
}

TEST(SafeFileName, AllowsTwoHundredAndTwentyBytesAndNotOneMore) {
    EXPECT_EQ(SafeFileName(QString(220, u'a')), QString(220, u'a'));
    EXPECT_EQ(SafeFileName(QString(221, u'a')), QString(220, u'a'));
}

TEST(SafeFileName, DotsBesideSomethingElseStay) {
    EXPECT_EQ(SafeFileName(u"."_s), u"_");
    EXPECT_EQ(SafeFileName(u"..."_s), u"_");
    EXPECT_EQ(SafeFileName(u"..a"_s), u"..a");
}

TEST(SafeFileName, NeverEndsWithHalfACharacter) {
    EXPECT_EQ(SafeFileName(QString(217, u'a') + u"\U00020BB7"_s), QString(217, u'a'));
    EXPECT_EQ(SafeFileName(QString(216, u'a') + u"\U00020BB7"_s),
              QString(216, u'a') + u"\U00020BB7"_s);
}
