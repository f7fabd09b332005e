// Rows of texts that sort by keys of their own.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

namespace host {

struct RowCell {
    QString text;
    QVariant key; ///< what the column sorts by; invalid: the text
};

/// Thread: user interface.
class RowModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    /// For QSortFilterProxyModel::setSortRole.
    static constexpr int kKeyRole = Qt::UserRole;

    RowModel(QStringList captions, QObject* parent);

    /// Each row has as many cells as there are captions.
    void SetRows(std::vector<std::vector<RowCell>> newRows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const QStringList m_captions;
    std::vector<std::vector<RowCell>> m_rows;
};

} // namespace host
