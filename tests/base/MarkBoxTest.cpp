#include "base/MarkBox.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ZelvorNRQ_KXVeskPicture::FillMarkBox;

TEST(MarkBox, HoldsItsEntriesInOrderAndSelectsTheFirst) {
    CColorTxtComboBox box;
    EXPECT_THAT(FillMarkBox(box, {{0, {0xFFFFFF, u"全部"_s}}, {7, {0x0000FF, u"质量"_s}}}),
                ElementsAre(0, 7));
    ASSERT_EQ(box.count(), 2);
    EXPECT_EQ(box.itemText(1), u"质量"_s);
    EXPECT_EQ(box.currentIndex(), 0);
}

TEST(MarkBox, FilledAgainItHoldsTheNewEntriesAlone) {
    CColorTxtComboBox box;
    static_cast<void>(FillMarkBox(box, {{1, {0, u"安全"_s}}, {2, {0, u"质量"_s}}}));
    EXPECT_THAT(FillMarkBox(box, {}), IsEmpty());
    EXPECT_EQ(box.count(), 0);
    EXPECT_EQ(box.currentIndex(), -1);
}

} // namespace
