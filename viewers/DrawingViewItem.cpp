#include "viewers/DrawingViewItem.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace gallery {

void Load(DrawingViewItem& item, const KX_DATA::CheckpointPicDetail& detail) {
    item.loaded = 1;
    item.name = detail.name;
    item.uploader = detail.uploader;
    item.uploadTime = detail.uploadTime;
    const bool wasChanged = detail.updateTime != detail.uploadTime;
    item.updater = wasChanged ? detail.updater : QString();
    item.updateTime = wasChanged ? detail.updateTime : QString();
    item.description = detail.description;
}

QString DrawingViewTitle(qint32 checkpointNo, const QString& name, int index, int count) {
    return u"检查点%1 - %2   (%3/%4)"_s.arg(QString::number(checkpointNo), name,
                                            QString::number(index + 1), QString::number(count));
}

QString LabelLine(const KX_DATA::DrawingRecord& record) {
    QString line;
    for (const auto& label : record.labels) {
        line += label.second + u' ';
    }
    return line;
}

QString LabelTip(const KX_DATA::DrawingRecord& record) {
    // Blanks within a name become line feeds too; required as is.
    return LabelLine(record).replace(u' ', u'\n');
}

qint32 RemovePicture(std::vector<DrawingViewItem>& items, qint32 picId) {
    const auto found = std::find_if(items.begin(), items.end(), [&](const DrawingViewItem& item) {
        return item.picId == picId;
    });
    if (found == items.end()) {
        return items.empty() ? -1 : items.front().picId;
    }
    const auto next = items.erase(found);
    if (items.empty()) {
        return -1;
    }
    return next == items.end() ? items.front().picId : next->picId;
}

KX_DATA::CheckpointEdit EditOf(qint32 drawingId, const KX_DATA::DrawingRecord& record) {
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = drawingId;
    edit.position1 = record.position.first;
    edit.position2 = record.position.second;
    edit.description = record.description;
    edit.remark = record.remark;
    for (const auto& label : record.labels) {
        edit.labelNames.push_back(label.second);
    }
    return edit;
}

} // namespace gallery
