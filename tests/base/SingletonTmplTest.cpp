#include "base/SingletonTmpl.h"

#include <gtest/gtest.h>

namespace {

int g_made = 0;
int g_ended = 0;

class Once final : public NRQUtility::SingletonTmpl<Once> {
public:
    ~Once() override { ++g_ended; }
    int value = 0;

private:
    friend class NRQUtility::SingletonTmpl<Once>;
    Once() { ++g_made; }
};

class Other final : public NRQUtility::SingletonTmpl<Other> {};

class SingletonTest : public testing::Test {
protected:
    SingletonTest() {
        Once::ReleaseInstance();
        g_made = 0;
        g_ended = 0;
    }
    ~SingletonTest() override { Once::ReleaseInstance(); }
};

TEST_F(SingletonTest, TheObjectIsMadeByTheFirstAccess) {
    EXPECT_FALSE(Once::HasInstance());
    EXPECT_EQ(g_made, 0);
    static_cast<void>(Once::Instance());
    EXPECT_TRUE(Once::HasInstance());
    EXPECT_EQ(g_made, 1);
}

TEST_F(SingletonTest, EveryAccessGivesTheSameObject) {
    Once::Instance().value = 5;
    EXPECT_EQ(Once::Instance().value, 5);
    EXPECT_EQ(g_made, 1);
}

TEST_F(SingletonTest, ReleasingEndsTheObjectAndTheNextAccessMakesANewOne) {
    Once::Instance().value = 5;
    Once::ReleaseInstance();
    EXPECT_EQ(g_ended, 1);
    EXPECT_EQ(Once::Instance().value, 0);
    EXPECT_EQ(g_made, 2);
}

TEST_F(SingletonTest, EveryClassHasAnObjectOfItsOwn) {
    static_cast<void>(Once::Instance());
    EXPECT_FALSE(Other::HasInstance());
}

} // namespace
