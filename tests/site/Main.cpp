// The `main` of test programs without windows: in the tests' zone also when started by hand.
#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("TZ")) {
        qputenv("TZ", "Asia/Shanghai");
    }
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
