#include "tests/host/import/ImportChild.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    if (const std::optional<int> code = importtest::RunAsChild(QGuiApplication::arguments())) {
        return *code;
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
