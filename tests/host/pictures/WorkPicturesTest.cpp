#include "host/pictures/WorkPictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cmath>
#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

QImage Picture(const QString& name) {
    for (const WorkPicture& picture : DrawWorkPictures()) {
        if (picture.name == name) {
            return picture.image;
        }
    }
    ADD_FAILURE() << name.toStdString();
    return {};
}

/// One of four frames, side by side or stacked.
QImage Frame(const QString& name, int index) {
    const QImage all = Picture(name);
    if (all.width() > all.height()) {
        return all.copy(index * all.width() / 4, 0, all.width() / 4, all.height());
    }
    return all.copy(0, index * all.height() / 4, all.width(), all.height() / 4);
}

/// WCAG 2.1, relative luminance and contrast ratio.
double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}
double Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one) + 0.05;
    const double b = Luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

TEST(WorkPictures, StepAndPageButtonsHaveFourFramesTwiceAsLargeAsTheirPlaces) {
    EXPECT_EQ(Picture(u"left_pic.png"_s).size(), QSize(4 * 100, 180));
    EXPECT_EQ(Picture(u"right_pic.png"_s).size(), QSize(4 * 100, 180));
    EXPECT_EQ(Picture(u"left_thumb.png"_s).size(), QSize(4 * 60, 120));
    EXPECT_EQ(Picture(u"right_thumb.png"_s).size(), QSize(4 * 60, 120));
    EXPECT_EQ(Picture(u"up_thumb.png"_s).size(), QSize(120, 4 * 60));
    EXPECT_EQ(Picture(u"down_thumb.png"_s).size(), QSize(120, 4 * 60));
}

TEST(WorkPictures, EveryStateOfAButtonLooksDifferent) {
    for (const QString& name : {u"left_pic.png"_s, u"up_thumb.png"_s}) {
        for (int one = 0; one < 4; ++one) {
            for (int other = 0; other < one; ++other) {
                EXPECT_NE(Frame(name, one), Frame(name, other)) << name.toStdString();
            }
        }
    }
}

TEST(WorkPictures, ArrowsPointWhereTheyLead) {
    const QImage left = Frame(u"left_pic.png"_s, 0);
    const QPoint tip(36, 90);
    EXPECT_EQ(left.pixelColor(tip), QColor(0x15, 0x42, 0x8B));
    EXPECT_NE(left.pixelColor(99 - tip.x(), tip.y()), QColor(0x15, 0x42, 0x8B));
    const QImage right = Frame(u"right_pic.png"_s, 0);
    EXPECT_EQ(right.pixelColor(99 - tip.x(), 179 - tip.y()), QColor(0x15, 0x42, 0x8B));
    const QImage up = Frame(u"up_thumb.png"_s, 0);
    EXPECT_EQ(up.pixelColor(60, 22), QColor(0x15, 0x42, 0x8B));
    const QImage down = Frame(u"down_thumb.png"_s, 0);
    EXPECT_EQ(down.pixelColor(60, 37), QColor(0x15, 0x42, 0x8B));
}

TEST(WorkPictures, ArrowsStandOutFromTheirPlateWhateverLiesBelow) {
    for (const int state : {0, 1, 2}) {
        QColor plate = Frame(u"left_pic.png"_s, state).pixelColor(20, 20);
        const QColor line = Frame(u"left_pic.png"_s, state).pixelColor(36, 90);
        // On black, the worst that a photograph can bring.
        const double alpha = plate.alphaF();
        plate = QColor::fromRgbF(float(plate.redF() * alpha), float(plate.greenF() * alpha),
                                 float(plate.blueF() * alpha));
        EXPECT_GE(Contrast(line, plate), 3.0) << state;
    }
}

TEST(WorkPictures, WhiteAndRedTextsOfBandsCanBothBeReadOnTheDefaultPicture) {
    const QImage picture = Picture(u"DefaultPic.jpg"_s);
    EXPECT_EQ(picture.size(), QSize(960, 960));
    // The ground under the text, with white of 100 in 255 over it.
    const QColor ground = picture.pixelColor(20, 20);
    const auto banded = [](int part) { return (part * 155 + 255 * 100) / 255; };
    const QColor band(banded(ground.red()), banded(ground.green()), banded(ground.blue()));
    // Texts are white, that of a failure red: no ground gives both of them more than 2.0.
    EXPECT_GE(Contrast(Qt::white, band), 1.9);
    EXPECT_GE(Contrast(Qt::red, band), 1.9);
}

TEST(WorkPictures, LieBesideThePrograms) {
    const QDir folder(QCoreApplication::applicationDirPath() + u"/work"_s);
    for (const WorkPicture& picture : DrawWorkPictures()) {
        EXPECT_EQ(QImage(folder.filePath(picture.name)).size(), picture.image.size())
            << picture.name.toStdString();
    }
}

TEST(WorkPictures, AFolderThatCannotBeMadeIsTold) {
    const QTemporaryDir dir;
    EXPECT_TRUE(WriteWorkPictures(dir.filePath(u"a/b"_s)));
    EXPECT_EQ(QDir(dir.filePath(u"a/b"_s)).entryList(QDir::Files).size(), 7);
    EXPECT_FALSE(WriteWorkPictures(dir.filePath(u"a/b/left_pic.png/c"_s)));
}

} // namespace
} // namespace host
