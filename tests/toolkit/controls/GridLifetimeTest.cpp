// Grids, views, bars and managers that go while something of them is at work.
#include "tests/toolkit/controls/SampleGrid.h"

#include "toolkit/windows/WindowRegistry.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QToolButton>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct GridLifetime : ::testing::Test {
    std::unique_ptr<SampleGrid> grid = std::make_unique<SampleGrid>();
    std::unique_ptr<SampleWindow> window;

    void Open(int rows) {
        grid->AddColumns();
        window = std::make_unique<SampleWindow>(*grid);
        grid->Fill(rows);
        window->manager.SetPageCount(9);
    }
    /// By hand: QTest's own clicks go on working with a widget that has gone.
    void SendMouse(QEvent::Type type, int row, int column) const {
        QWidget* viewport = grid->View()->viewport();
        const QPointF place = grid->CellCenter(row, column);
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, viewport->mapToGlobal(place), Qt::LeftButton, held, {});
        QCoreApplication::sendEvent(viewport, &event);
    }
    void ClickByHand(int row, int column) const {
        SendMouse(QEvent::MouseButtonPress, row, column);
        SendMouse(QEvent::MouseButtonRelease, row, column);
    }
};

TEST_F(GridLifetime, IconCommandMayReplaceAllRows) {
    Open(30);
    grid->onIcon = [&] {
        grid->RemoveAll();
        grid->Fill(4);
    };
    ClickByHand(20, SampleGrid::kEdit);
    EXPECT_EQ(grid->GetRowCount(), 4);
    EXPECT_EQ(grid->GetCurSel(), nullptr);
    EXPECT_EQ(grid->View()->model()->rowCount(), 4);
    ClickByHand(3, SampleGrid::kEdit);
    EXPECT_EQ(grid->iconCalls.back(), (SampleGrid::IconCall{7, 3}));
}

TEST_F(GridLifetime, IconCommandMayRemoveAllRowsAndColumns) {
    Open(5);
    grid->onIcon = [&] {
        grid->RemoveAll();
        grid->DeleteAllColumns();
    };
    ClickByHand(4, SampleGrid::kEdit);
    window->grab();
    EXPECT_EQ(grid->View()->model()->columnCount(), 0);
}

TEST_F(GridLifetime, WindowMayEndInsideADoubleClick) {
    Open(5);
    grid->onDoubleClick = [&] { window.reset(); };
    SendMouse(QEvent::MouseButtonDblClick, 2, SampleGrid::kName);
    EXPECT_FALSE(grid->HasWindow());
    EXPECT_EQ(grid->Widget(), nullptr);
    EXPECT_EQ(grid->GetRowCount(), 5);
    EXPECT_EQ(grid->GetManager(), nullptr);
}

TEST_F(GridLifetime, WindowAndGridMayEndInsideAnIconCommand) {
    Open(5);
    bool ended = false;
    grid->onIcon = [this, &ended] {
        ended = true;
        window.reset();
        grid.reset();
    };
    QWidget* viewport = grid->View()->viewport();
    const QPointF place = grid->CellCenter(1, SampleGrid::kEdit);
    SendMouse(QEvent::MouseButtonPress, 1, SampleGrid::kEdit);
    QMouseEvent release(QEvent::MouseButtonRelease, place, viewport->mapToGlobal(place),
                        Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(viewport, &release);
    EXPECT_TRUE(ended);
}

TEST_F(GridLifetime, WindowMayEndInsideAHeaderClick) {
    Open(5);
    grid->onHeader = [&] { window.reset(); };
    QWidget* viewport = grid->View()->horizontalHeader()->viewport();
    const QPointF place(10, 10);
    QMouseEvent press(QEvent::MouseButtonPress, place, viewport->mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, {});
    QCoreApplication::sendEvent(viewport, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, place, viewport->mapToGlobal(place),
                        Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(viewport, &release);
    EXPECT_FALSE(grid->HasWindow());
}

TEST_F(GridLifetime, WindowMayEndInsideAPageFetch) {
    Open(5);
    grid->onQuery = [&] { window.reset(); };
    QToolButton* next = window->manager.Widget()->findChild<QToolButton*>(u"pagingNext"_s);
    next->click();
    EXPECT_FALSE(grid->HasWindow());
    EXPECT_EQ(grid->GetCurrentPage(), 2);
}

TEST_F(GridLifetime, GridMayEndInsideItsPageFetch) {
    Open(5);
    grid->onQuery = [this] { grid.reset(); };
    window->manager.DoPage(3);
    EXPECT_EQ(grid, nullptr);
    window->manager.DoPage(4);
    window->grab();
}

TEST_F(GridLifetime, EnterMayEndTheWindow) {
    Open(5);
    grid->SetCurSel(1);
    grid->onDoubleClick = [&] { window.reset(); };
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, {});
    QCoreApplication::sendEvent(grid->View(), &event);
    EXPECT_FALSE(grid->HasWindow());
}

TEST_F(GridLifetime, ObjectKeepsColumnsRowsAndSelectionAndGetsANewView) {
    Open(5);
    grid->SetCurSel(3);
    window.reset();
    EXPECT_FALSE(grid->HasWindow());
    EXPECT_EQ(grid->GetCurSel(), grid->GetRow(3));
    EXPECT_EQ(grid->GetColumnCount(), 7);

    window = std::make_unique<SampleWindow>(*grid);
    EXPECT_EQ(grid->initialised, 2);
    EXPECT_EQ(grid->View()->model()->rowCount(), 5);
    EXPECT_EQ(grid->View()->currentIndex().row(), 3);
    ClickByHand(2, SampleGrid::kEdit);
    EXPECT_EQ(grid->iconCalls.size(), 1U);
}

TEST_F(GridLifetime, SecondViewTakesThePlaceOfTheFirst) {
    Open(5);
    const QPointer<QWidget> first = grid->Widget();
    window->manager.Create(window.get());
    EXPECT_NE(grid->Widget(), first);
    EXPECT_FALSE(first->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(grid->HasWindow());
}

TEST_F(GridLifetime, GridMayDieBeforeItsWindowAndItsManager) {
    Open(5);
    grid.reset();
    window->grab();
    window->manager.SetPageCount(3);
    window->manager.DoFirstPage();
    EXPECT_EQ(window->manager.GetCurrentPage(), 1);
    window.reset();
}

TEST_F(GridLifetime, RemoveAllKeepsNoSelection) {
    Open(5);
    grid->SetCurSel(4);
    grid->RemoveAll();
    EXPECT_EQ(grid->GetCurSel(), nullptr);
    grid->Fill(5);
    EXPECT_EQ(grid->GetCurSel(), nullptr);
    EXPECT_FALSE(grid->View()->currentIndex().isValid());
}

TEST_F(GridLifetime, SamePageKeepsTheScrollPositionAnotherStartsAtTheTop) {
    Open(60);
    grid->onQuery = [&] {
        grid->RemoveAll();
        grid->Fill(60);
    };
    grid->DoPage(1);
    QScrollBar* bar = grid->View()->verticalScrollBar();
    bar->setValue(300);
    grid->DoCurrentPage();
    EXPECT_EQ(bar->value(), 300);
    grid->DoPage(2);
    EXPECT_EQ(bar->value(), 0);
}

TEST_F(GridLifetime, ParentIsTheRegisteredWindow) {
    Open(1);
    EXPECT_EQ(grid->ParentId(), toolkit::kNoWindow);
    const toolkit::WindowId id =
        toolkit::RegisterWindow(window.get(), [](const auto&) { return 0; });
    EXPECT_EQ(grid->ParentId(), id);
    toolkit::UnregisterWindow(id);
}

TEST(GridWithoutWindow, WorksWhole) {
    SampleGrid grid;
    grid.AddColumns();
    grid.Fill(3);
    grid.SetCurSel(2);
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 2);
    grid.SetCurSel(3);
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 2);
    grid.SetCurSel(-1);
    EXPECT_EQ(grid.GetCurSel(), nullptr);
    grid.DoPage(-4);
    EXPECT_EQ(grid.GetCurrentPage(), 1);
    EXPECT_EQ(grid.GetRow(3), nullptr);
    grid.AdjustLayout();
    grid.SetFocus();
    EXPECT_EQ(grid.ParentId(), toolkit::kNoWindow);
}

TEST(GridWithoutWindow, SortsStablyAndTheSelectionGoesWithItsRow) {
    SampleGrid grid;
    grid.AddColumns();
    grid.Fill(4);
    const int numbers[] = {3, 1, 2, 1};
    for (int index = 0; index < 4; ++index) {
        grid.GetRow(index)->SetText(SampleGrid::kNumber, numbers[index]);
    }
    CGridRow* const firstOne = grid.GetRow(1);
    CGridRow* const secondOne = grid.GetRow(3);
    grid.SetCurSel(0);
    grid.SortRows();
    EXPECT_EQ(grid.GetRow(0), firstOne);
    EXPECT_EQ(grid.GetRow(1), secondOne);
    EXPECT_EQ(secondOne->GetRowId(), 1);
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 3);
}

TEST_F(GridLifetime, AViewThatIsStillHeldReadsAsEmptyOnceItsGridIsGone) {
    Open(3);
    const QPointer<QTableView> view = grid->View();
    const QAbstractItemModel* model = view->model();
    const QModelIndex cell = model->index(1, SampleGrid::kName);
    grid.reset();
    ASSERT_FALSE(view.isNull());
    EXPECT_EQ(model->rowCount(), 0);
    EXPECT_EQ(model->columnCount(), 0);
    EXPECT_FALSE(model->data(cell).isValid());
    EXPECT_FALSE(model->headerData(SampleGrid::kName, Qt::Horizontal).isValid());
}

} // namespace
