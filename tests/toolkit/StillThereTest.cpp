#include "toolkit/windows/StillThere.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace {

using toolkit::StillThere;

toolkit::WindowId Registered(QWidget& widget) {
    return toolkit::RegisterWindow(&widget, [](const toolkit::WindowEvent&) { return 0; });
}

TEST(StillThere, AWindowIsThereUntilItIsUnregistered) {
    QWidget widget;
    const toolkit::WindowId id = Registered(widget);
    const StillThere still(id);
    EXPECT_TRUE(still);
    toolkit::UnregisterWindow(id);
    EXPECT_FALSE(still);
}

TEST(StillThere, AWindowThatWasMadeAgainIsAnotherOne) {
    QWidget widget;
    const toolkit::WindowId id = Registered(widget);
    const StillThere still(id);
    toolkit::UnregisterWindow(id);
    const toolkit::WindowId again = Registered(widget);
    EXPECT_FALSE(still);
    EXPECT_TRUE(StillThere(again));
    toolkit::UnregisterWindow(again);
}

TEST(StillThere, NoWindowAndNoObjectAreNeverThere) {
    EXPECT_FALSE(StillThere(toolkit::kNoWindow));
    EXPECT_FALSE(StillThere(static_cast<QObject*>(nullptr)));
}

TEST(StillThere, AnObjectIsThereUntilItEnds) {
    auto object = std::make_unique<QObject>();
    const StillThere still(object.get());
    EXPECT_TRUE(still);
    object.reset();
    EXPECT_FALSE(still);
}

TEST(StillThere, ATokenIsThereAsLongAsItsOwner) {
    auto token = std::make_shared<int>(0);
    const StillThere still(token);
    EXPECT_TRUE(still);
    token.reset();
    EXPECT_FALSE(still);
}

} // namespace
