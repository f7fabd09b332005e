#include "sample/PictureArtist.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

namespace {

using namespace Qt::StringLiterals;

sample::PictureOrder Order(quint64 seed, sample::SceneKind kind) {
    sample::PictureOrder order;
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
    sample::PictureArtist first;
    sample::PictureArtist second;
    const sample::PictureOrder order = Order(17, sample::SceneKind::Garage);
    // The second artist has drawn something else before: nothing of that may stay behind.
    (void)second.Paint(Order(3, sample::SceneKind::Facade));
    const QByteArray one = first.PaintJpeg(order);
    EXPECT_FALSE(one.isEmpty());
    EXPECT_EQ(one, second.PaintJpeg(order));
}

TEST(PictureArtist, TwoThreadsDrawWhatOneDraws) {
    const sample::PictureOrder order = Order(5, sample::SceneKind::Crack);
    sample::PictureArtist here;
    const QImage expected = here.Paint(order);
    QImage left;
    QImage right;
    std::thread one([&] { left = sample::PictureArtist().Paint(order); });
    std::thread two([&] { right = sample::PictureArtist().Paint(order); });
    one.join();
    two.join();
    EXPECT_EQ(left, expected);
    EXPECT_EQ(right, expected);
}

TEST(PictureArtist, EveryKindOfSceneHasContrast) {
    sample::PictureArtist artist;
    for (const sample::SceneKind kind : sample::kAllSceneKinds) {
        for (quint64 seed = 1; seed <= 3; ++seed) {
            const QImage image = artist.Paint(Order(seed, kind));
            ASSERT_EQ(image.size(), QSize(320, 240));
            EXPECT_GT(Contrast(image), 12) << static_cast<int>(kind) << " seed " << seed;
        }
    }
}

TEST(PictureArtist, OtherSeedsGiveClearlyOtherPictures) {
    sample::PictureArtist artist;
    for (const sample::SceneKind kind : sample::kAllSceneKinds) {
        const QImage first = artist.Paint(Order(11, kind));
        const QImage second = artist.Paint(Order(12, kind));
        EXPECT_GT(Difference(first, second), 6) << static_cast<int>(kind);
    }
}

TEST(PictureArtist, UprightPicturesKeepTheirShape) {
    sample::PictureArtist artist;
    sample::PictureOrder order = Order(4, sample::SceneKind::Stairs);
    order.size = {240, 320};
    EXPECT_EQ(artist.Paint(order).size(), QSize(240, 320));
}

TEST(PictureArtist, ThePlateStandsAtTheBottomLeft) {
    sample::PictureArtist artist;
    sample::PictureOrder order = Order(9, sample::SceneKind::Room);
    const QImage with = artist.Paint(order);
    order.caption = sample::CaptionStyle::None;
    const QImage without = artist.Paint(order);
    const QRect bottomLeft(0, 120, 160, 120);
    const QRect topRight(160, 0, 160, 120);
    EXPECT_NE(with.copy(bottomLeft), without.copy(bottomLeft));
    EXPECT_EQ(with.copy(topRight), without.copy(topRight));
}

TEST(PictureArtist, TooSmallAPictureIsNone) {
    sample::PictureArtist artist;
    sample::PictureOrder order = Order(1, sample::SceneKind::Room);
    order.size = {320, 63};
    EXPECT_TRUE(artist.Paint(order).isNull());
    EXPECT_TRUE(artist.PaintJpeg(order).isEmpty());
}

} // namespace
