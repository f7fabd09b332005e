// What a window does with the commands of its own menu.
#include "toolkit/windows/SystemCommand.h"

#include "toolkit/windows/WindowObject.h"

#include <gtest/gtest.h>

namespace {

class Commanded final : public toolkit::WindowObject {
public:
    int closes = 0;
    int events = 0;
    bool staysOpen = false;

    Commanded() {
        Create(toolkit::kNoWindow);
        ShowRestored();
    }
    qintptr Command(quintptr command) {
        return toolkit::SendWindowEvent(Id(), toolkit::kSystemCommand, command);
    }

protected:
    QWidget* MakeWindow(QWidget* parent) override { return new QWidget(parent, Qt::Window); }
    void OnClose() override {
        ++closes;
        if (!staysOpen) {
            Destroy();
        }
    }
    qintptr OnEvent(const toolkit::WindowEvent& event) override {
        events += event.number == toolkit::kSystemCommand ? 1 : 0;
        return 7;
    }
};

TEST(SystemCommand, MinimisesMaximisesAndRestoresOneStepBack) {
    Commanded window;
    window.Command(toolkit::kCommandMaximise);
    EXPECT_TRUE(window.Widget()->isMaximized());
    window.Command(toolkit::kCommandMinimise);
    EXPECT_TRUE(window.Widget()->isMinimized());
    window.Command(toolkit::kCommandRestore);
    EXPECT_FALSE(window.Widget()->isMinimized());
    EXPECT_TRUE(window.Widget()->isMaximized());
    window.Command(toolkit::kCommandRestore);
    EXPECT_FALSE(window.Widget()->isMaximized());
    EXPECT_TRUE(window.Widget()->isVisible());
}

TEST(SystemCommand, MaximisesOutOfMinimised) {
    Commanded window;
    window.Command(toolkit::kCommandMinimise);
    window.Command(toolkit::kCommandMaximise);
    EXPECT_FALSE(window.Widget()->isMinimized());
    EXPECT_TRUE(window.Widget()->isMaximized());
    EXPECT_TRUE(window.Widget()->isVisible());
}

TEST(SystemCommand, ClosesByWayOfTheCloseEventWhichMayRefuse) {
    Commanded window;
    window.staysOpen = true;
    window.Command(toolkit::kCommandClose);
    EXPECT_EQ(window.closes, 1);
    EXPECT_TRUE(window.HasWindow());
    EXPECT_TRUE(window.Widget()->isVisible());
    window.staysOpen = false;
    window.Command(toolkit::kCommandClose);
    EXPECT_EQ(window.closes, 2);
    EXPECT_FALSE(window.HasWindow());
}

TEST(SystemCommand, TheFourLowestBitsAreThePlatformsOwn) {
    Commanded window;
    window.Command(toolkit::kCommandMaximise | 2U);
    EXPECT_TRUE(window.Widget()->isMaximized());
    window.Command(toolkit::kCommandClose | 0xFU);
    EXPECT_EQ(window.closes, 1);
}

TEST(SystemCommand, AnyOtherCommandDoesNothingAndNoneIsAnEventOfTheWindow) {
    constexpr quintptr kMove = 0xF010;
    Commanded window;
    const Qt::WindowStates before = window.Widget()->windowState();
    EXPECT_EQ(window.Command(kMove), 0);
    EXPECT_EQ(window.Widget()->windowState(), before);
    EXPECT_EQ(window.closes, 0);
    window.Command(toolkit::kCommandRestore);
    EXPECT_EQ(window.events, 0);
    EXPECT_EQ(toolkit::SendWindowEvent(window.Id(), 1025), 7) << "others go on as before";
}

} // namespace
