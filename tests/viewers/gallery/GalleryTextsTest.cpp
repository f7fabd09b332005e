// The words that the gallery paints.
#include "tests/viewers/support/PaintedTexts.h"
#include "toolkit/Look.h"
#include "viewers/GalleryFonts.h"
#include "viewers/GalleryPainter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using gallery::Cell;
using support::PaintedText;

namespace {

const QRect kCellRect(20, 20, 94, 79);
/// Across the middle of the cell, 20 high.
const QRect kBandRect(20, 49, 94, 20);

std::vector<PaintedText> CellTexts(qint32 state, int percent = 0, bool fileThere = true) {
    Cell cell;
    cell.rect = kCellRect;
    cell.state = state;
    cell.percent = percent;
    cell.fileThere = fileThere;
    return support::TextsOf(
        [&](QPainter& painter) { gallery::PaintCell(painter, cell, QImage()); });
}

void ExpectBandText(const std::vector<PaintedText>& texts, const QString& text,
                    const QColor& colour) {
    ASSERT_EQ(texts.size(), 1U) << text.toStdString();
    EXPECT_EQ(texts[0].text, text);
    EXPECT_EQ(texts[0].colour, colour) << text.toStdString();
    EXPECT_EQ(texts[0].font.family(), u"宋体"_s);
    EXPECT_EQ(texts[0].font.pixelSize(), 13) << "10 points";
    const QFontMetrics face(gallery::SmallFace());
    const double left = kBandRect.left() + (kBandRect.width() - face.horizontalAdvance(text)) / 2.0;
    EXPECT_NEAR(texts[0].place.x(), left, 1) << text.toStdString();
    EXPECT_GT(texts[0].place.y(), kBandRect.center().y());
    EXPECT_LT(texts[0].place.y(), kBandRect.bottom());
}

} // namespace

TEST(GalleryTexts, AWaitingCellSaysSoInWhite) {
    ExpectBandText(CellTexts(kWaiting), u"等待下载"_s, Qt::white);
}

TEST(GalleryTexts, ARunningDownloadSaysItsPercentInWhite) {
    ExpectBandText(CellTexts(kDownloading, 0), u"0%"_s, Qt::white);
    ExpectBandText(CellTexts(kDownloading, 42), u"42%"_s, Qt::white);
    ExpectBandText(CellTexts(kDownloading, 100), u"100%"_s, Qt::white);
}

TEST(GalleryTexts, AFileThatIsGoneIsSaidToBeMissingInWhite) {
    ExpectBandText(CellTexts(kOnDisk, 0, false), u"图片不存在"_s, Qt::white);
}

TEST(GalleryTexts, AFailureIsSaidOnceInRed) {
    ExpectBandText(CellTexts(kDownloadFailedState), u"下载失败"_s, QColor(255, 0, 0));
}

TEST(GalleryTexts, TheCellBehindAFailureIsWhiteAgain) {
    const auto texts = support::TextsOf([](QPainter& painter) {
        Cell cell;
        cell.rect = kCellRect;
        cell.state = kDownloadFailedState;
        gallery::PaintCell(painter, cell, QImage());
        cell.state = kWaiting;
        gallery::PaintCell(painter, cell, QImage());
    });
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[1].colour, QColor(Qt::white));
}

TEST(GalleryTexts, APictureAndACellWithNothingToFetchSayNothing) {
    EXPECT_TRUE(CellTexts(kOnDisk).empty());
    EXPECT_TRUE(CellTexts(kNothingToFetch).empty());
}

TEST(GalleryTexts, TheAreaWithoutAPictureSaysSoInNavyInItsMiddle) {
    gallery::GalleryState state;
    state.bigArea = QRect(0, 0, 500, 300);
    const auto texts =
        support::TextsOf([&](QPainter& painter) { gallery::PaintNoBigPicture(painter, state); });
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].text, u"无图片"_s);
    EXPECT_EQ(texts[0].colour, QColor(0x15, 0x42, 0x8B));
    EXPECT_EQ(texts[0].font.pixelSize(), 20) << "15 points";
    const int width = QFontMetrics(gallery::LargeFace()).horizontalAdvance(texts[0].text);
    EXPECT_NEAR(texts[0].place.x(), (500 - width) / 2.0, 1);
    EXPECT_NEAR(texts[0].place.y(), 150 + 7, 6);
}

TEST(GalleryTexts, AZoomedPictureSaysItsScale) {
    gallery::GalleryState state;
    state.bigArea = QRect(0, 0, 500, 300);
    const auto label = [&] {
        return support::TextsOf(
            [&](QPainter& painter) { gallery::PaintZoomLabel(painter, state); });
    };
    EXPECT_TRUE(label().empty()) << "fitted";
    state.zoom = {false, 1.5, {150, 100}};
    ASSERT_EQ(label().size(), 1U);
    EXPECT_EQ(label()[0].text, u"150%"_s);
    EXPECT_EQ(label()[0].font, toolkit::UiFont());
    EXPECT_EQ(label()[0].colour, toolkit::Colors::TextAccent());
    // Its plate of 64 by 24 stands in the middle, 24 above the lower edge.
    EXPECT_NEAR(label()[0].place.x(),
                250 - QFontMetrics(toolkit::UiFont()).horizontalAdvance(u"150%"_s) / 2.0, 2);
    EXPECT_GT(label()[0].place.y(), 275);
    EXPECT_LT(label()[0].place.y(), 287);
    state.zoom.scale = 0.996;
    EXPECT_EQ(label()[0].text, u"100%"_s) << "rounded";
}
