// The record of what users did, as rows: time, user, action.
#pragma once

#include <QAbstractTableModel>

#include <deque>

namespace host {

struct ActionLogEntry {
    qint64 time = 0; ///< seconds since 1970
    QString userName;
    QString text;
};

/// Newest first, at most kMost. Thread: user interface.
class ActionLogModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int kMost = 1000;
    enum Column { kTime, kUser, kAction, kColumns };

    using QAbstractTableModel::QAbstractTableModel;

    /// Replaces all rows; `entries` come newest first.
    void SetEntries(const std::vector<ActionLogEntry>& newEntries);
    void Add(const ActionLogEntry& entry);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::deque<ActionLogEntry> m_entries;
};

} // namespace host
