// The mark panel's tree as a model with check boxes.
#pragma once

#include "host/ui/marks/MarkFlag.h"
#include "host/ui/marks/MarkTicks.h"

#include <QAbstractItemModel>
#include <QIcon>

namespace host {

/// Floors with their marks; below the marks of issues the issues, read when a mark is expanded.
/// Column 0: name and tick, column 1: how many. Thread: user interface.
class MarkTreeModel final : public QAbstractItemModel {
    Q_OBJECT

public:
    enum Column { kName, kCount, kColumns };
    using ReadEntries = std::function<std::vector<IssueName>(const QString& group, qint32 markId)>;

    explicit MarkTreeModel(QObject* parent);

    /// Reads the entries of a mark; without it marks have nothing below them.
    void SetEntryReader(ReadEntries reader) { m_readEntries = std::move(reader); }
    /// Where floors and marks are the same, only counts change, and nothing is reset.
    void SetTree(MarkTree newTree);
    void SetTicks(const MarkTicks& newTicks);
    /// Only what matches is listed; see FilterMarkTree.
    void SetFilter(const QString& text);
    /// Ticks or unticks everything that is listed.
    void TickAll(bool on);
    /// Unticks everything but a row and what is below it.
    void TickOnly(const QModelIndex& index);

    [[nodiscard]] const MarkTree& Tree() const { return m_tree; }
    [[nodiscard]] const MarkTicks& Ticks() const { return m_ticks; }
    /// Of the row's floor; empty for an invalid index.
    [[nodiscard]] QString GroupOf(const QModelIndex& index) const;
    /// 0 for a floor.
    [[nodiscard]] qint32 MarkOf(const QModelIndex& index) const;
    /// Of an issue; empty for other rows.
    [[nodiscard]] QString EntryOf(const QModelIndex& index) const;

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// The person ticked something.
    void TicksChanged();

private:
    /// Where an index points: rows of what is listed; -1: not that deep.
    struct Spot {
        int floor = -1;
        int mark = -1;
        int entry = -1;
    };
    [[nodiscard]] Spot SpotOf(const QModelIndex& index) const;
    [[nodiscard]] const MarkTreeFloor& FloorAt(const Spot& spot) const;
    [[nodiscard]] const MarkTreeMark& MarkAt(const Spot& spot) const;
    [[nodiscard]] const std::vector<IssueName>* EntriesAt(const Spot& spot) const;
    [[nodiscard]] QVariant NameData(const Spot& spot, int role) const;
    [[nodiscard]] QString NameAt(const Spot& spot) const;
    [[nodiscard]] Qt::CheckState StateAt(const Spot& spot) const;
    [[nodiscard]] QIcon IconOf(qint32 color) const;
    void SetTick(const Spot& spot, bool on);
    void List();
    void TellAll();

    MarkTree m_tree;
    MarkTicks m_ticks;
    QString m_filter;
    std::vector<int> m_listedFloors;             ///< indexes into the tree
    std::vector<std::vector<int>> m_listedMarks; ///< of each listed floor
    ReadEntries m_readEntries;
    std::map<std::pair<QString, qint32>, std::vector<IssueName>> m_entries; ///< that were read
    mutable std::map<qint32, QIcon> m_icons;
};

} // namespace host
