#include "toolkit/grid/GridModel.h"

#include "toolkit/grid/MultiPageGrid.h"

namespace toolkit {

GridModel::GridModel(const CMultiPageGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), m_grid(&grid) {}

void GridModel::Detach() {
    beginResetModel();
    m_grid = nullptr;
    endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || m_grid == nullptr ? 0 : m_grid->GetRowCount();
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || m_grid == nullptr ? 0 : m_grid->GetColumnCount();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const CGridRow* row = m_grid == nullptr ? nullptr : m_grid->GetRow(index.row());
    const CGridItem* item = row == nullptr ? nullptr : row->GetItem(index.column());
    if (item == nullptr) {
        return {};
    }
    const auto* icon = dynamic_cast<const CIconGridItem*>(item);
    switch (role) {
    case kRowKeyRole:
        return m_grid->GetRow(index.row())->GetKey();
    case Qt::DisplayRole:
        return item->GetText();
    case Qt::AccessibleTextRole:
        return icon != nullptr ? icon->Tip() : item->GetText();
    case Qt::CheckStateRole:
        if (dynamic_cast<const CCheckBoxItem*>(item) == nullptr) {
            return {};
        }
        return item->GetValue().toBool() ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (m_grid == nullptr || orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return m_grid->GetColumnCaption(section);
    }
    if (role == Qt::AccessibleTextRole) {
        const QString caption = m_grid->GetColumnCaption(section);
        return caption.isEmpty() ? m_grid->GetColumnTip(section) : caption;
    }
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

} // namespace toolkit
