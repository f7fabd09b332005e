// Commands of the console's own menu: whatever they are, they restore.
#include "toolkit/windows/SystemCommand.h"
#include "tests/console/dialog/ConsoleFixture.h"
#include "toolkit/windows/WindowRegistry.h"

namespace {

constexpr quintptr kCommandMove = 0xF010;

class ConsoleCommandTest : public ConsoleFixture {
protected:
    void Command(quintptr command) {
        toolkit::SendWindowEvent(Console().Id(), toolkit::kSystemCommand, command);
    }
};

TEST_F(ConsoleCommandTest, EveryCommandBringsItBackOutOfMinimised) {
    Open(kModeBim);
    for (const quintptr command :
         {toolkit::kCommandMinimise, toolkit::kCommandMaximise, toolkit::kCommandClose,
          toolkit::kCommandRestore, kCommandMove}) {
        Console().Minimise();
        ASSERT_TRUE(Window()->isMinimized());
        Command(command);
        ASSERT_TRUE(Console().HasWindow()) << command;
        EXPECT_FALSE(Window()->isMinimized()) << command;
        EXPECT_FALSE(Window()->isMaximized()) << command;
        EXPECT_TRUE(Window()->isVisible()) << command;
    }
}

TEST_F(ConsoleCommandTest, OneThatWasMaximisedComesBackMaximisedAndIsThenMadeSmaller) {
    Open(kModeBim);
    Window()->showMaximized();
    Console().Minimise();
    Command(toolkit::kCommandMinimise);
    EXPECT_TRUE(Window()->isMaximized());
    Command(toolkit::kCommandMaximise);
    EXPECT_FALSE(Window()->isMaximized());
}

TEST_F(ConsoleCommandTest, TheCloseCommandLeavesItOpenAndTheCloseEventClosesIt) {
    Open(kModeBim);
    Command(toolkit::kCommandClose);
    ASSERT_TRUE(Console().HasWindow());
    EXPECT_TRUE(Window()->isVisible());
    Window()->close();
    EXPECT_FALSE(Console().HasWindow());
}

} // namespace
