// Pixels of the grid at computed places.
#include "tests/toolkit/controls/SampleGrid.h"

#include "toolkit/Look.h"

#include <QHeaderView>
#include <QImage>
#include <QPaintEvent>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;
using toolkit::Colors;

namespace {

struct GridPaint : ::testing::Test {
    SampleGrid grid;
    std::unique_ptr<SampleWindow> window;

    void Open(int rows) {
        grid.AddColumns();
        window = std::make_unique<SampleWindow>(grid);
        grid.Fill(rows);
        window->setFocus();
        QCoreApplication::processEvents();
    }
    /// One pixel of the image is one of the widget, whatever the scale of the screen.
    [[nodiscard]] static QImage Render(QWidget* widget) {
        QImage image(widget->size(), QImage::Format_RGB32);
        widget->render(&image);
        return image;
    }
    [[nodiscard]] QImage Shot() const { return Render(grid.View()->viewport()); }
    [[nodiscard]] QRect Cell(int row, int column) const {
        return grid.View()->visualRect(grid.View()->model()->index(row, column));
    }
    /// Pixels of a colour inside an area.
    [[nodiscard]] static int Count(const QImage& image, const QRect& area, const QColor& color) {
        int found = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                found += image.pixelColor(x, y) == color ? 1 : 0;
            }
        }
        return found;
    }
    /// Pixels of an area darker than a lightness: the strokes of a text.
    [[nodiscard]] static int CountDark(const QImage& image, const QRect& area, int lightness) {
        int found = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                found += image.pixelColor(x, y).lightness() < lightness ? 1 : 0;
            }
        }
        return found;
    }
};

TEST_F(GridPaint, SelectedRowIsTintedOverItsWholeWidth) {
    Open(4);
    grid.SetCurSel(2);
    const QImage image = Shot();
    const int y = Cell(2, 0).top() + 1;
    for (const int column : {SampleGrid::kNumber, SampleGrid::kName, SampleGrid::kLocate}) {
        EXPECT_EQ(image.pixelColor(Cell(2, column).left() + 1, y), Colors::Selection());
    }
    EXPECT_EQ(image.pixelColor(Cell(0, 1).left() + 1, Cell(0, 1).top() + 1), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(Cell(1, 1).left() + 1, Cell(1, 1).top() + 1),
              Colors::AlternateRow());
}

TEST_F(GridPaint, LinesStandBetweenRowsAndColumns) {
    Open(3);
    const QImage image = Shot();
    const QRect cell = Cell(0, SampleGrid::kName);
    EXPECT_EQ(image.pixelColor(cell.right() + 1, cell.center().y()), Colors::GridLine());
    EXPECT_EQ(image.pixelColor(cell.center().x(), cell.bottom() + 1), Colors::GridLine());
}

TEST_F(GridPaint, ColourItemShowsItsSwatchBeforeTheName) {
    Open(1);
    const QRect cell = Cell(0, SampleGrid::kMark);
    const QImage image = Shot();
    EXPECT_EQ(image.pixelColor(cell.left() + 10, cell.center().y()), QColor(Qt::red));
    EXPECT_GT(CountDark(image, cell.adjusted(22, 0, 0, 0), 120), 5);
}

TEST_F(GridPaint, CheckBoxShowsItsState) {
    Open(1);
    const QRect cell = Cell(0, SampleGrid::kCheck);
    EXPECT_EQ(Count(Shot(), cell, Colors::TextAccent()), 0);
    grid.GetRow(0)->GetItem(SampleGrid::kCheck)->SetValue(true);
    EXPECT_GT(Count(Shot(), cell, Colors::TextAccent()), 50);
}

TEST_F(GridPaint, DisabledIconIsGrey) {
    Open(2);
    const QImage image = Shot();
    EXPECT_GT(Count(image, Cell(0, SampleGrid::kLocate), Colors::TextAccent()), 5);
    EXPECT_EQ(Count(image, Cell(1, SampleGrid::kLocate), Colors::TextAccent()), 0);
}

TEST_F(GridPaint, TextColourOfAnItemIsTaken) {
    Open(1);
    const auto countRed = [&] {
        const QImage image = Shot();
        const QRect cell = Cell(0, SampleGrid::kName);
        int found = 0;
        for (int y = cell.top(); y < cell.bottom(); ++y) {
            for (int x = cell.left(); x < cell.right(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                found += pixel.red() > pixel.green() + 80 ? 1 : 0;
            }
        }
        return found;
    };
    EXPECT_EQ(countRed(), 0);
    grid.GetRow(0)->GetItem(SampleGrid::kName)->SetTextColor(QColor(255, 0, 0));
    EXPECT_GT(countRed(), 30);
}

TEST_F(GridPaint, ATextOfMillionsOfCharactersStaysInItsCell) {
    Open(2);
    CGridItem* item = grid.GetRow(0)->GetItem(SampleGrid::kName);
    item->SetValue(QString(400, u'国'));
    const QImage longText = Shot();
    item->SetValue(QString(5'000'000, u'国'));
    EXPECT_EQ(Shot(), longText);
}

TEST_F(GridPaint, HoveredIconIsHighlightedUntilThePointerLeaves) {
    Open(3);
    const QRect cell = Cell(2, SampleGrid::kEdit);
    QTest::mouseMove(grid.View()->viewport(), cell.center());
    EXPECT_EQ(Shot().pixelColor(cell.topLeft() + QPoint(1, 1)), Colors::Hover());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(grid.View()->viewport(), &leave);
    EXPECT_EQ(Shot().pixelColor(cell.topLeft() + QPoint(1, 1)), QColor(Qt::white));
}

TEST_F(GridPaint, CellWithTheKeyboardHasAFrame) {
    Open(2);
    grid.SetCurSel(1);
    const QPoint corner = Cell(1, 0).topLeft();
    EXPECT_EQ(Shot().pixelColor(corner), Colors::Selection());
    grid.SetFocus();
    EXPECT_EQ(Shot().pixelColor(corner), Colors::TextAccent());
}

TEST_F(GridPaint, EmptyGridSaysWhyAndShowsFocusAllTheSame) {
    Open(0);
    const QRect middle(grid.View()->viewport()->rect().center() - QPoint(60, 15), QSize(120, 30));
    EXPECT_EQ(CountDark(Shot(), middle, 170), 0);
    grid.SetEmptyText(u"没有符合条件的照片"_s);
    EXPECT_GT(CountDark(Shot(), middle, 170), 20);
    grid.SetFocus();
    EXPECT_EQ(Shot().pixelColor(0, 0), Colors::TextAccent());
    grid.Fill(1);
    EXPECT_EQ(CountDark(Shot(), middle, 170), 0);
}

TEST_F(GridPaint, LongTextEndsInsideItsCell) {
    Open(1);
    grid.GetRow(0)->SetText(SampleGrid::kNumber, u"一二三四五六七八九十"_s);
    const QImage image = Shot();
    const QRect cell = Cell(0, SampleGrid::kNumber);
    EXPECT_EQ(image.pixelColor(cell.right() + 1, cell.center().y()), Colors::GridLine());
    EXPECT_EQ(CountDark(image, QRect(cell.right() - 2, cell.top(), 3, cell.height()), 200), 0);
}

TEST_F(GridPaint, HeaderShowsCaptionsAndTheImageOfTheFirstColumn) {
    Open(1);
    QHeaderView* header = grid.View()->horizontalHeader();
    const QImage off = Render(header->viewport());
    const QRect box(0, 0, 20, header->height());
    EXPECT_EQ(off.pixelColor(1, 1), Colors::Header());
    EXPECT_EQ(Count(off, box, Colors::TextAccent()), 0);
    grid.SetHeaderImage(SampleGrid::kCheck, 1);
    EXPECT_GT(Count(Render(header->viewport()), box, Colors::TextAccent()), 50);
    const QRect caption(header->sectionViewportPosition(SampleGrid::kName), 0,
                        header->sectionSize(SampleGrid::kName), header->height());
    EXPECT_GT(CountDark(off, caption, 150), 10);
}

TEST_F(GridPaint, HeaderLightsUpOnlyWhereAClickSorts) {
    Open(1);
    QHeaderView* header = grid.View()->horizontalHeader();
    const auto corner = [&](int column) {
        const QPoint place(header->sectionViewportPosition(column) + 8, 2);
        QTest::mouseMove(header->viewport(), place + QPoint(2, 8));
        return Render(header->viewport()).pixelColor(place);
    };
    EXPECT_EQ(corner(SampleGrid::kName), Colors::Hover());
    EXPECT_EQ(corner(SampleGrid::kNumber), Colors::Header());
}

TEST_F(GridPaint, SortStateDrawsNoMark) {
    Open(1);
    QHeaderView* header = grid.View()->horizontalHeader();
    const QImage before = Render(header->viewport());
    grid.SetColumnState(SampleGrid::kName, 1);
    EXPECT_EQ(Render(header->viewport()), before);
    EXPECT_EQ(grid.GetColumnState(SampleGrid::kName), 1);
}

TEST_F(GridPaint, TheFrameOfTheKeyboardClosesWithinItsCell) {
    Open(2);
    grid.SetCurSel(1);
    grid.SetFocus();
    const QImage image = Shot();
    const QRect cell = Cell(1, 0);
    EXPECT_EQ(image.pixelColor(cell.bottomRight()), Colors::TextAccent());
    EXPECT_EQ(image.pixelColor(cell.right() + 1, cell.center().y()), Colors::GridLine());
    EXPECT_EQ(image.pixelColor(cell.center().x(), cell.bottom() + 1), Colors::GridLine());
}

TEST_F(GridPaint, TheFrameOfAnEmptyGridClosesWithinIt) {
    Open(0);
    grid.SetFocus();
    const QImage image = Shot();
    EXPECT_EQ(image.pixelColor(image.rect().bottomRight()), Colors::TextAccent());
    EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() / 2), Colors::TextAccent());
    EXPECT_EQ(image.pixelColor(image.width() / 2, image.height() - 1), Colors::TextAccent());
    EXPECT_NE(image.pixelColor(image.width() - 2, image.height() - 2), Colors::TextAccent());
}

TEST_F(GridPaint, TextStandsWhereItsColumnIsAligned) {
    Open(1);
    grid.GetRow(0)->SetText(SampleGrid::kDescription, u"国"_s);
    const QRect cell = Cell(0, SampleGrid::kDescription);
    const auto ink = [&](Qt::Alignment align) {
        grid.SetColumnAlign(SampleGrid::kDescription, align);
        const QImage image = Shot();
        int left = cell.right();
        int right = cell.left();
        for (int x = cell.left(); x <= cell.right(); ++x) {
            if (CountDark(image, QRect(x, cell.top(), 1, cell.height()), 120) > 0) {
                left = qMin(left, x);
                right = qMax(right, x);
            }
        }
        return std::pair(left - cell.left(), cell.right() - right);
    };
    const auto [left, roomAfter] = ink(Qt::AlignLeft);
    EXPECT_LE(left, 8);
    EXPECT_GT(roomAfter, 20);
    const auto [roomBefore, right] = ink(Qt::AlignRight);
    EXPECT_LE(right, 8);
    EXPECT_GT(roomBefore, 20);
    const auto [before, after] = ink(Qt::AlignHCenter);
    EXPECT_NEAR(before, after, 3);
}

TEST_F(GridPaint, TheImageOfAHeaderStandsInItsMiddle) {
    Open(1);
    grid.SetHeaderImage(SampleGrid::kCheck, 1);
    QHeaderView* header = grid.View()->horizontalHeader();
    const QImage image = Render(header->viewport());
    QRect ink;
    for (int y = 0; y < header->height(); ++y) {
        for (int x = 0; x < 19; ++x) {
            if (image.pixelColor(x, y) == Colors::TextAccent()) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    EXPECT_NEAR(ink.center().x(), 9, 1);
    EXPECT_NEAR(ink.center().y(), (header->height() - 1) / 2.0, 1);
}

TEST_F(GridPaint, TheHeaderLightsUpAgainAfterAClick) {
    Open(1);
    QHeaderView* header = grid.View()->horizontalHeader();
    const auto place = [&](int column) {
        return QPoint(header->sectionViewportPosition(column) + 10, 10);
    };
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place(SampleGrid::kMark));
    QTest::mouseMove(header->viewport(), place(SampleGrid::kName));
    EXPECT_EQ(Render(header->viewport()).pixelColor(place(SampleGrid::kName) - QPoint(2, 8)),
              Colors::Hover());
}

/// Where a widget paints itself anew.
class PaintedArea final : public QObject {
public:
    explicit PaintedArea(QWidget* widget) {
        QCoreApplication::processEvents();
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            m_area += static_cast<QPaintEvent*>(event)->region();
        }
        return QObject::eventFilter(watched, event);
    }
    /// Since the last call.
    [[nodiscard]] QRegion Take() {
        QCoreApplication::processEvents();
        return std::exchange(m_area, QRegion());
    }

private:
    QRegion m_area;
};

TEST_F(GridPaint, AChangedCellIsPaintedAnew) {
    Open(5);
    PaintedArea painted(grid.View()->viewport());
    const QPoint there = Cell(2, SampleGrid::kName).center();
    CGridItem& item = *grid.GetRow(2)->GetItem(SampleGrid::kName);
    item.SetValue(u"新"_s);
    EXPECT_TRUE(painted.Take().contains(there));
    item.SetTextColor(Qt::red);
    EXPECT_TRUE(painted.Take().contains(there));
    item.Enable(false);
    EXPECT_TRUE(painted.Take().contains(there));
    EXPECT_TRUE(painted.Take().isEmpty());
}

TEST_F(GridPaint, TheSelectedRowAndTheOneBeforeArePaintedAnew) {
    Open(5);
    grid.SetCurSel(1);
    PaintedArea painted(grid.View()->viewport());
    grid.SetCurSel(3);
    const QRegion area = painted.Take();
    EXPECT_TRUE(area.contains(Cell(1, SampleGrid::kName).center()));
    EXPECT_TRUE(area.contains(Cell(3, SampleGrid::kName).center()));
}

TEST_F(GridPaint, AChangedHeaderIsPaintedAnew) {
    Open(1);
    QHeaderView* header = grid.View()->horizontalHeader();
    PaintedArea painted(header->viewport());
    grid.SetHeaderImage(SampleGrid::kCheck, 1);
    EXPECT_TRUE(painted.Take().contains(QPoint(10, 10)));
}

TEST_F(GridPaint, AnEmptyTextAndTheCellUnderThePointerArePaintedAnew) {
    Open(5);
    QWidget* viewport = grid.View()->viewport();
    QTest::mouseMove(viewport, Cell(0, SampleGrid::kName).center());
    PaintedArea painted(viewport);
    const QPoint first = Cell(0, SampleGrid::kEdit).center();
    const QPoint second = Cell(2, SampleGrid::kEdit).center();
    static_cast<void>(painted.Take());
    QTest::mouseMove(viewport, first);
    EXPECT_TRUE(painted.Take().contains(first));
    QTest::mouseMove(viewport, second);
    const QRegion both = painted.Take();
    EXPECT_TRUE(both.contains(first)) << "no longer";
    EXPECT_TRUE(both.contains(second));
    grid.RemoveAll();
    static_cast<void>(painted.Take());
    grid.SetEmptyText(u"没有符合条件的照片"_s);
    EXPECT_TRUE(painted.Take().contains(viewport->rect().center()));
}

} // namespace
