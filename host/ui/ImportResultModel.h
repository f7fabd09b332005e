// What an import left out, as rows: file, what became of it, why.
#pragma once

#include <QAbstractTableModel>
#include <QString>

#include <vector>

namespace host {

struct ImportResultRow {
    QString path;
    QString outcome;
    QString reason;
};

/// In the order of the import; any number of rows. Thread: user interface.
class ImportResultModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { kFile, kOutcome, kReason, kColumns };

    /// @param firstCaption  what the rows are about; empty: files.
    ImportResultModel(std::vector<ImportResultRow> resultRows, QObject* parent,
                      const QString& firstCaption = {});

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The captions and these rows as lines of columns between tabs; all rows if `chosen` is empty.
    [[nodiscard]] QString TextOf(const std::vector<int>& chosen) const;

private:
    std::vector<ImportResultRow> m_rows;
    QStringList m_captions;
};

} // namespace host
