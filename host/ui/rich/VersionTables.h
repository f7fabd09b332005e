// The two tables of the window of versions.
#pragma once

#include "host/ui/rich/VersionSource.h"

#include <QWidget>

class QLineEdit;
class QSortFilterProxyModel;

namespace host {

class HintTable;
class RowModel;

/// All records below a box that filters them; one is chosen, or none. Thread: user interface. Owned
/// by its parent.
class RecordPanel final : public QWidget {
    Q_OBJECT

public:
    explicit RecordPanel(QWidget* parent);

    /// The chosen record stays chosen if it is still there; the table stays where it was.
    void SetRows(std::vector<RecordRow> rows);
    /// Takes the filter away if it hides the record. False: there is no such record, nothing
    /// changed. Tells nobody.
    bool Choose(const QString& id);
    void ChooseFirst();
    /// Empty: none.
    [[nodiscard]] QString Chosen() const;

signals:
    /// A person chose.
    void ChosenChanged();

private:
    void Filter(const QString& text);
    [[nodiscard]] int RowOf(const QString& id) const;

    std::vector<RecordRow> m_rows;
    QLineEdit* m_filter = nullptr;
    RowModel* m_model = nullptr;
    QSortFilterProxyModel* m_shown = nullptr;
    HintTable* m_table = nullptr;
    bool m_isFilling = false;
};

/// The versions of one record, newest first; any number is chosen. Thread: user interface. Owned by
/// its parent.
class VersionPanel final : public QWidget {
    Q_OBJECT

public:
    explicit VersionPanel(QWidget* parent);

    /// Chooses those of the chosen numbers that are still there, or the newest one.
    void SetRows(std::vector<VersionRow> rows, const std::vector<qint64>& chosen);
    void ShowHint(const QString& hint);

    [[nodiscard]] const std::vector<VersionRow>& Rows() const { return m_rows; }
    /// Indexes of the rows, newest first.
    [[nodiscard]] std::vector<int> ChosenRows() const;
    [[nodiscard]] std::vector<qint64> ChosenNumbers() const;

signals:
    /// A person chose.
    void ChosenChanged();

private:
    std::vector<VersionRow> m_rows;
    RowModel* m_model = nullptr;
    HintTable* m_table = nullptr;
    bool m_isFilling = false;
};

} // namespace host
