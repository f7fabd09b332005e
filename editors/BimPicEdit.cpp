#include "editors/BimPicEdit.h"

#include "base/PicNames.h"
#include "base/Status.h"

#include <algorithm>

namespace ZelvorNRQ_KXVeskPicture {

using namespace Qt::StringLiterals;

namespace {

/// What both records have.
template <class Record> BimPicEdit CommonEditOf(const Record& record) {
    BimPicEdit edit;
    edit.projectId = record.ppid;
    // An ending that is no picture's stays in the base and gets ".jpg" behind it; required as is.
    SplitPicName(record.fileName, edit.picName, edit.extension, true);
    edit.description = record.description;
    edit.positionKeys = {record.positionKey};
    edit.floorName = record.floor;
    edit.axisXName = record.axisX;
    edit.axisYName = record.axisY;
    edit.markId = record.markId;
    edit.statusIndex = record.status;
    edit.picId = record.picId;
    return edit;
}

template <class Value> bool IsEntry(const std::vector<Value>& entries, qint32 index) {
    return index >= 0 && size_t(index) < entries.size();
}

QString SelectedKey(const BimPicEdit& edit) {
    if (!IsEntry(edit.positionKeys, edit.axisYIndex)) {
        throw e_VeskPicMngStatus::AxisYWrong;
    }
    const QString& key = edit.positionKeys[size_t(edit.axisYIndex)];
    if (key.isEmpty() && edit.keysFetched) {
        throw e_VeskPicMngStatus::AxisYWrong;
    }
    return key;
}

} // namespace

BimPicEdit EditOf(const KX_DATA::BimPicRow& row) {
    BimPicEdit edit = CommonEditOf(row);
    edit.showFlag = row.posValid != 0;
    edit.labelNames = row.labelNames;
    edit.sourceRecord = row;
    return edit;
}

BimPicEdit EditOf(const KX_DATA::BimPicDetail& detail) {
    BimPicEdit edit = CommonEditOf(detail);
    for (const KX_DATA::LabelEntry& label : detail.labels) {
        edit.labelNames.push_back(label.labelName);
    }
    return edit;
}

QString EditTitle(const BimPicEdit& edit) {
    return u"编辑照片-"_s + edit.picName + edit.extension;
}

qint32 EntryFor(const std::vector<QString>& names, const QString& wanted) {
    const auto found = std::find(names.begin(), names.end(), wanted);
    if (found != names.end()) {
        return qint32(found - names.begin());
    }
    return names.empty() ? kNoEntry : 0;
}

qint32 EntryFor(const std::vector<KX_DATA::AxisYEntry>& axes, const QString& wanted) {
    const auto found =
        std::find_if(axes.rbegin(), axes.rend(),
                     [&](const KX_DATA::AxisYEntry& axis) { return axis.first == wanted; });
    if (found != axes.rend()) {
        return qint32(axes.rend() - found) - 1;
    }
    return axes.empty() ? kNoEntry : 0;
}

KX_DATA::BimPicUpdate TakeUpdate(BimPicEdit& edit, const std::vector<QString>& checkedIds) {
    edit.picName = edit.picName.trimmed();
    if (edit.picName.isEmpty()) {
        throw e_VeskPicMngStatus::NameMissing;
    }
    if (edit.statusIndex == kNoEntry) {
        throw e_VeskPicMngStatus::StatusMissing;
    }
    KX_DATA::BimPicUpdate update;
    update.description = edit.description;
    update.picId = edit.picId;
    update.positionKey = SelectedKey(edit);
    if (IsEntry(edit.markIds, edit.markIndex)) {
        edit.markId = edit.markIds[size_t(edit.markIndex)];
    }
    update.markId = edit.markId;
    update.fileName = edit.picName + edit.extension;
    update.status = edit.statusIndex;
    edit.labelNames = checkedIds;
    update.labelIds = checkedIds;
    return update;
}

} // namespace ZelvorNRQ_KXVeskPicture
