#include "console/RowTexts.h"

#include "base/ComponentText.h"
#include "console/ConsoleMode.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

QString Joined(const QString& first, const QString& second) {
    return first + u" / "_s + second;
}

QString IssueTimeText(qint64 time) {
    return QDateTime::fromSecsSinceEpoch(time).toString(u"yyyy-MM-dd HH:mm"_s);
}

} // namespace

QString PairText(const QString& first, const QString& second) {
    return second.isEmpty() || first == second ? first : Joined(first, second);
}

QString LabelText(const std::vector<QString>& names) {
    QString text;
    for (const QString& name : names) {
        text += name + u' ';
    }
    return text;
}

QString LabelText(const std::vector<KX_DATA::LabelEntry>& labels) {
    QString text;
    for (const KX_DATA::LabelEntry& label : labels) {
        text += label.labelName + u' ';
    }
    return text;
}

QString BimPositionText(const KX_DATA::BimPicRow& row) {
    return row.floor.isEmpty() ? QString() : row.floor + u"层"_s + row.posText;
}

QString CheckpointText(qint32 checkpointNo) {
    return u"检查点"_s + QString::number(checkpointNo);
}

QString StatusText(qint32 status) {
    return status != KX_DATA::kStatusShown ? u"隐藏"_s : u"显示"_s;
}

int RunningNumber(int page, int place) {
    return page * kConsolePageSize - kConsolePageSize + place + 1;
}

IssuePairTexts IssuePairs(const KX_DATA::IssueRow& row) {
    if (row.createTime == row.updateTime) {
        return {row.creatorName, IssueTimeText(row.createTime)};
    }
    // Both names stand even if the second is empty: the times alone decide.
    return {Joined(row.creatorName, row.updaterName),
            Joined(IssueTimeText(row.createTime), IssueTimeText(row.updateTime))};
}

QString IssueComponentText(const KX_DATA::IssueRow& row) {
    return ZelvorNRQ_KXVeskPicture::ComponentText(row.floor, row.posInfo, row.compName);
}

QString LocateText(const QString& floor, qint32 markId, qint32 picId) {
    return floor + u'-' + QString::number(markId) + u'-' + QString::number(picId);
}
