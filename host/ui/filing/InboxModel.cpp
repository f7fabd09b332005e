#include "host/ui/filing/InboxModel.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/controls/LineText.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Kilobytes: more than the largest screen shows at once.
constexpr int kMostPictureKilobytes = 96 * 1024;
constexpr int kBytesOfPixel = 4;
constexpr int kBlankSide = 32;

int KilobytesOf(const QPixmap& picture) {
    return 1 + picture.width() * picture.height() * kBytesOfPixel / 1024;
}

QString TipOf(const InboxItem& item) {
    QStringList lines{item.name, item.person + u"  "_s + item.time, item.lack};
    if (!item.facts.isEmpty()) {
        lines << item.facts;
    }
    return lines.join(u'\n');
}

} // namespace

InboxModel::InboxModel(QObject* parent)
    : QAbstractListModel(parent), m_blank(toolkit::Icon(u"photo"_s).pixmap(kBlankSide)),
      m_pictures(kMostPictureKilobytes) {}

void InboxModel::SetItems(Items newItems, int all) {
    m_isFetching = false;
    m_total = all;
    if (newItems == m_items) {
        return; // what is chosen, and how far one has scrolled, stays
    }
    beginResetModel();
    m_items = std::move(newItems);
    endResetModel();
}

void InboxModel::Append(const Items& more, int all) {
    m_isFetching = false;
    m_total = all;
    if (more.empty()) {
        return;
    }
    const int first = int(m_items.size());
    beginInsertRows({}, first, first + int(more.size()) - 1);
    m_items.insert(m_items.end(), more.begin(), more.end());
    endInsertRows();
}

QPixmap InboxModel::PictureOf(const InboxItem& item) const {
    if (const QPixmap* held = m_pictures.object(item.uuid)) {
        return *held;
    }
    if (!item.uuid.isEmpty() && !m_asked.contains(item.uuid)) {
        m_asked.insert(item.uuid);
        emit PictureWanted(item.ppid, item.uuid);
    }
    return m_blank;
}

void InboxModel::SetPicture(const QString& uuid, const QPixmap& picture) {
    if (picture.isNull()) {
        return;
    }
    m_asked.remove(uuid); // it is asked for again once it had to make room
    m_pictures.insert(uuid, new QPixmap(picture), KilobytesOf(picture));
    for (int row = 0; row < int(m_items.size()); ++row) {
        if (At(row).uuid == uuid) {
            emit dataChanged(index(row), index(row), {Qt::DecorationRole});
        }
    }
}

int InboxModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_items.size());
}

QVariant InboxModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const InboxItem& item = At(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return QStringList{toolkit::LineStart(item.name), item.time, item.lack}.join(u'\n');
    case Qt::DecorationRole:
        return PictureOf(item);
    case Qt::ToolTipRole:
        return toolkit::PlainTip(TipOf(item));
    case Qt::AccessibleTextRole:
        return QStringList{item.name, item.lack, item.time}.join(u"，"_s);
    default:
        return {};
    }
}

bool InboxModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && !m_isFetching && int(m_items.size()) < m_total;
}

void InboxModel::fetchMore(const QModelIndex& parent) {
    if (canFetchMore(parent)) {
        m_isFetching = true; // until the answer
        emit MoreWanted();
    }
}

} // namespace host
