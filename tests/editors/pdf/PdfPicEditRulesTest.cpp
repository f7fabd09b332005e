#include "base/Status.h"
#include "editors/PdfPicEdit.h"

#include <gtest/gtest.h>

namespace ZelvorNRQ_KXVeskPicture {
namespace {

using namespace Qt::StringLiterals;

PdfPicEdit Edit() {
    KX_DATA::PdfPicRecord record;
    record.picId = 7;
    record.ppid = 3;
    record.drawingId = 11;
    record.fileName = u"墙.面.JPG"_s;
    record.status = KX_DATA::kStatusHidden;
    PdfPicEdit edit = EditOf(record);
    edit.drawingId = 500;
    edit.statusIndex = record.status;
    return edit;
}

TEST(PdfPicEdit, TheNameIsSplitAtItsEnding) {
    EXPECT_EQ(Edit().picName, u"墙.面"_s);
    EXPECT_EQ(Edit().extension, u".JPG"_s);
    EXPECT_EQ(Edit().projectId, 3) << "the record's own";
    KX_DATA::PdfPicRecord odd;
    odd.fileName = u"说明.txt"_s;
    EXPECT_EQ(EditOf(odd).picName, u"说明.txt"_s);
    EXPECT_EQ(EditOf(odd).extension, u".jpg"_s);
}

TEST(PdfPicEdit, WhatGoesToTheServiceIsNeitherMarkNorLabels) {
    PdfPicEdit edit = Edit();
    edit.description = u"新"_s;
    const KX_DATA::PdfPicUpdate update = TakeUpdate(edit, 12);
    EXPECT_EQ(update.pointId, 12);
    EXPECT_EQ(update.description, u"新"_s);
    EXPECT_EQ(update.picId, 7);
    EXPECT_EQ(update.drawingId, 500);
    EXPECT_EQ(update.fileName, u"墙.面.JPG"_s);
    EXPECT_EQ(update.status, KX_DATA::kStatusHidden);
    EXPECT_EQ(edit.pic.drawingId, 12) << "a second attempt sends the same";
}

TEST(PdfPicEdit, ANameOfBlanksPassesAndAnEmptyOneDoesNot) {
    PdfPicEdit edit = Edit();
    edit.picName = u"  "_s;
    EXPECT_EQ(TakeUpdate(edit, 12).fileName, u"  .JPG"_s);
    edit.picName.clear();
    try {
        static_cast<void>(TakeUpdate(edit, 13));
        ADD_FAILURE() << "nothing was raised";
    } catch (e_VeskPicMngStatus status) {
        EXPECT_EQ(status, e_VeskPicMngStatus::NameMissing);
    }
    EXPECT_EQ(edit.pic.drawingId, 12);
}

} // namespace
} // namespace ZelvorNRQ_KXVeskPicture
