// Preset and choice together make the filter.
#include "console/ConsolePreset.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

ConsolePreset WholePreset() {
    return {u"K7"_s, u"H77"_s, 5, 102, 31};
}

FilterChoice WholeChoice() {
    return {u"漏水"_s,         3,           u"l1"_s, false, QDate(2026, 3, 1),
            QDate(2026, 3, 5), u"整改中"_s, {1, 2}};
}

template <class Filter> void ExpectWholeChoice(const Filter& filter) {
    EXPECT_EQ(filter.keyword, u"漏水"_s);
    EXPECT_EQ(filter.markId, 3);
    EXPECT_EQ(filter.labelId, u"l1"_s);
    EXPECT_FALSE(filter.noDateLimit);
    EXPECT_EQ(filter.startTime, QDate(2026, 3, 1).startOfDay().toSecsSinceEpoch());
    EXPECT_EQ(filter.endTime, QDate(2026, 3, 6).startOfDay().toSecsSinceEpoch() - 1);
    EXPECT_EQ(filter.status, u"整改中"_s);
    EXPECT_THAT(filter.projectIds, ElementsAre(1, 2));
}

TEST(ConsolePreset, ItsTextsAndPhotoGoWithBimPhotosAndIssues) {
    KX_DATA::PicQueryFilter filter;
    FillFilter(WholeChoice(), WholePreset(), filter);
    ExpectWholeChoice(filter);
    EXPECT_EQ(filter.presetKey, u"K7"_s);
    EXPECT_EQ(filter.presetExtra, u"H77"_s);
    EXPECT_EQ(filter.picId, 5);
}

TEST(ConsolePreset, ItsDrawingAndCheckpointGoWithDrawingPhotos) {
    KX_DATA::PdfQueryFilter filter;
    FillFilter(WholeChoice(), WholePreset(), filter);
    ExpectWholeChoice(filter);
    EXPECT_EQ(filter.drawingId, 102);
    EXPECT_EQ(filter.checkpointId, 31);
}

TEST(ConsolePreset, OnceUsedItKeepsPhotoAndSecondTextAlone) {
    ConsolePreset preset = WholePreset();
    preset.Use();
    EXPECT_EQ(preset.key, QString());
    EXPECT_EQ(preset.drawingId, -1);
    EXPECT_EQ(preset.checkpointId, -1);
    EXPECT_EQ(preset.picId, 5);
    EXPECT_EQ(preset.extra, u"H77"_s);
}

} // namespace
