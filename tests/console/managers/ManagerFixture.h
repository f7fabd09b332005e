// A manager in a grid without a window.
#pragma once

#include "console/VeskPicMngGrid.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"

#include <boost/make_shared.hpp>

/// Open a kind, then fetch its pages. Rows and cells are told by index.
class ManagerFixture : public ModuleFixture {
protected:
    /// A grid of a kind with `rows` records in the service; nothing is fetched yet.
    void Open(ConsoleMode mode, int rows = 0) {
        FillService(host, mode, rows);
        grid = boost::make_shared<CVeskPicMngGrid>();
        grid->SetMode(mode);
        SetFilter();
        Log().Clear();
    }
    void Fetch(int page = 1) { grid->DoPage(page); }
    /// The dialog does this before each search.
    void SetFilter() {
        if (grid->GetMode() == kModePdf) {
            Manager().filter = &std::as_const(grid->pdfFilter);
        } else {
            Manager().filter = &std::as_const(grid->picFilter);
        }
    }

    [[nodiscard]] CPicMngBase& Manager() { return *grid->Manager(); }
    [[nodiscard]] CGridRow& Row(int row) { return *grid->GetRow(row); }
    [[nodiscard]] CGridItem& Item(int row, int column) { return *Row(row).GetItem(column); }
    [[nodiscard]] std::string Cell(int row, int column) {
        return Item(row, column).GetText().toStdString();
    }
    void Check(std::initializer_list<int> rows) {
        for (const int row : rows) {
            Item(row, 0).SetValue(true);
        }
    }

    boost::shared_ptr<CVeskPicMngGrid> grid;
};
