#include "host/ui/ActionLogModel.h"

#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/controls/LineText.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

void ActionLogModel::SetEntries(const std::vector<ActionLogEntry>& newEntries) {
    beginResetModel();
    const auto count = std::min<std::size_t>(newEntries.size(), kMost);
    m_entries.assign(newEntries.begin(), newEntries.begin() + qsizetype(count));
    endResetModel();
}

void ActionLogModel::Add(const ActionLogEntry& entry) {
    if (int(m_entries.size()) == kMost) {
        beginRemoveRows({}, kMost - 1, kMost - 1);
        m_entries.pop_back();
        endRemoveRows();
    }
    beginInsertRows({}, 0, 0);
    m_entries.push_front(entry);
    endInsertRows();
}

int ActionLogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_entries.size());
}

int ActionLogModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant ActionLogModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const ActionLogEntry& entry = m_entries[std::size_t(index.row())];
    QString text = entry.text;
    if (index.column() == kTime) {
        text = KXTools::SecondText(entry.time);
    } else if (index.column() == kUser) {
        text = entry.userName;
    }
    text = toolkit::LineStart(text);
    return role == Qt::ToolTipRole ? toolkit::PlainTip(text) : text;
}

QVariant ActionLogModel::headerData(int section, Qt::Orientation orientation, int role) const {
    static const QStringList captions = {u"时间"_s, u"用户"_s, u"操作"_s};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return captions.value(section);
}

} // namespace host
