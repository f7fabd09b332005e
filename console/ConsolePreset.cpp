#include "console/ConsolePreset.h"

#include "toolkit/KXTools.h"

namespace {

template <class Filter> void FillChoice(const FilterChoice& choice, Filter& filter) {
    filter.keyword = choice.keyword;
    filter.markId = choice.markId;
    filter.labelId = choice.labelId;
    filter.noDateLimit = choice.noDateLimit;
    filter.startTime = choice.start.startOfDay().toSecsSinceEpoch();
    filter.endTime = choice.end.startOfDay().toSecsSinceEpoch();
    KXTools::Set0Hour0Minute0Second(filter.startTime);
    KXTools::Set23Hour59Minute59Second(filter.endTime);
    filter.status = choice.status;
    filter.projectIds = choice.projectIds;
}

} // namespace

void ConsolePreset::Use() {
    key.clear();
    drawingId = -1;
    checkpointId = -1;
}

void FillFilter(const FilterChoice& choice, const ConsolePreset& preset,
                KX_DATA::PicQueryFilter& filter) {
    FillChoice(choice, filter);
    filter.presetKey = preset.key;
    filter.presetExtra = preset.extra;
    filter.picId = preset.picId;
}

void FillFilter(const FilterChoice& choice, const ConsolePreset& preset,
                KX_DATA::PdfQueryFilter& filter) {
    FillChoice(choice, filter);
    filter.drawingId = preset.drawingId;
    filter.checkpointId = preset.checkpointId;
}
