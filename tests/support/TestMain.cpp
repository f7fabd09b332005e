// The `main` of test programs with windows: without a display unless the caller names a platform,
// and without sound.
#include "tests/support/ScriptedAudio.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" VESK_OFFSCREEN_SCREEN);
    }
    // Times are printed in the tests' zone, also when a program is started by hand.
    if (qEnvironmentVariableIsEmpty("TZ")) {
        qputenv("TZ", "Asia/Shanghai");
    }
    QApplication app(argc, argv);
    const support::ScriptedAudio noSound;
    toolkit::ApplyLook(app);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
