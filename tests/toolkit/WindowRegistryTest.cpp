#include "toolkit/windows/WindowRegistry.h"

#include <QCoreApplication>
#include <QWidget>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using toolkit::WindowEvent;
using toolkit::WindowId;

namespace {

struct CountedPayload final : toolkit::EventPayload {
    explicit CountedPayload(std::atomic<int>& count) : alive(count) { ++alive; }
    ~CountedPayload() override { --alive; }
    std::atomic<int>& alive;
};

} // namespace

TEST(WindowRegistry, ASendIsADirectCallWithAResult) {
    QWidget widget;
    quintptr seen = 0;
    const WindowId id = toolkit::RegisterWindow(&widget, [&](const WindowEvent& event) {
        seen = event.first + event.second;
        return qintptr(event.number);
    });
    EXPECT_EQ(toolkit::SendWindowEvent(id, 1025, 3, 4), 1025);
    EXPECT_EQ(seen, 7U);
}

TEST(WindowRegistry, AWindowThatIsGoneTakesNoEventsAndHasNoWidget) {
    WindowId id = toolkit::kNoWindow;
    bool called = false;
    {
        QWidget widget;
        id = toolkit::RegisterWindow(&widget, [&](const WindowEvent&) {
            called = true;
            return qintptr(1);
        });
        EXPECT_EQ(toolkit::WidgetOf(id), &widget);
    }
    EXPECT_EQ(toolkit::WidgetOf(id), nullptr);
    EXPECT_EQ(toolkit::SendWindowEvent(id, 1), 0);
    EXPECT_FALSE(called);
}

TEST(WindowRegistry, AnIdIsNeverGivenAgain) {
    QWidget first;
    const WindowId before = toolkit::RegisterWindow(&first, [](const WindowEvent&) { return 0; });
    toolkit::UnregisterWindow(before);
    QWidget second;
    const WindowId after = toolkit::RegisterWindow(&second, [](const WindowEvent&) { return 0; });
    EXPECT_NE(before, after);
    EXPECT_EQ(toolkit::WidgetOf(before), nullptr);
    EXPECT_EQ(toolkit::WidgetOf(after), &second);
}

TEST(WindowRegistry, AControlBelongsToTheWindowThatItLiesIn) {
    QWidget window;
    auto* child = new QWidget(new QWidget(&window));
    const WindowId id = toolkit::RegisterWindow(&window, [](const WindowEvent&) { return 0; });
    EXPECT_EQ(toolkit::WindowOf(child), id);
    QWidget stranger;
    EXPECT_EQ(toolkit::WindowOf(&stranger), toolkit::kNoWindow);
}

TEST(WindowRegistry, APostArrivesWithTheNextTurnOfTheLoopAndOwnsItsPayload) {
    QWidget widget;
    std::atomic<int> alive{0};
    int seen = 0;
    const WindowId id = toolkit::RegisterWindow(&widget, [&](const WindowEvent& event) {
        EXPECT_NE(event.payload, nullptr);
        ++seen;
        return qintptr(0);
    });
    toolkit::PostWindowEvent(id, 1030, 0, 0, std::make_unique<CountedPayload>(alive));
    EXPECT_EQ(seen, 0);
    EXPECT_EQ(alive, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(alive, 0);
}

TEST(WindowRegistry, APostThatFindsNoWindowIsFreed) {
    std::atomic<int> alive{0};
    {
        QWidget widget;
        const WindowId id = toolkit::RegisterWindow(&widget, [](const WindowEvent&) { return 0; });
        toolkit::PostWindowEvent(id, 1030, 0, 0, std::make_unique<CountedPayload>(alive));
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(alive, 0);
}

TEST(WindowRegistry, AHandlerMayEndItsOwnWindow) {
    auto* widget = new QWidget;
    WindowId id = toolkit::kNoWindow;
    id = toolkit::RegisterWindow(widget, [&](const WindowEvent&) {
        delete widget;
        return qintptr(5);
    });
    EXPECT_EQ(toolkit::SendWindowEvent(id, 1), 5);
    EXPECT_EQ(toolkit::WidgetOf(id), nullptr);
}

TEST(WindowRegistry, PostsOfSeveralThreadsAllArriveInTheOrderOfEachThread) {
    constexpr int kThreads = 4;
    constexpr int kEvents = 200;
    QWidget widget;
    std::vector<int> last(kThreads, -1);
    int count = 0;
    const WindowId id = toolkit::RegisterWindow(&widget, [&](const WindowEvent& event) {
        EXPECT_EQ(int(event.second), last[event.first] + 1);
        last[event.first] = int(event.second);
        ++count;
        return qintptr(0);
    });
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < kThreads; ++thread) {
            threads.emplace_back([id, thread] {
                for (int n = 0; n < kEvents; ++n) {
                    toolkit::PostWindowEvent(id, 1, quintptr(thread), quintptr(n));
                }
            });
        }
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(count, kThreads * kEvents);
}

TEST(WindowRegistry, TheMainWindowIsForgottenWithItsWidget) {
    {
        QWidget widget;
        toolkit::SetMainWindow(
            toolkit::RegisterWindow(&widget, [](const WindowEvent&) { return 0; }));
        EXPECT_EQ(toolkit::WidgetOf(toolkit::MainWindow()), &widget);
    }
    EXPECT_EQ(toolkit::MainWindow(), toolkit::kNoWindow);
}

TEST(WindowRegistry, ManyWindowsAtOnceHaveEachTheirOwnEntry) {
    std::vector<std::unique_ptr<QWidget>> widgets;
    std::vector<WindowId> ids;
    for (int i = 0; i < 40; ++i) {
        widgets.push_back(std::make_unique<QWidget>());
        ids.push_back(toolkit::RegisterWindow(widgets.back().get(),
                                              [i](const WindowEvent&) { return qintptr(i) + 1; }));
    }
    for (size_t i = 0; i < widgets.size(); ++i) {
        EXPECT_EQ(toolkit::WidgetOf(ids[i]), widgets[i].get());
        EXPECT_EQ(toolkit::SendWindowEvent(ids[i], 1), qintptr(i + 1));
    }
}
