#include "host/app/BulkTexts.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using site::ListKind;

TEST(BulkTexts, SayWhatBecameOfHowMany) {
    EXPECT_EQ(BulkDoneText(ListKind::BimPhotos, {12, 2, 3}),
              u"已归档 12 张照片，2 张本来如此，3 张跳过。"_s);
    EXPECT_EQ(BulkDoneText(ListKind::PdfPhotos, {1, 0, 0}), u"已归档 1 张照片。"_s);
    EXPECT_EQ(BulkDoneText(ListKind::Issues, {5, 0, 1}), u"已归档 5 个TN问题，1 个跳过。"_s);
    EXPECT_EQ(BulkDoneText(ListKind::Issues, {0, 2, 0}), u"没有修改任何TN问题，2 个本来如此。"_s);
}

TEST(BulkTexts, SayWhatWasTakenBack) {
    EXPECT_EQ(BulkUndoneText(ListKind::BimPhotos, 12, 3),
              u"已撤销 12 张照片的归档，3 张没有撤销。"_s);
    EXPECT_EQ(BulkUndoneText(ListKind::BimPhotos, 2, 0), u"已撤销 2 张照片的归档。"_s);
    EXPECT_EQ(BulkUndoneText(ListKind::Issues, 0, 2), u"2 个TN问题没有撤销。"_s);
    EXPECT_EQ(BulkUndoneText(ListKind::BimPhotos, 0, 0), u"照片已经和归档前一样。"_s);
    EXPECT_EQ(BulkUndoTip(ListKind::Issues, 2), u"让 2 个TN问题恢复到归档以前的样子"_s);
    EXPECT_EQ(BulkActionText(ListKind::BimPhotos, 12), u"批量归档 12 张照片"_s);
}

} // namespace
} // namespace host
