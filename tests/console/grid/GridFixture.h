// The console's grid in a plain window that records the grid's events.
#pragma once

#include "console/VeskPicMngGrid.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "toolkit/grid/MultiPageGridManager.h"

#include <QPoint>
#include <QTableView>
#include <boost/shared_ptr.hpp>

/// Logs the events that the grid sends to its dialog as "Dialog(1026)", and the mouse and the keys
/// go to the real view.
class GridFixture : public ModuleFixture {
protected:
    GridFixture();
    ~GridFixture() override;

    /// Makes and shows the window with a grid of a kind; nothing is fetched yet.
    void Open(ConsoleMode mode, int rows);
    /// Opens a kind and fetches its first page; the log is empty then.
    void Show(ConsoleMode mode, int rows);
    /// The dialog does this before each search.
    void SetFilter();
    /// Another kind by its radio button, as the dialog does it.
    void ChangeKind(ConsoleMode mode);

    void ClickHeader(int column);
    void ClickCell(int row, int column);
    void DoubleClickCell(int row, int column);
    void Check(std::initializer_list<int> rows);

    [[nodiscard]] QTableView& View() { return static_cast<QTableView&>(*grid->Widget()); }
    [[nodiscard]] QPoint CellCentre(int row, int column);
    [[nodiscard]] CGridItem& Item(int row, int column) {
        return *grid->GetRow(row)->GetItem(column);
    }
    [[nodiscard]] std::string Cell(int row, int column) {
        return Item(row, column).GetText().toStdString();
    }
    /// Rows whose box is checked.
    [[nodiscard]] std::vector<int> Checked();
    [[nodiscard]] std::string LastSort(ConsoleMode mode);

    std::unique_ptr<QWidget> window;
    toolkit::WindowId windowId = toolkit::kNoWindow;
    boost::shared_ptr<CVeskPicMngGrid> grid;
    std::unique_ptr<CMultiPageGridManager> paging;
};
