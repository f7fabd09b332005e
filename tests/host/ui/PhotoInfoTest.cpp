#include "host/ui/photo/PhotoInfo.h"

#include "toolkit/KXTools.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

PhotoTale WholeTale() {
    return {u"墙.jpg"_s, u"张伟"_s, 1'800'000'000, 1'710'224'736, u"Maker Model 7"_s,
            31.2304,     121.4737,  271.5,         u"墙.HEIC"_s};
}

QString ValueOf(const PhotoInfo& info, const QString& caption) {
    for (const auto& [name, value] : info.rows) {
        if (name == caption) {
            return value;
        }
    }
    return u"no such row"_s;
}

TEST(PhotoInfo, SaysAllThatIsKnown) {
    const PhotoInfo info = InfoOf(WholeTale(), {4032, 3024});
    EXPECT_EQ(info.title, u"墙.jpg"_s);
    EXPECT_EQ(info.originalName, u"墙.HEIC"_s);
    EXPECT_EQ(ValueOf(info, u"拍摄时间"_s), KXTools::SecondText(1'710'224'736));
    EXPECT_EQ(ValueOf(info, u"上传时间"_s), KXTools::SecondText(1'800'000'000));
    EXPECT_EQ(ValueOf(info, u"上传人"_s), u"张伟"_s);
    EXPECT_EQ(ValueOf(info, u"相机"_s), u"Maker Model 7"_s);
    EXPECT_EQ(ValueOf(info, u"拍摄位置"_s), u"31.230400°N, 121.473700°E"_s);
    EXPECT_EQ(ValueOf(info, u"拍摄方向"_s), u"271.5° 西"_s);
    EXPECT_EQ(ValueOf(info, u"像素"_s), u"4032 × 3024"_s);
    EXPECT_EQ(ValueOf(info, u"原始文件"_s), u"墙.HEIC"_s);
}

TEST(PhotoInfo, WhatIsNotKnownIsSaidToBeNot) {
    const PhotoInfo info = InfoOf({u"a.png"_s, u"li"_s, 1'800'000'000, {}, {}, {}, {}, {}, {}}, {});
    for (const QString& caption : {u"拍摄时间"_s, u"相机"_s, u"拍摄位置"_s, u"拍摄方向"_s}) {
        EXPECT_EQ(ValueOf(info, caption), u"未记录"_s);
    }
    EXPECT_EQ(ValueOf(info, u"像素"_s), u"…"_s);
    EXPECT_EQ(ValueOf(info, u"原始文件"_s), u"即此照片"_s);
    EXPECT_TRUE(info.originalName.isEmpty());
}

TEST(PhotoInfo, SouthAndWestBearTheirLetters) {
    EXPECT_EQ(PlaceText(-33.8568, -70.5), u"33.856800°S, 70.500000°W"_s);
    EXPECT_EQ(PlaceText(0, 0), u"0.000000°N, 0.000000°E"_s);
}

TEST(PhotoInfo, ADirectionIsTheNearestOfEightWinds) {
    EXPECT_EQ(DirectionText(0), u"0.0° 北"_s);
    EXPECT_EQ(DirectionText(22.4), u"22.4° 北"_s);
    EXPECT_EQ(DirectionText(22.6), u"22.6° 东北"_s);
    EXPECT_EQ(DirectionText(90), u"90.0° 东"_s);
    EXPECT_EQ(DirectionText(180), u"180.0° 南"_s);
    EXPECT_EQ(DirectionText(315), u"315.0° 西北"_s);
    EXPECT_EQ(DirectionText(359.9), u"359.9° 北"_s);
}

TEST(PhotoInfo, ATipHasWhatIsKnownAndNothingElse) {
    EXPECT_EQ(TipOf(WholeTale()),
              u"拍摄 %1  Maker Model 7  31.230400°N, 121.473700°E  朝向 271.5° 西"_s.arg(
                  KXTools::SecondText(1'710'224'736)));
    PhotoTale tale;
    EXPECT_EQ(TipOf(tale), QString());
    tale.camera = u"X"_s;
    tale.latitude = 1; // half a place is none
    EXPECT_EQ(TipOf(tale), u"X"_s);
}

} // namespace
} // namespace host
