#include "editors/BimPicEdit.h"

#include "base/Status.h"

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;
using KX_DATA::AxisYEntry;
using ZelvorNRQ_KXVeskPicture::BimPicEdit;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::EditOf;
using ZelvorNRQ_KXVeskPicture::EntryFor;
using ZelvorNRQ_KXVeskPicture::kNoEntry;
using ZelvorNRQ_KXVeskPicture::TakeUpdate;

namespace {

KX_DATA::BimPicRow FullRow() {
    KX_DATA::BimPicRow row;
    row.picId = 7;
    row.ppid = 3;
    row.fileName = u"IMG_1.JPG"_s;
    row.description = u"描述"_s;
    row.positionKey = u"K1"_s;
    row.floor = u"-1"_s;
    row.axisX = u"A"_s;
    row.axisY = u"1"_s;
    row.posValid = 5;
    row.markId = 2;
    row.status = KX_DATA::kStatusHidden;
    row.labelNames = {u"裂缝"_s, u"渗漏"_s};
    return row;
}

/// As the window is read when nothing was touched.
BimPicEdit ReadBack(BimPicEdit edit) {
    edit.axisYIndex = 0;
    edit.markIds = {1, 2};
    edit.markIndex = 1;
    return edit;
}

std::optional<e_VeskPicMngStatus> FaultOf(BimPicEdit& edit) {
    try {
        static_cast<void>(TakeUpdate(edit, {u"l1"_s}));
    } catch (e_VeskPicMngStatus status) {
        return status;
    }
    return std::nullopt;
}

TEST(BimPicEdit, TakesEverythingFromARow) {
    const BimPicEdit edit = EditOf(FullRow());
    EXPECT_EQ(edit.picId, 7);
    EXPECT_EQ(edit.projectId, 3);
    EXPECT_EQ(edit.picName, u"IMG_1"_s);
    EXPECT_EQ(edit.extension, u".JPG"_s);
    EXPECT_EQ(edit.description, u"描述"_s);
    EXPECT_EQ(edit.positionKeys, (std::vector<QString>{u"K1"_s}));
    EXPECT_EQ(edit.floorName, u"-1"_s);
    EXPECT_EQ(edit.axisXName, u"A"_s);
    EXPECT_EQ(edit.axisYName, u"1"_s);
    EXPECT_TRUE(edit.showFlag);
    EXPECT_EQ(edit.markId, 2);
    EXPECT_EQ(edit.statusIndex, 1);
    EXPECT_EQ(edit.labelNames, (std::vector<QString>{u"裂缝"_s, u"渗漏"_s}));
    EXPECT_EQ(edit.sourceRecord.fileName, u"IMG_1.JPG"_s);
    EXPECT_EQ(edit.markIndex, kNoEntry);
    EXPECT_EQ(edit.axisYIndex, kNoEntry);
    EXPECT_FALSE(edit.floorsLoaded || edit.axesXLoaded || edit.axesYLoaded || edit.keysFetched);
}

TEST(BimPicEdit, APlaceThatTheModelLostIsNoted) {
    KX_DATA::BimPicRow row = FullRow();
    row.posValid = 0;
    EXPECT_FALSE(EditOf(row).showFlag);
}

TEST(BimPicEdit, TakesADetailWithItsProjectKeyAndTheNamesOfItsLabels) {
    KX_DATA::BimPicDetail detail;
    detail.picId = 9;
    detail.ppid = 4;
    detail.fileName = u"a.b.png"_s;
    detail.positionKey = u"K9"_s;
    detail.floor = u"2"_s;
    detail.axisX = u"C"_s;
    detail.axisY = u"3"_s;
    detail.markId = 6;
    detail.description = u"文"_s;
    detail.labels = {{u"l1"_s, u"裂缝"_s}, {u"l2"_s, u"渗漏"_s}};
    const BimPicEdit edit = EditOf(detail);
    EXPECT_EQ(edit.picId, 9);
    EXPECT_EQ(edit.projectId, 4);
    EXPECT_EQ(edit.picName, u"a.b"_s);
    EXPECT_EQ(edit.extension, u".png"_s);
    EXPECT_EQ(edit.positionKeys, (std::vector<QString>{u"K9"_s}));
    EXPECT_EQ(edit.floorName + edit.axisXName + edit.axisYName, u"2C3"_s);
    EXPECT_EQ(edit.markId, 6);
    EXPECT_EQ(edit.description, u"文"_s);
    EXPECT_EQ(edit.labelNames, (std::vector<QString>{u"裂缝"_s, u"渗漏"_s}));
    EXPECT_TRUE(edit.showFlag);
    EXPECT_EQ(edit.statusIndex, 0);
}

TEST(BimPicEdit, AnEndingThatIsNoPicturesStaysInTheNameAndGetsJpg) {
    KX_DATA::BimPicRow row = FullRow();
    row.fileName = u"a.tif"_s;
    BimPicEdit edit = ReadBack(EditOf(row));
    EXPECT_EQ(edit.picName, u"a.tif"_s);
    EXPECT_EQ(edit.extension, u".jpg"_s);
    EXPECT_EQ(TakeUpdate(edit, {}).fileName, u"a.tif.jpg"_s);
}

TEST(BimPicEdit, TheTitleHasTheWholeName) {
    EXPECT_EQ(EditTitle(EditOf(FullRow())), u"编辑照片-IMG_1.JPG"_s);
}

TEST(Entries, ThePresentNameOrElseTheFirst) {
    const std::vector<QString> names{u"a"_s, u"b"_s, u"b"_s};
    EXPECT_EQ(EntryFor(names, u"b"_s), 1);
    EXPECT_EQ(EntryFor(names, u"B"_s), 0);
    EXPECT_EQ(EntryFor(names, QString()), 0);
    EXPECT_EQ(EntryFor(std::vector<QString>(), u"a"_s), kNoEntry);
}

TEST(Entries, OfYAxesOfOneNameTheLast) {
    const std::vector<AxisYEntry> axes{{u"1"_s, u"K"_s}, {u"2"_s, u"L"_s}, {u"2"_s, u"M"_s}};
    EXPECT_EQ(EntryFor(axes, u"2"_s), 2);
    EXPECT_EQ(EntryFor(axes, u"1"_s), 0);
    EXPECT_EQ(EntryFor(axes, u"9"_s), 0);
    EXPECT_EQ(EntryFor(std::vector<AxisYEntry>(), u"1"_s), kNoEntry);
}

TEST(BimPicUpdate, HoldsWhatTheFieldsSay) {
    BimPicEdit edit = ReadBack(EditOf(FullRow()));
    edit.picName = u"  新名 "_s;
    edit.markIndex = 0;
    const KX_DATA::BimPicUpdate update = TakeUpdate(edit, {u"l3"_s, u"l1"_s});
    EXPECT_EQ(update.description, u"描述"_s);
    EXPECT_EQ(update.picId, 7);
    EXPECT_EQ(update.positionKey, u"K1"_s);
    EXPECT_EQ(update.markId, 1);
    EXPECT_EQ(update.fileName, u"新名.JPG"_s);
    EXPECT_EQ(update.status, 1);
    EXPECT_EQ(update.labelIds, (std::vector<QString>{u"l3"_s, u"l1"_s}));
    EXPECT_EQ(update.text1 + update.text2 + update.text3, QString());
}

TEST(BimPicUpdate, MarkAndLabelsAreKeptForASecondAttempt) {
    BimPicEdit edit = ReadBack(EditOf(FullRow()));
    edit.markIndex = 0;
    static_cast<void>(TakeUpdate(edit, {u"l3"_s}));
    EXPECT_EQ(edit.markId, 1);
    EXPECT_EQ(edit.labelNames, (std::vector<QString>{u"l3"_s}));
}

TEST(BimPicUpdate, FaultsAreToldInTheirOrder) {
    BimPicEdit edit = ReadBack(EditOf(FullRow()));
    edit.picName = u" \t　"_s;
    edit.statusIndex = kNoEntry;
    edit.axisYIndex = kNoEntry;
    EXPECT_EQ(FaultOf(edit), e_VeskPicMngStatus::NameMissing);
    edit.picName = u"a"_s;
    EXPECT_EQ(FaultOf(edit), e_VeskPicMngStatus::StatusMissing);
    edit.statusIndex = 0;
    EXPECT_EQ(FaultOf(edit), e_VeskPicMngStatus::AxisYWrong);
    edit.axisYIndex = 0;
    EXPECT_EQ(FaultOf(edit), std::nullopt);
}

TEST(BimPicUpdate, ARefusedOneLeavesMarkAndLabels) {
    BimPicEdit edit = ReadBack(EditOf(FullRow()));
    edit.markIndex = 0;
    edit.axisYIndex = 1;
    EXPECT_EQ(FaultOf(edit), e_VeskPicMngStatus::AxisYWrong);
    EXPECT_EQ(edit.markId, 2);
    EXPECT_EQ(edit.labelNames, FullRow().labelNames);
}

TEST(BimPicUpdate, NoSelectedMarkKeepsThePhotosOwn) {
    BimPicEdit edit = ReadBack(EditOf(FullRow()));
    for (const qint32 index : {-1, 2, 99}) {
        edit.markIndex = index;
        EXPECT_EQ(TakeUpdate(edit, {}).markId, 2) << index;
    }
}

TEST(BimPicUpdate, AnEmptyKeyFromTheServiceIsRefused) {
    BimPicEdit edit = ReadBack(EditOf(FullRow()));
    edit.positionKeys = {QString(), u"K2"_s};
    edit.keysFetched = true;
    EXPECT_EQ(FaultOf(edit), e_VeskPicMngStatus::AxisYWrong);
    edit.axisYIndex = 1;
    EXPECT_EQ(TakeUpdate(edit, {}).positionKey, u"K2"_s);
}

TEST(BimPicUpdate, APhotoWithoutAPlaceKeepsItsEmptyKey) {
    KX_DATA::BimPicRow row = FullRow();
    row.positionKey.clear();
    row.floor.clear();
    BimPicEdit edit = ReadBack(EditOf(row));
    EXPECT_EQ(TakeUpdate(edit, {}).positionKey, QString());
    edit.positionKeys.clear();
    edit.keysFetched = true;
    edit.axisYIndex = kNoEntry;
    EXPECT_EQ(FaultOf(edit), e_VeskPicMngStatus::AxisYWrong);
}

} // namespace
