// What the client's other windows learn of a change that is made in this client, and where a person
// is told.
#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QApplication>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

class OwnChanges : public PhotoRoad {
protected:
    void SetUp() override {
        PhotoRoad::SetUp();
        OpenConsole();
    }
    void Import(const QStringList& paths) {
        ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(client->Window(), paths); }));
        ASSERT_TRUE(WaitFor([] {
            return hands::Click(
                tour::FindIn(tour::FindWindow(u"importDialog"_s), u"importStart"_s));
        }));
    }
};

TEST_F(OwnChanges, WhatIsImportedIsInTheOpenConsoleAndInThePanelAtOnce) {
    const QString first = folder.Write(u"photos/甲.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    const QString second = folder.Write(u"photos/乙.jpg"_s, JpegBytes(qRgb(1, 250, 1)));
    Import({first, second});
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 9; })) << tour::ConsoleTotal();
    EXPECT_GE(RowOfPhoto(u"甲.jpg"_s), 0);
    EXPECT_EQ(tour::ReadText(
                  tour::FindIn(tour::FindIn(client->Window(), u"photoMarks"_s), u"countLabel"_s)),
              u"已选 9 / 9 张"_s);
}

TEST_F(OwnChanges, WhatIsImportedIsInAConsoleOfAnotherKindOnlyOnceItsKindIsShown) {
    ASSERT_TRUE(Press(Qt::Key_2));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 1; }));
    Import({folder.Write(u"photos/甲.jpg"_s, JpegBytes(qRgb(250, 1, 1)))});
    EXPECT_TRUE(WaitFor([this] { return !Messages().isEmpty(); }));
    EXPECT_EQ(tour::ConsoleTotal(), 1);
    ASSERT_TRUE(Press(Qt::Key_1));
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 8; }));
}

} // namespace
} // namespace roads
