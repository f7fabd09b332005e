#include "host/ui/BinModel.h"

#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/controls/LineText.h"

namespace host {

using namespace Qt::StringLiterals;

int DaysLeft(qint64 keptUntil, qint64 now) {
    constexpr qint64 kDay = 24LL * 60 * 60;
    return keptUntil <= now ? 0 : int((keptUntil - now + kDay - 1) / kDay);
}

void BinModel::SetRows(std::vector<BinRow> newRows, qint64 now) {
    beginResetModel();
    m_rows = std::move(newRows);
    m_countedFrom = now;
    endResetModel();
}

int BinModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

int BinModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QString BinModel::Text(const BinRow& row, int column) const {
    switch (column) {
    case kKind:
        return row.kind;
    case kName:
        return row.name;
    case kProject:
        return row.project;
    case kDeletedBy:
        return row.deletedBy;
    case kDeletedAt:
        return KXTools::MinuteText(row.deletedAt);
    default:
        return u"%1 天"_s.arg(DaysLeft(row.keptUntil, m_countedFrom));
    }
}

QVariant BinModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const QString text = toolkit::LineStart(Text(m_rows[std::size_t(index.row())], index.column()));
    if (role == Qt::DisplayRole) {
        return text;
    }
    if (role == Qt::ToolTipRole) {
        return toolkit::PlainTip(text);
    }
    return {};
}

QVariant BinModel::headerData(int section, Qt::Orientation orientation, int role) const {
    static const QStringList captions = {u"种类"_s,   u"名称"_s,     u"所属工程"_s,
                                         u"删除人"_s, u"删除时间"_s, u"保留"_s};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return captions.value(section);
}

} // namespace host
