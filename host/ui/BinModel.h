// What users deleted, as rows of the bin window.
#pragma once

#include <QAbstractTableModel>

#include <vector>

namespace host {

/// One deleted photo or issue, ready to be read.
struct BinRow {
    qint64 binId = 0;
    QString kind;
    QString name;
    QString project;
    QString deletedBy;
    qint64 deletedAt = 0; ///< seconds since 1970
    qint64 keptUntil = 0; ///< seconds since 1970
};

/// Whole days until the entry goes for good, a begun one counts; 0 once it is due.
[[nodiscard]] int DaysLeft(qint64 keptUntil, qint64 now);

/// Thread: user interface.
class BinModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { kKind, kName, kProject, kDeletedBy, kDeletedAt, kDaysLeft, kColumns };

    using QAbstractTableModel::QAbstractTableModel;

    /// `now`: from which the days that are left are counted.
    void SetRows(std::vector<BinRow> newRows, qint64 now);
    [[nodiscard]] qint64 IdAt(int row) const { return m_rows[std::size_t(row)].binId; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString Text(const BinRow& row, int column) const;

    std::vector<BinRow> m_rows;
    qint64 m_countedFrom = 0;
};

} // namespace host
