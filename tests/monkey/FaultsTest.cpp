#include "tests/monkey/Faults.h"

#include <gtest/gtest.h>

namespace monkey {
namespace {

using namespace Qt::StringLiterals;

TEST(Faults, WarningsCountAndNotesDoNot) {
    EXPECT_TRUE(Counts(QtWarningMsg, u"QObject::connect: no such signal"_s));
    EXPECT_TRUE(Counts(QtCriticalMsg, u"x"_s));
    EXPECT_TRUE(Counts(QtFatalMsg, u"x"_s));
    EXPECT_FALSE(Counts(QtDebugMsg, u"x"_s));
    EXPECT_FALSE(Counts(QtInfoMsg, u"x"_s));
}

TEST(Faults, WhatAPlatformLacksIsAllowedForAReason) {
    const QString message = u"This plugin does not support raise()"_s;
    ASSERT_NE(ReasonToAllow(message), nullptr);
    EXPECT_STRNE(ReasonToAllow(message), "");
    EXPECT_FALSE(Counts(QtWarningMsg, message));
    EXPECT_EQ(ReasonToAllow(u"anything else"_s), nullptr);
}

TEST(Faults, AreToldWithSeedAndTheLastDeedsTheSameOneOnce) {
    OpenHistory(4711, {});
    for (int number = 1; number <= 100; ++number) {
        Note(u"#%1 click"_s.arg(number));
    }
    testing::internal::CaptureStderr();
    TellFault(u"something"_s);
    TellFault(u"something"_s);
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_NE(told.find("seed 4711"), std::string::npos);
    EXPECT_NE(told.find("#100 click"), std::string::npos);
    EXPECT_EQ(told.find("#70 click"), std::string::npos);
    EXPECT_EQ(told.find("FAULT: something"), told.rfind("FAULT: something"));
    EXPECT_EQ(FaultCount(), 2);
}

} // namespace
} // namespace monkey
