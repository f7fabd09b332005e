#include "tests/site/crash/Child.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (const std::optional<int> code = crashtest::RunAsChild(QCoreApplication::arguments())) {
        return *code;
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
