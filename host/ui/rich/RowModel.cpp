#include "host/ui/rich/RowModel.h"

#include "toolkit/Look.h"
#include "toolkit/controls/LineText.h"

#include <utility>

namespace host {

RowModel::RowModel(QStringList captions, QObject* parent)
    : QAbstractTableModel(parent), m_captions(std::move(captions)) {}

void RowModel::SetRows(std::vector<std::vector<RowCell>> newRows) {
    beginResetModel();
    m_rows = std::move(newRows);
    endResetModel();
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

int RowModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_captions.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const RowCell& cell = m_rows[std::size_t(index.row())][std::size_t(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return toolkit::LineStart(cell.text);
    case Qt::ToolTipRole:
        return toolkit::PlainTip(toolkit::LineStart(cell.text));
    case kKeyRole:
        return cell.key.isValid() ? cell.key : QVariant(toolkit::LineStart(cell.text));
    default:
        return {};
    }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return m_captions.value(section);
}

} // namespace host
