// Where a double click on the grid is the lookup, and where it is something else.
#include "tests/console/grid/GridFixture.h"
#include "tests/support/ModalVisit.h"

#include <QHeaderView>
#include <QtTest/QTest>
#include <gmock/gmock.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

using testing::IsEmpty;

class GridDoubleClickTest : public GridFixture {};

TEST_F(GridDoubleClickTest, OnlyALeftDoubleClickLooksUp) {
    Show(kModeBim, 3);
    ClickCell(1, 3);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        QTest::mouseDClick(View().viewport(), button, {}, CellCentre(1, 3));
    }
    EXPECT_EQ(Log().CountOf("LocatePicture"), 0);
}

TEST_F(GridDoubleClickTest, ADoubleClickOnTheHeaderIsNoLookup) {
    Show(kModeBim, 3);
    ClickCell(1, 3);
    QHeaderView* header = View().horizontalHeader();
    const QPoint place(header->sectionViewportPosition(8) + 5, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Log().CountOf("LocatePicture"), 0);
}

TEST_F(GridDoubleClickTest, ADoubleClickOnAnIconRunsItOnceAndNothingElse) {
    for (const int column : {13, 14, 15, 16}) {
        Show(kModeBim, 3);
        if (column == 15) {
            prompts.ExpectSaveFile(u"照片2"_s, QString());
        }
        if (column == 16) {
            prompts.ExpectOkCancel(u"确认删除照片 照片2.jpg ？"_s, false);
        }
        // The preview holds the first of the two clicks.
        std::optional<support::ModalVisit> preview;
        if (column == 14) {
            preview.emplace(u"VeskPicViewWrap"_s, [](QWidget& viewer) { viewer.close(); });
        }
        DoubleClickCell(1, column);
        EXPECT_TRUE(!preview || preview->HasCome());
        EXPECT_EQ(Log().CountOf("LocatePicture"), column == 13 ? 1 : 0) << column;
        EXPECT_TRUE(prompts.AllAnswered()) << column;
    }
}

TEST_F(GridDoubleClickTest, ADoubleClickOnEveryCellThatIsNoIconLooksUpInEachKind) {
    for (const ConsoleMode mode : {kModeBim, kModePdf, kModeIssue}) {
        Show(mode, 2);
        const int icons = mode == kModePdf ? 13 : 12;
        for (int column = 0; column < icons; ++column) {
            if (!grid->IsColumnVisible(column)) {
                continue;
            }
            Log().Clear();
            DoubleClickCell(1, column);
            EXPECT_EQ(Log().CountOf("LocatePicture") + Log().CountOf("SelectCheckpoint") +
                          Log().CountOf("LocateIssue"),
                      1)
                << mode << ' ' << column;
        }
    }
}

TEST_F(GridDoubleClickTest, ADoubleClickOnTheHeadersBoxTurnsItTwice) {
    Show(kModeBim, 3);
    QHeaderView* header = View().horizontalHeader();
    const QPoint place(header->sectionViewportPosition(0) + 8, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Checked().size(), 3U);
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_THAT(Checked(), IsEmpty());
}

} // namespace
