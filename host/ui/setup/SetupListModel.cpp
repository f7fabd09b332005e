#include "host/ui/setup/SetupListModel.h"

#include "toolkit/Look.h"

#include <QColor>

namespace host {

SetupListModel::SetupListModel(SetupRows setupRows, std::vector<SetupColumn> columns,
                               QObject* parent)
    : QAbstractTableModel(parent), m_rows(std::move(setupRows)), m_columns(std::move(columns)) {}

int SetupListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows.count();
}

int SetupListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_columns.size());
}

QVariant SetupListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const SetupColumn& column = Column(index.column());
    const int row = index.row();
    const auto fault = m_faults.find(row);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return column.text ? QVariant(column.text(row)) : QVariant();
    case Qt::CheckStateRole:
        return column.isOn ? QVariant(column.isOn(row) ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::DecorationRole:
        return column.decoration ? column.decoration(row) : QVariant();
    case Qt::ForegroundRole:
        return fault != m_faults.end() ? QVariant(toolkit::Colors::ErrorText()) : QVariant();
    case Qt::ToolTipRole:
        return toolkit::PlainTip(fault != m_faults.end() ? fault->second : column.tip);
    case Qt::AccessibleTextRole:
        return column.isOn ? QVariant(column.caption) : QVariant();
    case ChoicesRole:
        return column.choices ? QVariant(column.choices(row)) : QVariant();
    case FaultRole:
        return fault != m_faults.end() ? QVariant(fault->second) : QVariant();
    default:
        return {};
    }
}

bool SetupListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid()) {
        return false;
    }
    const SetupColumn& column = Column(index.column());
    if (role == Qt::CheckStateRole && column.setOn) {
        column.setOn(index.row(), value.toInt() == Qt::Checked);
    } else if (role == Qt::EditRole && column.setText) {
        const QString text = site::TidyName(value.toString());
        if (text == column.text(index.row())) {
            return false;
        }
        column.setText(index.row(), text);
    } else {
        return false;
    }
    // One column may say what another holds: a role its rights.
    emit dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
    return true;
}

Qt::ItemFlags SetupListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const SetupColumn& column = Column(index.column());
    flags.setFlag(Qt::ItemIsEditable, bool(column.setText));
    flags.setFlag(Qt::ItemIsUserCheckable, bool(column.setOn));
    return flags;
}

QVariant SetupListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && section >= 0 && section < int(m_columns.size())) {
        if (role == Qt::DisplayRole) {
            return Column(section).caption;
        }
        if (role == Qt::ToolTipRole) {
            return toolkit::PlainTip(Column(section).tip);
        }
    }
    return {};
}

int SetupListModel::AddRow() {
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_rows.add();
    endInsertRows();
    return row;
}

void SetupListModel::RemoveRow(int row) {
    beginRemoveRows({}, row, row);
    m_rows.remove(row);
    endRemoveRows();
}

int SetupListModel::MoveRow(int row, bool up) {
    const int to = up ? row - 1 : row + 1;
    if (!m_rows.move || row < 0 || row >= rowCount() || to < 0 || to >= rowCount()) {
        return row;
    }
    beginMoveRows({}, row, row, {}, up ? to : to + 1);
    m_rows.move(row, to);
    endMoveRows();
    return to;
}

void SetupListModel::SetFaults(const std::vector<site::SetupFault>& faults) {
    m_faults.clear();
    for (const site::SetupFault& fault : faults) {
        if (fault.list == m_rows.list) {
            m_faults.emplace(fault.at, fault.text);
        }
    }
    if (rowCount() > 0) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

void SetupListModel::Reset() {
    beginResetModel();
    endResetModel();
}

} // namespace host
