// The plan at the sizes that the main window has by itself: all of it, with whole names.
#include "host/ui/ActionLogDock.h"
#include "host/ui/MainWindow.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/plan/FlagPaint.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "tests/roads/ClientFixture.h"
#include "tests/support/WaitFor.h"

#include <QScrollArea>

namespace roads {
namespace {

using namespace Qt::StringLiterals;

class ThePlanAtDefaultSize : public ClientOnAFolder {
protected:
    void SetUp() override { StartOnTheSampleSite(); }

    void ExpectWholeNames() {
        for (const host::FlagBox& box : Plan().FlagsLayout().boxes) {
            if (box.flag < 0) {
                continue;
            }
            const host::PlacedFlag& flag = Plan().Flags()[box.flag];
            EXPECT_LE(host::FlagWidth(flag), box.rect.width())
                << host::FlagName(flag.flag).toStdString();
        }
    }
    void ExpectAllOfEveryFloor() {
        const auto* scroll = client->Window()->Plan().findChild<QScrollArea*>();
        std::size_t flags = 0;
        for (int floor = 0; floor < int(Plan().Model().floors.size()); ++floor) {
            Plan().SetFloor(floor);
            support::RunPendingEvents();
            SCOPED_TRACE(floor);
            EXPECT_EQ(scroll->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
            EXPECT_EQ(scroll->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
            EXPECT_EQ(Plan().size(), scroll->viewport()->size());
            ExpectWholeNames();
            flags += Plan().Flags().size();
        }
        EXPECT_GT(flags, 20U);
    }
};

TEST_F(ThePlanAtDefaultSize, ShowsAllOfEveryFloorBesidePanelAndLogWithWholeNames) {
    ASSERT_TRUE(client->Window()->Marks().isVisible());
    ASSERT_TRUE(client->Window()->ActionLog().isVisible());
    // As it comes, on a screen of 1366 by 768 as it is there and within a desk's bars.
    for (const QSize size : {QSize(1280, 820), QSize(1366, 768), QSize(1280, 700)}) {
        SCOPED_TRACE(size.height());
        client->Window()->resize(size);
        support::RunPendingEvents();
        ExpectAllOfEveryFloor();
    }
}

} // namespace
} // namespace roads
