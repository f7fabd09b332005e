// The window around a viewer's pane, alone and with a second pane below.
#include "viewers/PicViewWrap.h"

#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

class PlainPane final : public CPicViewDlg {
protected:
    void OnCurPicChanged(int index) override { Q_UNUSED(index); }
};

class LowerPaneWindow final : public toolkit::WindowObject {
protected:
    QWidget* MakeWindow(QWidget* parent) override { return new QWidget(parent); }
};

class Wrap final : public CPicViewWrap {
public:
    Wrap() : CPicViewWrap(std::make_unique<PlainPane>()) {}
    using CPicViewWrap::LayoutWrap;
    using CPicViewWrap::PicView;

    LowerPaneWindow below;
    bool divided = false;

protected:
    Lower LowerPane() override { return divided ? Lower{&below, 300} : Lower{}; }
};

class PicViewWrapTest : public testing::Test {
protected:
    PicViewWrapTest() { host.paths.root = folder.Path(); }
    ~PicViewWrapTest() override {
        wrap.DestroyViews();
        support::RunPendingEvents();
    }
    void Open(bool divided) {
        wrap.divided = divided;
        wrap.Create(toolkit::kNoWindow);
        wrap.Widget()->resize(1000, 800);
        wrap.Widget()->show();
        support::RunPendingEvents();
    }
    [[nodiscard]] int LowerHeight() const { return wrap.below.Widget()->height(); }

    support::ScriptedHost host;
    support::TempFolder folder;
    Wrap wrap;
};

} // namespace

TEST_F(PicViewWrapTest, APaneAloneFillsTheWindow) {
    Open(false);
    EXPECT_EQ(wrap.UpDownView(), nullptr);
    EXPECT_EQ(wrap.PicView().Widget()->geometry(), wrap.Widget()->rect());
    wrap.Widget()->resize(900, 700);
    EXPECT_EQ(wrap.PicView().Widget()->size(), QSize(900, 700));
    EXPECT_FALSE(wrap.below.HasWindow());
}

TEST_F(PicViewWrapTest, WithASecondPaneTheDividerFillsItAndTheLowerOneBeginsAtItsHeight) {
    Open(true);
    ASSERT_NE(wrap.UpDownView(), nullptr);
    EXPECT_EQ(wrap.UpDownView()->geometry(), wrap.Widget()->rect());
    EXPECT_EQ(LowerHeight(), 300);
    EXPECT_EQ(wrap.PicView().Widget()->height(), 500 - wrap.UpDownView()->handleWidth());
    EXPECT_EQ(wrap.PicView().Widget()->width(), 1000);
    EXPECT_TRUE(wrap.PicView().Widget()->isVisible());
    EXPECT_TRUE(wrap.below.Widget()->isVisible());
}

TEST_F(PicViewWrapTest, TheUpperPaneTakesWhatTheWindowGainsAndLoses) {
    Open(true);
    for (const int height : {1000, 700}) {
        wrap.Widget()->resize(1000, height);
        EXPECT_EQ(LowerHeight(), 300) << height;
    }
}

TEST_F(PicViewWrapTest, WhereTheUserMovedTheDividerItStays) {
    Open(true);
    QSplitter& divider = *wrap.UpDownView();
    const QPoint grip = divider.handle(1)->rect().center();
    QTest::mousePress(divider.handle(1), Qt::LeftButton, {}, grip);
    QTest::mouseMove(divider.handle(1), grip + QPoint(0, 100));
    QTest::mouseRelease(divider.handle(1), Qt::LeftButton, {}, grip + QPoint(0, 100));
    EXPECT_EQ(LowerHeight(), 200);
    wrap.Widget()->resize(1000, 900);
    EXPECT_EQ(LowerHeight(), 200);
}

TEST_F(PicViewWrapTest, ItEndsBothPanesAndCanBeMadeAgainWithoutTheSecond) {
    Open(true);
    wrap.DestroyViews();
    EXPECT_FALSE(wrap.PicView().HasWindow());
    EXPECT_FALSE(wrap.below.HasWindow());
    EXPECT_FALSE(wrap.HasWindow());
    support::RunPendingEvents();
    Open(false);
    EXPECT_EQ(wrap.UpDownView(), nullptr);
    EXPECT_EQ(wrap.PicView().Widget()->size(), QSize(1000, 800));
}
