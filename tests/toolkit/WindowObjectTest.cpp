#include "toolkit/windows/WindowObject.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QPointer>
#include <gtest/gtest.h>

using toolkit::WindowId;

namespace {

class Sample final : public toolkit::WindowObject {
public:
    int created = 0;
    int destroyed = 0;
    int closes = 0;
    int ticks = 0;
    std::vector<bool> shown; ///< true: shown, false: hidden
    bool destroyInTick = false;
    std::vector<int> events;

protected:
    QWidget* MakeWindow(QWidget* parent) override { return new QWidget(parent, Qt::Window); }
    void OnCreated() override { ++created; }
    void OnDestroyed() override { ++destroyed; }
    void OnWindowShown() override { shown.push_back(true); }
    void OnWindowHidden() override { shown.push_back(false); }
    void OnClose() override {
        ++closes;
        Destroy();
    }
    qintptr OnEvent(const toolkit::WindowEvent& event) override {
        events.push_back(event.number);
        return 1;
    }
    void OnTimer(int) override {
        ++ticks;
        if (destroyInTick) {
            Destroy();
        }
    }
};

void WaitForTick(const Sample& sample, int ticks) {
    const QDeadlineTimer deadline(5000);
    while (sample.ticks < ticks && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
}

} // namespace

TEST(WindowObject, HasAWindowOnlyBetweenCreationAndDestruction) {
    Sample sample;
    EXPECT_FALSE(sample.HasWindow());
    EXPECT_EQ(sample.Id(), toolkit::kNoWindow);
    EXPECT_TRUE(sample.Create(toolkit::kNoWindow));
    EXPECT_TRUE(sample.HasWindow());
    EXPECT_FALSE(sample.Create(toolkit::kNoWindow));
    sample.Destroy();
    EXPECT_FALSE(sample.HasWindow());
    EXPECT_EQ(sample.destroyed, 1);
    sample.Destroy();
    EXPECT_EQ(sample.destroyed, 1);
}

TEST(WindowObject, CanBeCreatedAgainUnderANewId) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    const WindowId first = sample.Id();
    sample.Destroy();
    sample.Create(toolkit::kNoWindow);
    EXPECT_NE(sample.Id(), first);
    EXPECT_EQ(toolkit::SendWindowEvent(first, 7), 0);
    EXPECT_EQ(toolkit::SendWindowEvent(sample.Id(), 8), 1);
    EXPECT_EQ(sample.events, std::vector<int>{8});
}

TEST(WindowObject, ShowingAndHidingIsToldAndTheEndIsNoHiding) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    EXPECT_TRUE(sample.shown.empty());
    sample.ShowRestored();
    EXPECT_EQ(sample.shown, std::vector<bool>({true}));
    sample.ShowRestored();
    EXPECT_EQ(sample.shown, std::vector<bool>({true})) << "it was shown already";
    sample.Hide();
    EXPECT_EQ(sample.shown, std::vector<bool>({true, false}));
    sample.ShowRestored();
    sample.Destroy();
    EXPECT_EQ(sample.shown, std::vector<bool>({true, false, true}));
}

TEST(WindowObject, DestroyingHidesAtOnce) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    sample.ShowRestored();
    const QPointer<QWidget> widget = sample.Widget();
    ASSERT_TRUE(widget->isVisible());
    sample.Destroy();
    EXPECT_TRUE(widget.isNull() || !widget->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(widget.isNull());
}

TEST(WindowObject, EndsTheSameWayWhenItsParentDies) {
    Sample sample;
    {
        QWidget parent;
        const WindowId id =
            toolkit::RegisterWindow(&parent, [](const toolkit::WindowEvent&) { return 0; });
        sample.Create(id);
        EXPECT_EQ(sample.Widget()->parentWidget(), &parent);
    }
    EXPECT_FALSE(sample.HasWindow());
    EXPECT_EQ(sample.Id(), toolkit::kNoWindow);
    EXPECT_EQ(sample.destroyed, 1);
}

TEST(WindowObject, AskingTheWindowToCloseGoesThroughTheCloseEvent) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    sample.ShowRestored();
    sample.Widget()->close();
    EXPECT_EQ(sample.closes, 1);
    EXPECT_FALSE(sample.HasWindow());
}

TEST(WindowObject, DyingWithAWindowFreesIt) {
    QPointer<QWidget> widget;
    {
        Sample sample;
        sample.Create(toolkit::kNoWindow);
        widget = sample.Widget();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(widget.isNull());
}

TEST(WindowObject, ATimerMayEndItsOwnWindowAndNeverTicksAgain) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    sample.destroyInTick = true;
    sample.SetTimer(101, 1);
    WaitForTick(sample, 1);
    EXPECT_EQ(sample.ticks, 1);
    EXPECT_FALSE(sample.HasWindow());
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_EQ(sample.ticks, 1);
}

TEST(WindowObject, AStoppedTimerTicksNoMoreAndOneSetAgainDoes) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    sample.SetTimer(104, 1);
    sample.KillTimer(104);
    sample.KillTimer(103);
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_EQ(sample.ticks, 0);
    sample.SetTimer(104, 1);
    WaitForTick(sample, 2);
    EXPECT_GE(sample.ticks, 2);
}

TEST(WindowObject, AfterItsEndItsOldWindowTellsNothingMore) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    const QPointer<QWidget> window = sample.Widget();
    sample.Destroy();
    QCloseEvent close;
    QCoreApplication::sendEvent(window, &close);
    EXPECT_EQ(sample.closes, 0);
    sample.Create(toolkit::kNoWindow);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_TRUE(sample.HasWindow());
    EXPECT_EQ(sample.destroyed, 1);
}

namespace {

class Raised final : public QObject {
public:
    int times = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        times += event->type() == QEvent::ZOrderChange;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

TEST(WindowObject, BroughtToTheForegroundItIsRaised) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    sample.ShowRestored();
    Raised raised;
    sample.Widget()->installEventFilter(&raised);
    sample.BringToForeground();
    EXPECT_EQ(raised.times, 1);
}

TEST(WindowObject, RestoringTakesOneStepBack) {
    Sample sample;
    sample.Create(toolkit::kNoWindow);
    for (const bool maximised : {false, true}) {
        sample.Widget()->setWindowState(maximised ? Qt::WindowMaximized : Qt::WindowNoState);
        sample.ShowRestored();
        EXPECT_TRUE(sample.Widget()->isVisible());
        EXPECT_FALSE(sample.Widget()->isMaximized());
        sample.Widget()->setWindowState(maximised ? Qt::WindowMaximized : Qt::WindowNoState);
        sample.Widget()->setWindowState(sample.Widget()->windowState() | Qt::WindowMinimized);
        sample.ShowRestored();
        EXPECT_FALSE(sample.Widget()->isMinimized());
        EXPECT_EQ(sample.Widget()->isMaximized(), maximised);
    }
}
