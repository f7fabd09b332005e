#include "host/import/ExifFacts.h"

#include "tests/host/import/TestPictures.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using importtest::GpsText;
using importtest::Picture;
using importtest::WithGps;

TEST(ExifFacts, CameraPlaceAndDirectionAreRead) {
    const site::PhotoFacts facts = host::ReadPhotoFacts(WithGps(Picture("jpeg", 1), {}));
    EXPECT_EQ(facts.camera, u"Maker Model 7"_s);
    ASSERT_TRUE(facts.latitude && facts.longitude && facts.direction);
    EXPECT_NEAR(*facts.latitude, 31.2304, 1e-6);
    EXPECT_NEAR(*facts.longitude, 121.4737, 1e-6);
    EXPECT_NEAR(*facts.direction, 271.5, 1e-9);
    EXPECT_FALSE(facts.taken);
}

TEST(ExifFacts, SouthAndWestAreBelowZero) {
    const site::PhotoFacts facts =
        host::ReadPhotoFacts(WithGps(Picture("jpeg", 1), {"Maker", "Model 7", 'S', 'W'}));
    EXPECT_NEAR(*facts.latitude, -31.2304, 1e-6);
    EXPECT_NEAR(*facts.longitude, -121.4737, 1e-6);
}

TEST(ExifFacts, AMakerThatTheModelSaysTooIsSaidOnce) {
    const auto cameraOf = [](const QByteArray& maker, const QByteArray& model) {
        return host::ReadPhotoFacts(WithGps(Picture("jpeg", 1), {maker, model})).camera;
    };
    EXPECT_EQ(cameraOf("Canon", "Canon EOS R5"), u"Canon EOS R5"_s);
    EXPECT_EQ(cameraOf("HUAWEI", ""), u"HUAWEI"_s);
    EXPECT_EQ(cameraOf("A\nB", " x \t y "), u"AB x y"_s);
    EXPECT_EQ(cameraOf("", QByteArray(300, 'x')).size(), 100);
}

TEST(ExifFacts, AFullCircleIsNorth) {
    GpsText gps;
    gps.direction = {360, 1};
    EXPECT_EQ(host::ReadPhotoFacts(WithGps(Picture("jpeg", 1), gps)).direction, 0.0);
}

TEST(ExifFacts, NumbersThatCannotBeAreLeftOut) {
    GpsText gps;
    gps.direction = {400, 1};
    gps.degrees = {99, 1};
    site::PhotoFacts facts = host::ReadPhotoFacts(WithGps(Picture("jpeg", 1), gps));
    EXPECT_FALSE(facts.latitude || facts.longitude || facts.direction);
    gps.direction = {1, 0};
    gps.degrees = {31, 0};
    facts = host::ReadPhotoFacts(WithGps(Picture("jpeg", 1), gps));
    EXPECT_FALSE(facts.latitude || facts.longitude || facts.direction);
    EXPECT_EQ(facts.camera, u"Maker Model 7"_s);
}

TEST(ExifFacts, WithoutABlockNothingIsKnown) {
    EXPECT_TRUE(host::ReadPhotoFacts(Picture("jpeg", 1)).IsEmpty());
    EXPECT_TRUE(host::ReadPhotoFacts({}).IsEmpty());
}

} // namespace
