// A picture on the clipboard.
#include "viewers/PictureClip.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PictureClip, OffersItsFileAndItsPictureAndNothingElse) {
    const gallery::PictureClip clip(u"/photos/a.jpg"_s);
    EXPECT_TRUE(clip.hasImage());
    EXPECT_TRUE(clip.hasUrls());
    EXPECT_TRUE(clip.hasFormat(u"application/x-qt-image"_s));
    EXPECT_FALSE(clip.hasFormat(u"text/html"_s));
    EXPECT_FALSE(clip.hasFormat(u"application/x-color"_s));
}
