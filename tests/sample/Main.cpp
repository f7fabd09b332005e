#include "tests/sample/SampleChild.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    if (const std::optional<int> code = sampletest::RunAsChild(QGuiApplication::arguments())) {
        return *code;
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
