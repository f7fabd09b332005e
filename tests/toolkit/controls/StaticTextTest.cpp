// Texts beside values, and frames around them.
#include "toolkit/controls/StaticText.h"
#include "toolkit/Look.h"
#include "toolkit/controls/TitledGroup.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QImage Drawn(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

/// A line of text as it is drawn, 40 high.
QImage DrawnLine(const QString& text, int width = 100) {
    QWidget parent;
    CStaticFilespec line(&parent);
    line.setText(text);
    line.resize(width, 40);
    return Drawn(line);
}

/// Rows in which something was drawn in a dark colour.
std::vector<int> InkRows(QWidget& widget) {
    const QImage image = Drawn(widget);
    std::vector<int> rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 100) {
                rows.push_back(y);
                break;
            }
        }
    }
    return rows;
}

TEST(StaticFilespec, DrawsAnAmpersandAsItStands) {
    EXPECT_NE(DrawnLine(u"A&B"_s), DrawnLine(u"AB"_s));
}

TEST(StaticFilespec, StandsInTheMiddleOfItsHeight) {
    QWidget parent;
    CStaticFilespec text(&parent);
    text.setText(u"国国"_s);
    text.resize(100, 60);
    const std::vector<int> rows = InkRows(text);
    ASSERT_FALSE(rows.empty());
    EXPECT_NEAR((rows.front() + rows.back()) / 2.0, 30, 2);
}

TEST(StaticFilespec, ALongTextLosesItsMiddleWithinItsWidth) {
    QWidget parent;
    CStaticFilespec text(&parent);
    const QString whole = QString(30, u'国') + QString(30, u'一');
    text.setText(whole);
    text.resize(100, 40);
    EXPECT_EQ(Drawn(text), DrawnLine(text.fontMetrics().elidedText(whole, Qt::ElideMiddle, 100)));
    EXPECT_NE(Drawn(text), DrawnLine(text.fontMetrics().elidedText(whole, Qt::ElideRight, 100)));
    EXPECT_EQ(text.text(), whole) << "screen readers get all of it";
}

TEST(StaticFilespec, WithoutPathShorteningALongTextEndsInDots) {
    QWidget parent;
    CStaticFilespec text(&parent);
    const QString whole = QString(30, u'国') + QString(30, u'一');
    text.setText(whole);
    text.SetPathShortening(false);
    text.resize(100, 40);
    EXPECT_EQ(Drawn(text), DrawnLine(text.fontMetrics().elidedText(whole, Qt::ElideRight, 100)));
}

// The width of so many characters overflows.
TEST(StaticFilespec, ATextOfMillionsOfCharactersLosesItsMiddleToo) {
    QString huge(5'000'000, u'国');
    huge[huge.size() - 1] = u'一';
    EXPECT_EQ(DrawnLine(huge), DrawnLine(QString(59, u'国') + u'一'));
}

TEST(StaticFilespec, ATextWithALineFeedStaysOneLine) {
    EXPECT_EQ(DrawnLine(u"一\n二"_s), DrawnLine(u"一 二"_s));
}

TEST(AutoLineStatic, BreaksIntoTheLinesThatFit) {
    QWidget parent;
    CAutoLineStatic text(&parent);
    text.setText(QString(30, u'国'));
    text.resize(100, text.fontMetrics().lineSpacing());
    const size_t oneLine = InkRows(text).size();
    text.resize(100, 3 * text.fontMetrics().lineSpacing());
    EXPECT_GT(InkRows(text).size(), 2 * oneLine);
}

TEST(AutoLineStatic, TheLastLineThatFitsSaysThatThereIsMore) {
    QWidget parent;
    CAutoLineStatic text(&parent);
    text.resize(100, 2 * text.fontMetrics().lineSpacing());
    text.setText(QString(30, u'国'));
    const QImage much = Drawn(text);
    text.setText(QString(60, u'国'));
    EXPECT_EQ(Drawn(text), much);
    text.setText(QString(12, u'国'));
    EXPECT_NE(Drawn(text), much);
}

TEST(ColorStatic, FillsItsGroundAndCentresItsText) {
    QWidget parent;
    CColorStatic mark(&parent);
    mark.SetTxtAlian(CColorStatic::kCentredLine);
    mark.SetBGColor(toolkit::ColorFromBgr(0x00C0FF));
    mark.setText(u"一"_s);
    mark.resize(80, 20);
    const QImage image = Drawn(mark);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(0xFF, 0xC0, 0));
    EXPECT_EQ(image.pixelColor(79, 19), QColor(0xFF, 0xC0, 0));
    int left = 80;
    int right = 0;
    for (int x = 0; x < 80; ++x) {
        for (int y = 0; y < 20; ++y) {
            if (qGray(image.pixel(x, y)) < 80) {
                left = qMin(left, x);
                right = qMax(right, x);
            }
        }
    }
    EXPECT_NEAR((left + right) / 2.0, 40, 2);
}

TEST(ColorStatic, ItsTextHasItsColourOnEveryGround) {
    QWidget parent;
    CColorStatic mark(&parent);
    mark.SetFontColor(Qt::black);
    mark.setText(u"一"_s);
    mark.resize(80, 20);
    for (const QColor& ground : {QColor(Qt::yellow), QColor(0, 0, 128), QColor(40, 40, 40)}) {
        mark.SetBGColor(ground);
        const QImage image = Drawn(mark);
        int lighter = 0;
        int darker = 0;
        for (int x = 0; x < 80; ++x) {
            for (int y = 0; y < 20; ++y) {
                lighter += qGray(image.pixel(x, y)) > qGray(ground.rgb());
                darker += qGray(image.pixel(x, y)) < qGray(ground.rgb());
            }
        }
        EXPECT_EQ(lighter, 0);
        EXPECT_GT(darker, 5);
    }
}

TEST(PlaceLine, AHighEnoughPlaceIsTakenAsItIs) {
    QLabel line;
    toolkit::PlaceLine(line, QRect(5, 10, 80, 40));
    EXPECT_EQ(line.geometry(), QRect(5, 10, 80, 40));
}

TEST(PlaceLine, ALowPlaceGrowsUpAndDownUntilTheLineFits) {
    QLabel line;
    line.setFont(toolkit::UiFont(24));
    toolkit::PlaceLine(line, QRect(5, 50, 80, 14));
    const int height = line.fontMetrics().height();
    EXPECT_EQ(line.height(), height);
    EXPECT_EQ(line.width(), 80);
    EXPECT_NEAR(line.geometry().center().y(), 50 + 7, 1);
}

TEST(TitledGroup, ItsFrameRunsThroughTheMiddleOfItsTitle) {
    QWidget parent;
    CTitledGroup group(&parent);
    group.setTitle(u"语音"_s);
    group.resize(150, 70);
    const QImage image = Drawn(group);
    const int line = group.fontMetrics().height() / 2;
    EXPECT_NE(image.pixelColor(120, line), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(120, 1), QColor(Qt::white));
    EXPECT_NE(image.pixelColor(120, 69), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(9, line), QColor(Qt::white)) << "the line leaves room for the title";
    // Sharp: no pixel shares it with its neighbour.
    for (const QPoint& edge : {QPoint(0, 40), QPoint(149, 40), QPoint(75, 69), QPoint(120, line)}) {
        EXPECT_EQ(image.pixelColor(edge), toolkit::Colors::Frame()) << edge.x() << ' ' << edge.y();
    }
}

TEST(StaticFilespec, ItsColourIsThePalettesOfItsState) {
    QWidget parent;
    CStaticFilespec text(&parent);
    QPalette palette = text.palette();
    palette.setColor(QPalette::Active, QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::blue);
    text.setPalette(palette);
    text.setText(u"国国国"_s);
    text.resize(100, 40);
    // How much redder than blue the strokes are; below 0: bluer.
    const auto redness = [&text] {
        const QImage image = Drawn(text);
        int sum = 0;
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 100; ++x) {
                sum += image.pixelColor(x, y).red() - image.pixelColor(x, y).blue();
            }
        }
        return sum;
    };
    EXPECT_GT(redness(), 1000);
    text.setEnabled(false);
    EXPECT_LT(redness(), -1000);
}

TEST(AutoLineStatic, OneLineStandsInTheMiddleUntilTheSecondHasItsPlace) {
    QWidget parent;
    CAutoLineStatic text(&parent);
    CStaticFilespec line(&parent);
    for (QLabel* label : std::initializer_list<QLabel*>{&text, &line}) {
        label->setText(u"国"_s);
    }
    const int two = 2 * text.fontMetrics().lineSpacing();
    const auto drawnAlike = [&](int height) {
        text.resize(100, height);
        line.resize(100, height);
        return Drawn(text) == Drawn(line);
    };
    EXPECT_TRUE(drawnAlike(two - 1));
    EXPECT_FALSE(drawnAlike(two));
}

} // namespace
