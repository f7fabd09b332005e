#include "host/sample/PictureArtist.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

namespace {

using namespace Qt::StringLiterals;

host::PictureOrder Order(quint64 seed, host::SceneKind kind) {
    host::PictureOrder order;
    order.seed = seed;
    order.kind = kind;
    order.size = {320, 240};
    order.lines = QStringList{u"项目：滨江花园"_s, u"时间：2024-03-12 14:25"_s};
    return order;
}

/// Mean difference of the green channel on a grid of places, 0 to 255.
double Difference(const QImage& a, const QImage& b) {
    double sum = 0;
    int count = 0;
    for (int y = 4; y < a.height(); y += 8) {
        for (int x = 4; x < a.width(); x += 8) {
            sum += std::abs(qGreen(a.pixel(x, y)) - qGreen(b.pixel(x, y)));
            ++count;
        }
    }
    return sum / count;
}

/// Standard deviation of the green channel.
double Contrast(const QImage& image) {
    double sum = 0;
    double squares = 0;
    const int count = image.width() * image.height();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double value = qGreen(image.pixel(x, y));
            sum += value;
            squares += value * value;
        }
    }
    const double mean = sum / count;
    return std::sqrt(squares / count - mean * mean);
}

TEST(PictureArtist, EqualOrdersGiveEqualFiles) {
    host::PictureArtist first;
    host::PictureArtist second;
    const host::PictureOrder order = Order(17, host::SceneKind::Garage);
    // The second artist has drawn something else before: nothing of that may stay behind.
    (void)second.Paint(Order(3, host::SceneKind::Facade));
    const QByteArray one = first.PaintJpeg(order);
    EXPECT_FALSE(one.isEmpty());
    EXPECT_EQ(one, second.PaintJpeg(order));
}

TEST(PictureArtist, TwoThreadsDrawWhatOneDraws) {
    const host::PictureOrder order = Order(5, host::SceneKind::Crack);
    host::PictureArtist here;
    const QImage expected = here.Paint(order);
    QImage left;
    QImage right;
    std::thread one([&] { left = host::PictureArtist().Paint(order); });
    std::thread two([&] { right = host::PictureArtist().Paint(order); });
    one.join();
    two.join();
    EXPECT_EQ(left, expected);
    EXPECT_EQ(right, expected);
}

TEST(PictureArtist, EveryKindOfSceneHasContrast) {
    host::PictureArtist artist;
    for (const host::SceneKind kind : host::kAllSceneKinds) {
        for (quint64 seed = 1; seed <= 3; ++seed) {
            const QImage image = artist.Paint(Order(seed, kind));
            ASSERT_EQ(image.size(), QSize(320, 240));
            EXPECT_GT(Contrast(image), 12) << static_cast<int>(kind) << " seed " << seed;
        }
    }
}

TEST(PictureArtist, OtherSeedsGiveClearlyOtherPictures) {
    host::PictureArtist artist;
    for (const host::SceneKind kind : host::kAllSceneKinds) {
        const QImage first = artist.Paint(Order(11, kind));
        const QImage second = artist.Paint(Order(12, kind));
        EXPECT_GT(Difference(first, second), 6) << static_cast<int>(kind);
    }
}

TEST(PictureArtist, UprightPicturesKeepTheirShape) {
    host::PictureArtist artist;
    host::PictureOrder order = Order(4, host::SceneKind::Stairs);
    order.size = {240, 320};
    EXPECT_EQ(artist.Paint(order).size(), QSize(240, 320));
}

TEST(PictureArtist, ThePlateStandsAtTheBottomLeft) {
    host::PictureArtist artist;
    host::PictureOrder order = Order(9, host::SceneKind::Room);
    const QImage with = artist.Paint(order);
    order.caption = host::CaptionStyle::None;
    const QImage without = artist.Paint(order);
    const QRect bottomLeft(0, 120, 160, 120);
    const QRect topRight(160, 0, 160, 120);
    EXPECT_NE(with.copy(bottomLeft), without.copy(bottomLeft));
    EXPECT_EQ(with.copy(topRight), without.copy(topRight));
}

TEST(PictureArtist, TooSmallAPictureIsNone) {
    host::PictureArtist artist;
    host::PictureOrder order = Order(1, host::SceneKind::Room);
    order.size = {320, 63};
    EXPECT_TRUE(artist.Paint(order).isNull());
    EXPECT_TRUE(artist.PaintJpeg(order).isEmpty());
}

} // namespace
