// A grid with every kind of cell, which writes down what it is told.
#pragma once

#include "toolkit/grid/MultiPageGrid.h"
#include "toolkit/grid/MultiPageGridManager.h"

#include <QTableView>
#include <QWidget>

#include <functional>
#include <vector>

/// Columns: check box, number, colour, name, description, icon (command 7), icon (command 8,
/// disabled in odd rows).
class SampleGrid final : public CMultiPageGrid {
public:
    static constexpr int kCheck = 0;
    static constexpr int kNumber = 1;
    static constexpr int kMark = 2;
    static constexpr int kName = 3;
    static constexpr int kDescription = 4;
    static constexpr int kEdit = 5;
    static constexpr int kLocate = 6;

    struct IconCall {
        int command;
        int row;
        bool operator==(const IconCall&) const = default;
    };
    struct DoubleClickCall {
        int row;
        int column;
        bool operator==(const DoubleClickCall&) const = default;
    };

    SampleGrid();
    void AddColumns();
    void Fill(int rows);

    [[nodiscard]] QTableView* View() const { return static_cast<QTableView*>(Widget()); }
    /// In coordinates of the viewport.
    [[nodiscard]] QPoint CellCenter(int row, int column) const;
    [[nodiscard]] bool IsChecked(int row) const { return GetRow(row)->GetItem(kCheck)->GetBool(); }

    std::vector<IconCall> iconCalls;
    std::vector<DoubleClickCall> doubleClicks;
    std::vector<int> headerClicks;
    std::vector<int> pages;
    int initialised = 0;
    QStringList menuActions;

    /// Run inside the handlers, when set.
    std::function<void()> onIcon;
    std::function<void()> onDoubleClick;
    std::function<void()> onHeader;
    std::function<void()> onQuery;

protected:
    void OnInitialize() override { ++initialised; }
    void OnHeaderClick(int column) override;
    bool CompareRows(const CGridRow& first, const CGridRow& second) const override;
    void OnQueryPage() override;
    void OnIconCommand(int command, CGridRow& row) override;
    void OnDoubleClick(CGridRow& row, int column) override;
    void FillRowMenu(CGridRow& row, QMenu& menu) override;

private:
    toolkit::ImageList m_images;
};

/// A shown, active window with a grid and its bar.
class SampleWindow final : public QWidget {
public:
    explicit SampleWindow(SampleGrid& grid, QSize size = QSize(760, 500));

    CMultiPageGridManager manager;

protected:
    void resizeEvent(QResizeEvent* event) override;
};
