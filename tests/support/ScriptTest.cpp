#include "tests/support/Script.h"

#include <gmock/gmock.h>

#include <thread>

using support::Script;
using testing::ElementsAre;

TEST(Script, CallsStandInTheLogInOrderWithTheirArguments) {
    Script script;
    script.Call("GetView");
    script.Call("LocatePicture", {"position=k", "mark=2"});
    EXPECT_THAT(script.log.Lines(), ElementsAre("GetView()", "LocatePicture(position=k,mark=2)"));
}

TEST(Script, OnlyTheNextCallFailsAsOftenAsItWasSaid) {
    Script script;
    script.FailNext("A");
    script.FailNext("A");
    EXPECT_TRUE(script.Call("B"));
    EXPECT_FALSE(script.Call("A"));
    EXPECT_FALSE(script.Call("A"));
    EXPECT_TRUE(script.Call("A"));
}

TEST(Script, AllCallsFailUntilTheyMaySucceed) {
    Script script;
    script.FailAlways("A");
    EXPECT_FALSE(script.Call("A"));
    EXPECT_FALSE(script.Call("A"));
    script.Succeed("A");
    EXPECT_TRUE(script.Call("A"));
}

TEST(Script, WhatHappensDuringACallComesAfterItsLine) {
    Script script;
    script.During("A", [&] { script.Call("B"); });
    script.Call("A");
    script.During("A", nullptr);
    script.Call("A");
    EXPECT_THAT(script.log.Lines(), ElementsAre("A()", "B()", "A()"));
}

TEST(CallLog, FindsTheCallsOfSomeOperationsByTheirWholeName) {
    Script script;
    script.Call("Query", {"page=1"});
    script.Call("QueryAll");
    script.Call("Delete");
    EXPECT_THAT(script.log.LinesOf({"Delete", "Query"}), ElementsAre("Query(page=1)", "Delete()"));
    EXPECT_EQ(script.log.CountOf("Query"), 1);
}

TEST(CallLog, TakesCallsFromSeveralThreads) {
    Script script;
    {
        std::jthread other([&] {
            for (int i = 0; i < 100; ++i) {
                script.Call("A");
            }
        });
        for (int i = 0; i < 100; ++i) {
            script.Call("B");
        }
    }
    EXPECT_EQ(script.log.CountOf("A"), 100);
    EXPECT_EQ(script.log.CountOf("B"), 100);
}
