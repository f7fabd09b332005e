// The console on a screen that is smaller than its least size.
#include "tests/console/dialog/ConsoleFixture.h"
#include "toolkit/controls/ColorTxtComboBox.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QPushButton>
#include <QScreen>
#include <gmock/gmock.h>

namespace {

class SmallScreenTest : public ConsoleFixture {
protected:
    void SetUp() override {
        screen = QGuiApplication::primaryScreen()->availableSize();
        if (screen.width() >= 1085) {
            GTEST_SKIP() << "this screen has room for the console";
        }
    }

    QSize screen;
};

TEST_F(SmallScreenTest, TheLeastSizeIsCappedByTheScreen) {
    for (const ConsoleMode mode : {kModeBim, kModePdf, kModeIssue}) {
        Open(mode);
        EXPECT_LE(Window()->minimumWidth(), screen.width()) << mode;
        EXPECT_LE(Window()->minimumHeight(), screen.height()) << mode;
        EXPECT_TRUE(Window()->screen()->availableGeometry().contains(Window()->frameGeometry()))
            << mode;
    }
}

TEST_F(SmallScreenTest, AllFiltersOfPhotosStayInTheWindow) {
    Open(kModeBim);
    for (const QWidget* control : C().Filters()) {
        EXPECT_TRUE(Window()->rect().contains(control->geometry()))
            << control->objectName().toStdString();
    }
}

TEST_F(SmallScreenTest, FiltersOfIssuesLeaveEightPixelsForTheFramesUntilTheyAreAtTheirLeast) {
    Open(kModeIssue);
    constexpr int kLeastEnd = 560;
    EXPECT_EQ(C().searchButton->geometry().right() + 1, std::max(screen.width() - 8, kLeastEnd));
}

TEST_F(SmallScreenTest, GridAndActionsStayInTheWindow) {
    Open(kModeBim);
    EXPECT_TRUE(Window()->rect().contains(View().geometry()));
    EXPECT_GT(View().height(), 300);
    for (const QPushButton* button : C().Actions()) {
        EXPECT_TRUE(Window()->rect().contains(button->geometry()));
    }
}

} // namespace
