// How many messages the module is handed at a time.
#include "host/reminders/PacedMessages.h"

#include "tests/support/WaitFor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace host {
namespace {

using support::WaitFor;

struct Paced : testing::Test {
    void Add(int count) {
        for (int at = 0; at < count; ++at) {
            messages.Add({added % 3 == 0, std::to_string(added)});
            ++added;
        }
    }
    void ExpectInOrder() const {
        for (size_t at = 0; at < handed.size(); ++at) {
            EXPECT_EQ(handed[at].json, std::to_string(at));
            EXPECT_EQ(handed[at].isIssue, at % 3 == 0) << at;
        }
    }
    std::vector<ReminderMessage> handed;
    int added = 0;
    PacedMessages messages{[this](const ReminderMessage& message) { handed.push_back(message); }};
};

constexpr size_t kPortion = PacedMessages::kPortion;

TEST_F(Paced, AFewComeAtOnceAndLaterThanTheyAreAdded) {
    Add(3);
    EXPECT_TRUE(handed.empty());
    support::RunPendingEvents();
    EXPECT_EQ(handed.size(), 3U);
    ExpectInOrder();
}

TEST_F(Paced, ThoseOfANextPortionWaitUntilTheLastOneIsShown) {
    Add(50);
    support::RunPendingEvents();
    EXPECT_EQ(handed.size(), kPortion);
    messages.Shown();
    support::RunPendingEvents();
    EXPECT_EQ(handed.size(), 2 * kPortion);
    messages.Shown();
    support::RunPendingEvents();
    EXPECT_EQ(handed.size(), 50U);
    ExpectInOrder();
}

TEST_F(Paced, WhereNothingIsShownTheyGoOnAfterAWhile) {
    Add(int(2 * kPortion + 5));
    EXPECT_TRUE(WaitFor([this] { return handed.size() == 2 * kPortion + 5; }));
    ExpectInOrder();
}

TEST_F(Paced, OneThatComesBeforeTheOthersAreShownWaitsToo) {
    Add(2);
    support::RunPendingEvents();
    Add(1);
    support::RunPendingEvents();
    EXPECT_EQ(handed.size(), 2U);
    messages.Shown();
    support::RunPendingEvents();
    EXPECT_EQ(handed.size(), 3U);
}

TEST_F(Paced, ShownWithoutAnythingWaitingHandsNothingOn) {
    messages.Shown();
    support::RunPendingEvents();
    EXPECT_TRUE(handed.empty());
    Add(1);
    support::RunPendingEvents();
    EXPECT_EQ(handed.size(), 1U);
}

} // namespace
} // namespace host
