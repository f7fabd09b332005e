#include "toolkit/windows/NativePrompts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(WithExtension, AppendsTheExtensionWhereTheNameLacksIt) {
    EXPECT_EQ(toolkit::WithExtension(u"/a/b"_s, u"jpg"_s), u"/a/b.jpg"_s);
    EXPECT_EQ(toolkit::WithExtension(u"/a/b.png"_s, u"jpg"_s), u"/a/b.png.jpg"_s);
}

TEST(WithExtension, LeavesANameThatHasItInAnyCase) {
    EXPECT_EQ(toolkit::WithExtension(u"/a/b.JPG"_s, u"jpg"_s), u"/a/b.JPG"_s);
}

TEST(WithExtension, LeavesACancelledDialogAndAMissingExtensionAlone) {
    EXPECT_EQ(toolkit::WithExtension(QString(), u"jpg"_s), QString());
    EXPECT_EQ(toolkit::WithExtension(u"/a/b"_s, QString()), u"/a/b"_s);
}
