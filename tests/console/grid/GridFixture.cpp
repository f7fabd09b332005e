#include "tests/console/grid/GridFixture.h"

#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QHeaderView>
#include <QtTest/QTest>
#include <boost/make_shared.hpp>

GridFixture::GridFixture() = default;

GridFixture::~GridFixture() {
    paging.reset();
    grid.reset();
    toolkit::UnregisterWindow(windowId);
}

void GridFixture::Open(ConsoleMode mode, int rows) {
    FillService(host, mode, rows);
    window = std::make_unique<QWidget>();
    window->resize(1085, 845);
    windowId = toolkit::RegisterWindow(window.get(), [this](const toolkit::WindowEvent& event) {
        Log().Add("Dialog(" + std::to_string(event.number) + ")");
        return qintptr(0);
    });
    grid = boost::make_shared<CVeskPicMngGrid>();
    grid->CreateManager(mode);
    paging = std::make_unique<CMultiPageGridManager>();
    paging->SetGrid(grid.get());
    paging->Create(window.get());
    paging->MoveGrid(QRect(10, 40, 1060, 730));
    SetFilter();
    window->show();
    support::RunPendingEvents();
    Log().Clear();
}

void GridFixture::Show(ConsoleMode mode, int rows) {
    Open(mode, rows);
    paging->DoFirstPage();
    support::RunPendingEvents();
    Log().Clear();
}

void GridFixture::SetFilter() {
    if (grid->GetMode() == kModePdf) {
        grid->Manager()->filter = &std::as_const(grid->pdfFilter);
    } else {
        grid->Manager()->filter = &std::as_const(grid->picFilter);
    }
}

void GridFixture::ChangeKind(ConsoleMode mode) {
    grid->SetMode(mode);
    SetFilter();
    paging->DoFirstPage();
}

QPoint GridFixture::CellCentre(int row, int column) {
    const QModelIndex index = View().model()->index(row, column);
    View().scrollTo(index);
    return View().visualRect(index).center();
}

void GridFixture::ClickHeader(int column) {
    QHeaderView* header = View().horizontalHeader();
    const QPoint place(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                       header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
}

void GridFixture::ClickCell(int row, int column) {
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, CellCentre(row, column));
}

void GridFixture::DoubleClickCell(int row, int column) {
    const QPoint place = CellCentre(row, column);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, place);
}

void GridFixture::Check(std::initializer_list<int> rows) {
    for (const int row : rows) {
        ClickCell(row, 0);
    }
}

std::vector<int> GridFixture::Checked() {
    std::vector<int> rows;
    for (int row = 0; row < grid->GetRowCount(); ++row) {
        if (Item(row, 0).GetBool()) {
            rows.push_back(row);
        }
    }
    return rows;
}

std::string GridFixture::LastSort(ConsoleMode mode) {
    const KX_DATA::PageRequest& request = mode == kModeIssue ? host.questions.query.lastRequest
                                          : mode == kModePdf ? host.pics.pdfQuery.lastRequest
                                                             : host.pics.bimQuery.lastRequest;
    return (request.sortField + u' ' + request.sortOrder).toStdString();
}
