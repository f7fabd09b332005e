#include "host/ui/catchup/CatchUpModel.h"

#include "toolkit/Look.h"
#include "toolkit/controls/LineText.h"

#include <limits>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// About 15 MB of them.
constexpr qsizetype kMostPictures = 500;

QString TextOf(const CatchUpItem& item) {
    QStringList parts{item.isIssue ? u"问题"_s : u"照片"_s,
                      item.name,
                      item.place,
                      item.markName,
                      item.person,
                      item.time};
    parts.removeAll(QString());
    return toolkit::LineStart(parts.join(u"  "_s));
}

} // namespace

void CatchUpModel::SetItems(Items items) {
    if (items == m_items) {
        return; // what is chosen, and how far one has scrolled, stays
    }
    beginResetModel();
    m_items = std::move(items);
    endResetModel();
}

void CatchUpModel::Prepend(const Items& items) {
    if (items.empty()) {
        return;
    }
    beginInsertRows({}, 0, int(items.size()) - 1);
    m_items.insert(m_items.begin(), items.begin(), items.end());
    endInsertRows();
}

void CatchUpModel::Append(const Items& items) {
    if (items.empty()) {
        return;
    }
    const int first = int(m_items.size());
    beginInsertRows({}, first, first + int(items.size()) - 1);
    m_items.insert(m_items.end(), items.begin(), items.end());
    endInsertRows();
}

void CatchUpModel::MarkRead(int row) {
    m_items[std::size_t(row)].isRead = true;
    emit dataChanged(index(row), index(row));
}

void CatchUpModel::MarkAllRead() {
    if (m_items.empty()) {
        return;
    }
    for (CatchUpItem& item : m_items) {
        item.isRead = true;
    }
    emit dataChanged(index(0), index(int(m_items.size()) - 1));
}

QPixmap CatchUpModel::PictureOf(const CatchUpItem& item) {
    if (item.uuid.isEmpty()) {
        return {};
    }
    const auto held = m_pictures.constFind(item.uuid);
    if (held != m_pictures.cend()) {
        return *held;
    }
    if (m_pictures.size() >= kMostPictures) {
        m_pictures.clear();
    }
    m_pictures.insert(item.uuid, {});
    emit PictureWanted(item.ppid, item.uuid);
    return {};
}

void CatchUpModel::SetPicture(const QString& uuid, const QPixmap& picture) {
    m_pictures[uuid] = picture;
    for (int row = 0; row < int(m_items.size()); ++row) {
        if (At(row).uuid == uuid) {
            emit dataChanged(index(row), index(row), {Qt::DecorationRole});
        }
    }
}

int CatchUpModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_items.size());
}

QVariant CatchUpModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const CatchUpItem& item = At(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return TextOf(item);
    case Qt::ToolTipRole:
        return toolkit::PlainTip(item.tip.isEmpty() ? TextOf(item)
                                                    : TextOf(item) + u'\n' + item.tip);
    case Qt::AccessibleTextRole:
        return item.isRead ? TextOf(item) : u"未读  "_s + TextOf(item);
    default:
        return {};
    }
}

bool CatchUpModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && m_hasMore;
}

void CatchUpModel::fetchMore(const QModelIndex& parent) {
    if (canFetchMore(parent)) {
        m_hasMore = false; // until the answer
        emit MoreWanted(m_items.empty() ? std::numeric_limits<qint64>::max() : m_items.back().seq);
    }
}

} // namespace host
