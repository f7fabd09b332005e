#include "tests/toolkit/controls/SampleGrid.h"

#include "toolkit/Icons.h"

#include <QMenu>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;

SampleGrid::SampleGrid() {
    m_images.Set(1, toolkit::Icon(u"edit"_s));
    m_images.Set(2, toolkit::Icon(u"locate"_s));
    toolkit::ImageList header;
    header.Set(0, toolkit::Icon(u"checkbox-off"_s));
    header.Set(1, toolkit::Icon(u"checkbox-on"_s));
    SetHeaderImageList(header);
}

void SampleGrid::AddColumns() {
    InsertColumn(kCheck, QString(), 20);
    SetColumnLocked(kCheck, true);
    SetHeaderImage(kCheck, 0);
    InsertColumn(kNumber, u"序号"_s, 35);
    SetColumnAlign(kNumber, Qt::AlignCenter);
    InsertColumn(kMark, u"照片标识"_s, 75);
    InsertColumn(kName, u"照片名称"_s, 150);
    InsertColumn(kDescription, u"描述"_s, 60);
    InsertColumn(kEdit, u"编辑"_s, 40);
    SetColumnLocked(kEdit, true);
    InsertColumn(kLocate, u"反查"_s, 40);
    SetColumnLocked(kLocate, true);
    sortable = {{kMark, true}, {kName, true}, {kNumber, false}};
}

void SampleGrid::Fill(int rows) {
    for (int index = 0; index < rows; ++index) {
        auto row = CreateRow(GetColumnCount());
        row->PutItem(kCheck, std::make_unique<CCheckBoxItem>(false));
        row->SetText(kNumber, index + 1);
        row->PutItem(kMark, std::make_unique<CColorTxtItem>(0x0000FF, u"裂缝"_s));
        row->SetText(kName, u"外墙裂缝_%1.jpg"_s.arg(index + 1));
        row->SetText(kDescription, u"三层东侧外墙抹灰层出现竖向裂缝，需要尽快处理"_s);
        row->PutItem(kEdit, std::make_unique<CIconGridItem>(m_images, 1, 7, u"编辑照片信息"_s));
        auto locate = std::make_unique<CIconGridItem>(m_images, 2, 8, u"在模型中定位"_s);
        locate->Enable(index % 2 == 0);
        row->PutItem(kLocate, std::move(locate));
        AddRow(std::move(row));
    }
}

QPoint SampleGrid::CellCenter(int row, int column) const {
    return View()->visualRect(View()->model()->index(row, column)).center();
}

void SampleGrid::OnHeaderClick(int column) {
    headerClicks.push_back(column);
    if (onHeader) {
        onHeader();
    }
}

bool SampleGrid::CompareRows(const CGridRow& first, const CGridRow& second) const {
    return first.GetItem(kNumber)->GetValue().toInt() > second.GetItem(kNumber)->GetValue().toInt();
}

void SampleGrid::OnQueryPage() {
    pages.push_back(GetCurrentPage());
    if (onQuery) {
        onQuery();
    }
}

void SampleGrid::OnIconCommand(int command, CGridRow& row) {
    iconCalls.push_back({command, row.GetRowId()});
    if (onIcon) {
        onIcon();
    }
}

void SampleGrid::OnDoubleClick(CGridRow& row, int column) {
    doubleClicks.push_back({row.GetRowId(), column});
    if (onDoubleClick) {
        onDoubleClick();
    }
}

void SampleGrid::FillRowMenu(CGridRow& row, QMenu& menu) {
    Q_UNUSED(row);
    for (const QString& action : menuActions) {
        menu.addAction(action);
    }
}

SampleWindow::SampleWindow(SampleGrid& grid, QSize size) {
    manager.SetGrid(&grid);
    manager.Create(this);
    resize(size);
    show();
    activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(this));
}

void SampleWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QSize bar(300, 28);
    manager.SetRect(QRect(QPoint(width() - bar.width(), height() - bar.height()), bar));
    manager.MoveGrid(QRect(0, 0, width(), height() - bar.height()));
}
