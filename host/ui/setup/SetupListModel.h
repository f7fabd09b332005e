// One list of a site's setup as a table that is edited in place.
#pragma once

#include "host/ui/setup/SetupDraft.h"

#include <QAbstractTableModel>

#include <functional>
#include <vector>

namespace host {

/// One column: what a row says in it, and what a person makes of it.
struct SetupColumn {
    QString caption;
    int width = 120; ///< device-independent pixels; 0: takes what is left
    QString tip;
    std::function<QString(int row)> text;
    /// Empty: can't be edited. Is handed a tidied text.
    std::function<void(int row, const QString& text)> setText;
    /// Instead of a text a check box.
    std::function<bool(int row)> isOn;
    std::function<void(int row, bool on)> setOn;
    std::function<QVariant(int row)> decoration;
    /// Where only these are right; the editor is a list then.
    std::function<QStringList(int row)> choices;
};

/// What the rows are: how they are made, removed, ordered. What is empty can't be done.
struct SetupRows {
    site::SetupList list = site::SetupList::Project;
    std::function<int()> count;
    std::function<void()> add;
    std::function<void(int row)> remove;
    std::function<void(int from, int to)> move;
};

/// Rows come from the draft. Faults are shown in their row. Thread: user interface.
class SetupListModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role {
        ChoicesRole = Qt::UserRole, ///< QStringList; empty: any text
        FaultRole,                  ///< QString, what is wrong with the row
    };

    SetupListModel(SetupRows setupRows, std::vector<SetupColumn> columns, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    [[nodiscard]] const SetupColumn& Column(int column) const {
        return m_columns[std::size_t(column)];
    }
    [[nodiscard]] const SetupRows& Rows() const { return m_rows; }
    /// The new row's number.
    int AddRow();
    void RemoveRow(int row);
    /// By one, upwards or downwards; the row's new number.
    int MoveRow(int row, bool up);
    /// Of the draft; of those of other lists nothing is taken.
    void SetFaults(const std::vector<site::SetupFault>& faults);
    /// All rows may be others now.
    void Reset();

private:
    SetupRows m_rows;
    std::vector<SetupColumn> m_columns;
    std::map<int, QString> m_faults;
};

} // namespace host
