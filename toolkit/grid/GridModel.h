// The grid's rows and columns as Qt's views and assistive programs read them.
#pragma once

#include <QAbstractTableModel>

class CMultiPageGrid;

namespace toolkit {

/// Holds nothing itself. The grid announces its changes through the begin and end functions.
class GridModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    /// Of any cell: the key of its row, a text.
    static constexpr int kRowKeyRole = Qt::UserRole + 1;

    GridModel(const CMultiPageGrid& grid, QObject* parent);

    /// The grid is about to end: no rows and columns from now on.
    void Detach();

    using QAbstractTableModel::beginInsertColumns;
    using QAbstractTableModel::beginInsertRows;
    using QAbstractTableModel::beginRemoveColumns;
    using QAbstractTableModel::beginRemoveRows;
    using QAbstractTableModel::endInsertColumns;
    using QAbstractTableModel::endInsertRows;
    using QAbstractTableModel::endRemoveColumns;
    using QAbstractTableModel::endRemoveRows;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    const CMultiPageGrid* m_grid;
};

} // namespace toolkit
