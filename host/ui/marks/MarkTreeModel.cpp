#include "host/ui/marks/MarkTreeModel.h"

#include "host/ui/PhotoCount.h"
#include "toolkit/Look.h"
#include "toolkit/controls/Swatch.h"

#include <QFont>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

// Ids of indexes: 0 for floors; for marks the floor's row + 1, for entries the mark's row + 1 in
// the upper half as well.
constexpr int kMarkShift = 24;
constexpr quintptr kFloorMask = (quintptr(1) << kMarkShift) - 1;

bool HasSameRows(const MarkTree& one, const MarkTree& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const MarkTreeFloor& left, const MarkTreeFloor& right) {
                          return left.group == right.group &&
                                 std::equal(left.marks.begin(), left.marks.end(),
                                            right.marks.begin(), right.marks.end(),
                                            [](const auto& a, const auto& b) {
                                                return a.markId == b.markId && a.name == b.name &&
                                                       a.color == b.color;
                                            });
                      });
}

} // namespace

MarkTreeModel::MarkTreeModel(QObject* parent) : QAbstractItemModel(parent) {}

void MarkTreeModel::SetTree(MarkTree newTree) {
    if (HasSameRows(m_tree, newTree) && m_entries.empty()) {
        m_tree = std::move(newTree);
        TellAll();
        return;
    }
    beginResetModel();
    m_tree = std::move(newTree);
    m_entries.clear();
    List();
    endResetModel();
}

void MarkTreeModel::SetTicks(const MarkTicks& newTicks) {
    m_ticks = newTicks;
    TellAll();
}

void MarkTreeModel::SetFilter(const QString& text) {
    beginResetModel();
    m_filter = text;
    List();
    endResetModel();
}

void MarkTreeModel::List() {
    m_listedFloors.clear();
    m_listedMarks.clear();
    const auto taken = FilterMarkTree(m_tree, m_filter.trimmed());
    for (int floor = 0; floor < int(m_tree.size()); ++floor) {
        if (taken[floor].empty()) {
            continue;
        }
        m_listedFloors.push_back(floor);
        m_listedMarks.push_back(taken[floor]);
    }
}

void MarkTreeModel::TickAll(bool on) {
    if (m_filter.trimmed().isEmpty()) {
        m_ticks.SetAll(on);
    }
    for (int floor = 0; floor < int(m_listedFloors.size()); ++floor) {
        for (int mark = 0; mark < int(m_listedMarks[floor].size()); ++mark) {
            SetTick({floor, mark, -1}, on);
        }
    }
    m_ticks.Tidy(m_tree);
    TellAll();
    emit TicksChanged();
}

void MarkTreeModel::TickOnly(const QModelIndex& index) {
    if (!index.isValid()) {
        return;
    }
    m_ticks.SetAll(false);
    SetTick(SpotOf(index), true);
    m_ticks.Tidy(m_tree);
    TellAll();
    emit TicksChanged();
}

void MarkTreeModel::TellAll() {
    const QList<int> roles = {Qt::CheckStateRole, Qt::DisplayRole};
    const auto tell = [&](const QModelIndex& above) {
        if (const int rows = rowCount(above); rows > 0) {
            emit dataChanged(index(0, kName, above), index(rows - 1, kCount, above), roles);
        }
    };
    tell({});
    for (int floor = 0; floor < rowCount(); ++floor) {
        const QModelIndex above = index(floor, kName);
        tell(above);
        for (int mark = 0; !m_entries.empty() && mark < rowCount(above); ++mark) {
            tell(index(mark, kName, above));
        }
    }
}

MarkTreeModel::Spot MarkTreeModel::SpotOf(const QModelIndex& index) const {
    if (!index.isValid()) {
        return {};
    }
    const quintptr id = index.internalId();
    if (id == 0) {
        return {index.row(), -1, -1};
    }
    const int floor = int(id & kFloorMask) - 1;
    const int mark = int(id >> kMarkShift) - 1;
    return mark < 0 ? Spot{floor, index.row(), -1} : Spot{floor, mark, index.row()};
}

const MarkTreeFloor& MarkTreeModel::FloorAt(const Spot& spot) const {
    return m_tree[m_listedFloors[spot.floor]];
}

const MarkTreeMark& MarkTreeModel::MarkAt(const Spot& spot) const {
    return FloorAt(spot).marks[m_listedMarks[spot.floor][spot.mark]];
}

const std::vector<IssueName>* MarkTreeModel::EntriesAt(const Spot& spot) const {
    const auto found = m_entries.find({FloorAt(spot).group, MarkAt(spot).markId});
    return found == m_entries.end() ? nullptr : &found->second;
}

QString MarkTreeModel::GroupOf(const QModelIndex& index) const {
    return index.isValid() ? FloorAt(SpotOf(index)).group : QString();
}

qint32 MarkTreeModel::MarkOf(const QModelIndex& index) const {
    const Spot spot = SpotOf(index);
    return spot.mark < 0 ? 0 : MarkAt(spot).markId;
}

QString MarkTreeModel::EntryOf(const QModelIndex& index) const {
    const Spot spot = SpotOf(index);
    return spot.entry < 0 ? QString() : (*EntriesAt(spot))[spot.entry].questionId;
}

QModelIndex MarkTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column < 0 || column >= kColumns || row >= rowCount(parent)) {
        return {};
    }
    const Spot above = SpotOf(parent);
    if (above.floor < 0) {
        return createIndex(row, column, quintptr(0));
    }
    quintptr id = quintptr(above.floor) + 1;
    if (above.mark >= 0) {
        id |= (quintptr(above.mark) + 1) << kMarkShift;
    }
    return createIndex(row, column, id);
}

QModelIndex MarkTreeModel::parent(const QModelIndex& child) const {
    const Spot spot = SpotOf(child);
    if (spot.mark < 0) {
        return {};
    }
    if (spot.entry < 0) {
        return createIndex(spot.floor, kName, quintptr(0));
    }
    return createIndex(spot.mark, kName, quintptr(spot.floor) + 1);
}

int MarkTreeModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) {
        return int(m_listedFloors.size());
    }
    const Spot spot = SpotOf(parent);
    if (parent.column() != kName || spot.entry >= 0) {
        return 0;
    }
    if (spot.mark < 0) {
        return int(m_listedMarks[spot.floor].size());
    }
    const std::vector<IssueName>* read = EntriesAt(spot);
    return read == nullptr ? 0 : int(read->size());
}

int MarkTreeModel::columnCount(const QModelIndex&) const {
    return kColumns;
}

bool MarkTreeModel::hasChildren(const QModelIndex& parent) const {
    return rowCount(parent) > 0 || canFetchMore(parent);
}

bool MarkTreeModel::canFetchMore(const QModelIndex& parent) const {
    const Spot spot = SpotOf(parent);
    return m_readEntries && parent.column() == kName && spot.mark >= 0 && spot.entry < 0 &&
           EntriesAt(spot) == nullptr;
}

void MarkTreeModel::fetchMore(const QModelIndex& parent) {
    if (!canFetchMore(parent)) {
        return;
    }
    const Spot spot = SpotOf(parent);
    const std::pair<QString, qint32> place{FloorAt(spot).group, MarkAt(spot).markId};
    std::vector<IssueName> read = m_readEntries(place.first, place.second);
    if (read.empty()) {
        m_entries[place] = {};
        return;
    }
    beginInsertRows(parent, 0, int(read.size()) - 1);
    m_entries[place] = std::move(read);
    endInsertRows();
}

QString MarkTreeModel::NameAt(const Spot& spot) const {
    if (spot.mark < 0) {
        return FloorAt(spot).caption;
    }
    return spot.entry < 0 ? MarkAt(spot).name : (*EntriesAt(spot))[spot.entry].theme;
}

Qt::CheckState MarkTreeModel::StateAt(const Spot& spot) const {
    if (spot.mark < 0) {
        return m_ticks.StateOf(FloorAt(spot));
    }
    if (spot.entry < 0) {
        return m_ticks.StateOf(FloorAt(spot), MarkAt(spot));
    }
    const bool on = m_ticks.IsEntryTicked(FloorAt(spot).group, MarkAt(spot).markId,
                                          (*EntriesAt(spot))[spot.entry].questionId);
    return on ? Qt::Checked : Qt::Unchecked;
}

QIcon MarkTreeModel::IconOf(qint32 color) const {
    QIcon& icon = m_icons[color];
    if (icon.isNull()) {
        icon = toolkit::SwatchIcon(toolkit::ColorFromBgr(color));
    }
    return icon;
}

QVariant MarkTreeModel::NameData(const Spot& spot, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return NameAt(spot);
    case Qt::ToolTipRole:
        return toolkit::PlainTip(NameAt(spot));
    case Qt::CheckStateRole:
        return StateAt(spot);
    case Qt::DecorationRole:
        return spot.mark >= 0 && spot.entry < 0 ? QVariant(IconOf(MarkAt(spot).color)) : QVariant();
    default:
        return {};
    }
}

QVariant MarkTreeModel::data(const QModelIndex& index, int role) const {
    const Spot spot = SpotOf(index);
    if (spot.floor < 0) {
        return {};
    }
    if (index.column() == kName) {
        return NameData(spot, role);
    }
    if (role == Qt::TextAlignmentRole) {
        return int(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role == Qt::ForegroundRole) {
        return toolkit::Colors::HintText();
    }
    if (role != Qt::DisplayRole || spot.entry >= 0) {
        return {};
    }
    return spot.mark < 0 ? CountText({FloorAt(spot).count, FloorAt(spot).hidden})
                         : CountText({MarkAt(spot).count, MarkAt(spot).hidden});
}

QVariant MarkTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) {
        return int((section == kName ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    }
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == kName ? u"楼层、标识"_s : u"数量"_s;
}

void MarkTreeModel::SetTick(const Spot& spot, bool on) {
    const MarkTreeFloor& floor = FloorAt(spot);
    if (spot.mark < 0) {
        // Marks that the filter hides keep their ticks.
        if (m_listedMarks[spot.floor].size() == floor.marks.size()) {
            m_ticks.SetFloor(floor.group, on);
        }
        for (int mark = 0; mark < int(m_listedMarks[spot.floor].size()); ++mark) {
            SetTick({spot.floor, mark, -1}, on);
        }
    } else if (spot.entry < 0) {
        m_ticks.SetMark(floor.group, MarkAt(spot).markId, on);
    } else {
        m_ticks.SetEntry(floor.group, MarkAt(spot).markId,
                         (*EntriesAt(spot))[spot.entry].questionId, on);
    }
}

bool MarkTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || index.column() != kName || role != Qt::CheckStateRole) {
        return false;
    }
    SetTick(SpotOf(index), value.toInt() == Qt::Checked);
    m_ticks.Tidy(m_tree);
    TellAll();
    emit TicksChanged();
    return true;
}

Qt::ItemFlags MarkTreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return {};
    }
    Qt::ItemFlags all = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() == kName) {
        all |= Qt::ItemIsUserCheckable;
    }
    return all;
}

} // namespace host
