#include "host/services/ListFilters.h"

#include "host/services/ListPresets.h"
#include "site/RectifyStates.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

// What the filters of all three lists have in common.
template <typename Filter> site::ListFilter CommonFilterOf(const Filter& filter) {
    site::ListFilter result;
    result.ppids = filter.projectIds;
    result.keyword = filter.keyword;
    if (filter.markId != 0) {
        result.markId = filter.markId;
    }
    if (!filter.noDateLimit) {
        result.modified = {filter.startTime, filter.endTime};
    }
    if (!filter.status.isEmpty() && filter.status != site::StateNames().front()) {
        result.state = site::StateFromName(filter.status);
        result.nothing = result.state == site::kStateUnknown;
    }
    return result;
}

void AddLabel(const QString& labelId, site::ListFilter& filter) {
    if (!labelId.isEmpty()) {
        bool isNumber = false;
        filter.labelId = labelId.toInt(&isNumber);
        filter.nothing = filter.nothing || !isNumber;
    }
}

} // namespace

site::ListFilter BimFilterOf(const KX_DATA::PicQueryFilter& filter) {
    site::ListFilter result = CommonFilterOf(filter);
    AddLabel(filter.labelId, result);
    if (const auto preset = PresetOfKey(filter.presetKey)) {
        Limit(result, *preset);
    } else if (!filter.presetKey.isEmpty()) {
        result.positionKey = filter.presetKey;
    }
    return result;
}

site::ListFilter IssueFilterOf(const KX_DATA::PicQueryFilter& filter) {
    site::ListFilter result = CommonFilterOf(filter);
    if (const auto preset = PresetOfKey(filter.presetKey)) {
        Limit(result, *preset);
    } else if (!filter.presetKey.isEmpty()) {
        result.floor = filter.presetKey;
        if (!filter.presetExtra.isEmpty()) {
            result.componentHandle = filter.presetExtra;
        }
    }
    return result;
}

site::ListFilter PdfFilterOf(const KX_DATA::PdfQueryFilter& filter) {
    constexpr qint32 kNoLimit = -1;
    site::ListFilter result = CommonFilterOf(filter);
    AddLabel(filter.labelId, result);
    if (const auto preset = PresetOfNumber(filter.checkpointId)) {
        // The console adds the present drawing to whatever it is asked for.
        Limit(result, *preset);
        return result;
    }
    if (filter.drawingId != kNoLimit) {
        result.drawingId = filter.drawingId;
    }
    if (filter.checkpointId != kNoLimit) {
        result.checkpointId = filter.checkpointId;
    }
    return result;
}

site::PageAsked PageAskedOf(const KX_DATA::PageRequest& request) {
    return {{request.sortField, request.sortOrder == u"desc"_s}, request.page, request.pageSize};
}

KX_DATA::PageResult ResultOf(qint64 total, const KX_DATA::PageRequest& request) {
    KX_DATA::PageResult result;
    const qint64 size = request.pageSize;
    result.totalCount = static_cast<qint32>(total);
    result.pageCount = size > 0 ? static_cast<qint32>((total + size - 1) / size) : 0;
    return result;
}

} // namespace host
