#include "site/LastChange.h"
#include "site/RectifyStates.h"
#include "site/TimeText.h"

#include <gtest/gtest.h>

namespace site {

using namespace Qt::StringLiterals;

TEST(RectifyStates, NamesAndNumbersTurnIntoEachOtherAndAllIsNoState) {
    const std::vector<QString> names = StateNames();
    ASSERT_EQ(names.size(), static_cast<size_t>(kStateCount) + 1);
    EXPECT_EQ(names[0], u"全部"_s);
    for (qint32 state = 0; state < kStateCount; ++state) {
        EXPECT_EQ(StateFromName(names[static_cast<size_t>(state) + 1]), state);
        EXPECT_EQ(StateName(state), names[static_cast<size_t>(state) + 1]);
    }
    EXPECT_EQ(StateFromName(u"全部"_s), kStateUnknown);
    EXPECT_EQ(StateName(kStateCount), QString());
    EXPECT_EQ(StateName(-1), QString());
}

TEST(TimeText, IsLocalTimeToTheMinuteAndEmptyForNever) {
    EXPECT_EQ(TimeText(1700000000), u"2023-11-15 06:13"_s); // the tests run in Shanghai's zone
    EXPECT_EQ(TimeText(0), QString());
}

TEST(LastChange, IsTheUploadWhereNobodyChangedAnything) {
    const LastChange never(u"zhang"_s, 10, {}, 0);
    EXPECT_EQ(never.person, u"zhang"_s);
    EXPECT_EQ(never.time, 10);
    const LastChange changed(u"zhang"_s, 10, u"li"_s, 20);
    EXPECT_EQ(changed.person, u"li"_s);
    EXPECT_EQ(changed.time, 20);
}

} // namespace site
