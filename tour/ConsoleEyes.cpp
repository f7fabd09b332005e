#include "tour/ConsoleEyes.h"

#include "hands/Choices.h"
#include "hands/Hands.h"
#include "tour/TourEyes.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTableView>

namespace tour {

using namespace Qt::StringLiterals;

QWidget* Console() {
    return FindWindow(u"VeskPicMngDlg"_s);
}

QWidget* ConsoleControl(const QString& name) {
    return FindIn(Console(), name);
}

QAbstractItemView* ConsoleGrid() {
    return qobject_cast<QAbstractItemView*>(ConsoleControl(u"resultGrid"_s));
}

int ConsoleTotal() {
    static const QRegularExpression number(u"本次共搜索到(\\d+)"_s);
    const auto found = number.match(ReadText(ConsoleControl(u"statusPane"_s)));
    return found.hasMatch() ? found.captured(1).toInt() : -1;
}

int ConsoleRows() {
    const QAbstractItemView* grid = ConsoleGrid();
    return grid == nullptr ? 0 : grid->model()->rowCount();
}

int ConsoleColumn(const QString& caption) {
    const auto* grid = qobject_cast<QTableView*>(ConsoleGrid());
    if (grid == nullptr) {
        return -1;
    }
    for (int column = 0; column < grid->model()->columnCount(); ++column) {
        const QString text = grid->model()->headerData(column, Qt::Horizontal).toString();
        if (text == caption && !grid->isColumnHidden(column)) {
            return column;
        }
    }
    return -1;
}

QString ConsoleText(int row, const QString& caption) {
    const int column = ConsoleColumn(caption);
    return column < 0 ? QString() : ConsoleGrid()->model()->index(row, column).data().toString();
}

bool ConsoleColumnSorted(const QString& caption, bool ascending) {
    for (int row = 1; row < ConsoleRows(); ++row) {
        const QString above = ConsoleText(row - 1, caption);
        const QString below = ConsoleText(row, caption);
        if (ascending ? above > below : above < below) {
            return false;
        }
    }
    return ConsoleRows() > 0;
}

int ConsoleCheckedRows() {
    int checked = 0;
    for (int row = 0; row < ConsoleRows(); ++row) {
        const QModelIndex box = ConsoleGrid()->model()->index(row, 0);
        checked += box.data(Qt::CheckStateRole).toInt() == Qt::Checked ? 1 : 0;
    }
    return checked;
}

int ConsoleRowsWith(const QString& caption, const QString& text) {
    int found = 0;
    for (int row = 0; row < ConsoleRows(); ++row) {
        found += ConsoleText(row, caption) == text ? 1 : 0;
    }
    return found;
}

int ConsolePage() {
    return ReadText(ConsoleControl(u"pagingBox"_s)).toInt();
}

int ConsoleRowWithPlace() {
    for (int row = 0; row < ConsoleRows(); ++row) {
        if (!ConsoleText(row, u"位置"_s).isEmpty() && ConsoleText(row, u"状态"_s) == u"显示"_s) {
            return row;
        }
    }
    return -1;
}

bool ClickConsoleHeader(const QString& caption) {
    const auto* grid = qobject_cast<QTableView*>(ConsoleGrid());
    const int column = ConsoleColumn(caption);
    if (grid == nullptr || column < 0) {
        return false;
    }
    QHeaderView* header = grid->horizontalHeader();
    const int middle = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
    return hands::ClickAt(header->viewport(), QPoint(middle, header->height() / 2));
}

bool ClickConsoleCheck(int row) {
    return hands::ClickCell(ConsoleGrid(), row, 0);
}

bool OpenRowMenu(int row) {
    const int column = ConsoleColumn(u"描述"_s);
    return column >= 0 && hands::ClickCell(ConsoleGrid(), row, column, Qt::RightButton);
}

bool ChooseInConsole(const QString& combo, const QString& entry) {
    return hands::ChooseInCombo(qobject_cast<QComboBox*>(ConsoleControl(combo)), entry);
}

} // namespace tour
