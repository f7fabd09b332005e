#include "host/ui/rich/VersionTables.h"

#include "host/ui/HintTable.h"
#include "host/ui/rich/RowModel.h"
#include "toolkit/KXTools.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

enum RecordColumn { kPlace, kRecordState, kRecordPerson, kRecordAt, kVersions };

std::vector<RowCell> CellsOf(const RecordRow& row) {
    return {{row.place, {}},
            {row.state, {}},
            {row.person, {}},
            {KXTools::MinuteText(row.at), row.at},
            {QString::number(row.versions), row.versions}};
}

std::vector<RowCell> CellsOf(const VersionRow& row) {
    return {{u"第%1版"_s.arg(row.number), row.number},
            {KXTools::timeToCString(row.at), row.at},
            {row.person, {}},
            {row.state, {}}};
}

template <class Row> std::vector<std::vector<RowCell>> AllCells(const std::vector<Row>& rows) {
    std::vector<std::vector<RowCell>> cells;
    cells.reserve(rows.size());
    for (const Row& row : rows) {
        cells.push_back(CellsOf(row));
    }
    return cells;
}

HintTable* MakeTable(const QString& name, const QString& accessibleName, QWidget* parent) {
    auto* table = new HintTable(parent);
    table->setObjectName(name);
    table->setAccessibleName(accessibleName);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    return table;
}

/// As wide as so many digits of the table's face; one column takes what is left.
void SetWidths(HintTable* table, const QList<int>& digits, int stretched) {
    const int digit = table->fontMetrics().horizontalAdvance(u'0');
    for (int column = 0; column < digits.size(); ++column) {
        table->setColumnWidth(column, digits[column] * digit);
    }
    table->horizontalHeader()->setMinimumSectionSize(8 * digit);
    table->horizontalHeader()->setSectionResizeMode(stretched, QHeaderView::Stretch);
}

} // namespace

RecordPanel::RecordPanel(QWidget* parent) : QWidget(parent) {
    m_filter = new QLineEdit(this);
    m_filter->setObjectName(u"recordFilter"_s);
    m_filter->setAccessibleName(u"筛选记录"_s);
    m_filter->setPlaceholderText(u"筛选位置、整改情况、整改人"_s);
    m_filter->setToolTip(u"只列出含有这些文字的记录（Ctrl+F）"_s);
    m_filter->setClearButtonEnabled(true);
    m_model =
        new RowModel({u"位置"_s, u"整改情况"_s, u"整改人"_s, u"更新时间"_s, u"版本数"_s}, this);
    m_shown = new QSortFilterProxyModel(this);
    m_shown->setSourceModel(m_model);
    m_shown->setSortRole(RowModel::kKeyRole);
    m_shown->setFilterKeyColumn(-1);
    m_shown->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_shown->setSortLocaleAware(true);
    m_table = MakeTable(u"recordTable"_s, u"记录"_s, this);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setModel(m_shown);
    SetWidths(m_table, {24, 10, 10, 18, 9}, kPlace);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(kRecordAt, Qt::DescendingOrder);
    Filter({});
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(8);
    all->addWidget(m_filter);
    all->addWidget(m_table, 1);
    m_table->setFocus();
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    addAction(find);
    connect(find, &QAction::triggered, this, [this] {
        m_filter->setFocus(Qt::ShortcutFocusReason);
        m_filter->selectAll();
    });
    connect(m_filter, &QLineEdit::textChanged, this, &RecordPanel::Filter);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isFilling) {
            emit ChosenChanged();
        }
    });
}

void RecordPanel::Filter(const QString& text) {
    m_table->SetHint(text.isEmpty() ? u"没有记录。\n在照片或问题中保存整改记录后，会列在这里。"_s
                                    : u"没有符合筛选条件的记录。"_s);
    m_shown->setFilterFixedString(text);
}

void RecordPanel::SetRows(std::vector<RecordRow> rows) {
    const QString before = Chosen();
    const QScopedValueRollback filling(m_isFilling, true);
    const int scrolled = m_table->verticalScrollBar()->value();
    m_rows = std::move(rows);
    m_model->SetRows(AllCells(m_rows));
    const QModelIndex same = m_shown->mapFromSource(m_model->index(RowOf(before), kPlace));
    if (same.isValid()) {
        m_table->setCurrentIndex(same);
    }
    m_table->verticalScrollBar()->setValue(scrolled);
}

int RecordPanel::RowOf(const QString& id) const {
    const auto at = std::find_if(m_rows.begin(), m_rows.end(),
                                 [&id](const RecordRow& row) { return row.id == id; });
    return at == m_rows.end() ? -1 : int(at - m_rows.begin());
}

bool RecordPanel::Choose(const QString& id) {
    const QModelIndex row = m_model->index(RowOf(id), kPlace);
    if (!row.isValid()) {
        return false;
    }
    const QScopedValueRollback filling(m_isFilling, true);
    if (!m_shown->mapFromSource(row).isValid()) {
        m_filter->clear();
    }
    m_table->setCurrentIndex(m_shown->mapFromSource(row));
    m_table->scrollTo(m_table->currentIndex());
    return true;
}

void RecordPanel::ChooseFirst() {
    const QScopedValueRollback filling(m_isFilling, true);
    m_table->setCurrentIndex(m_shown->index(0, kPlace));
}

QString RecordPanel::Chosen() const {
    const QModelIndexList chosen = m_table->selectionModel()->selectedRows();
    return chosen.isEmpty() ? QString()
                            : m_rows[std::size_t(m_shown->mapToSource(chosen[0]).row())].id;
}

VersionPanel::VersionPanel(QWidget* parent) : QWidget(parent) {
    m_model = new RowModel({u"版本"_s, u"时间"_s, u"整改人"_s, u"整改情况"_s}, this);
    m_table = MakeTable(u"versionTable"_s, u"版本"_s, this);
    m_table->setModel(m_model);
    m_table->setToolTip(u"选择一个版本，与其前一个版本比较；按住 Ctrl 选择两个，相互比较"_s);
    SetWidths(m_table, {10, 22, 12, 12}, 3);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_table);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isFilling) {
            emit ChosenChanged();
        }
    });
}

void VersionPanel::SetRows(std::vector<VersionRow> rows, const std::vector<qint64>& chosen) {
    const QScopedValueRollback filling(m_isFilling, true);
    m_rows = std::move(rows);
    m_model->SetRows(AllCells(m_rows));
    bool isAnyChosen = false;
    for (int row = 0; row < int(m_rows.size()); ++row) {
        if (std::find(chosen.begin(), chosen.end(), m_rows[row].number) == chosen.end()) {
            continue;
        }
        const QModelIndex index = m_model->index(row, 0);
        m_table->selectionModel()->select(index,
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
        if (!isAnyChosen) {
            m_table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        }
        isAnyChosen = true;
    }
    if (!isAnyChosen) {
        m_table->setCurrentIndex(m_model->index(0, 0));
    }
}

void VersionPanel::ShowHint(const QString& hint) {
    m_table->SetHint(hint);
}

std::vector<int> VersionPanel::ChosenRows() const {
    std::vector<int> rows;
    for (const QModelIndex& row : m_table->selectionModel()->selectedRows()) {
        rows.push_back(row.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::vector<qint64> VersionPanel::ChosenNumbers() const {
    std::vector<qint64> numbers;
    for (const int row : ChosenRows()) {
        numbers.push_back(m_rows[std::size_t(row)].number);
    }
    return numbers;
}

} // namespace host
