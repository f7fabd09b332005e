// The `main` of the contract tests: without windows, in the tests' zone also when started by hand.
#include <QCoreApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("TZ")) {
        qputenv("TZ", "Asia/Shanghai");
    }
    const QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
