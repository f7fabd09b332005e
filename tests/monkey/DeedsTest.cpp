#include "tests/monkey/Deeds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace monkey {
namespace {

using testing::ElementsAre;
using namespace Qt::StringLiterals;

TEST(Deeds, AreTheSameForASeedAndANumber) {
    for (int number = 1; number <= 50; ++number) {
        EXPECT_EQ(DeedAt(7, number).kind, DeedAt(7, number).kind);
        EXPECT_EQ(DeedAt(7, number).dice, DeedAt(7, number).dice);
        EXPECT_EQ(DeedAt(7, number).number, number);
    }
}

TEST(Deeds, OfAnotherSeedOrNumberAreOthers) {
    EXPECT_NE(DeedAt(7, 1).dice, DeedAt(8, 1).dice);
    EXPECT_NE(DeedAt(7, 1).dice, DeedAt(7, 2).dice);
    EXPECT_NE(DeedAt(7, 1).dice, DeedAt(7 + (1ULL << 32), 1).dice);
}

TEST(Deeds, OfEveryKindComeAboutAsOftenAsTheTableSays) {
    constexpr int kCount = 20'000;
    std::map<Kind, int> counts;
    for (int number = 1; number <= kCount; ++number) {
        ++counts[DeedAt(3, number).kind];
    }
    int weights = 0;
    for (const KindRow& row : KindTable()) {
        weights += row.weight;
    }
    for (const KindRow& row : KindTable()) {
        const double wanted = double(kCount) * row.weight / weights;
        EXPECT_NEAR(counts[row.kind], wanted, wanted / 3) << row.name.toStdString();
    }
}

TEST(Deeds, HaveNamesOfTheirOwn) {
    std::set<QString> names;
    for (const KindRow& row : KindTable()) {
        EXPECT_EQ(NameOf(row.kind), row.name);
        names.insert(row.name);
    }
    EXPECT_EQ(names.size(), KindTable().size());
}

TEST(Deeds, ChooseAmongWhatIsThereAndNothingOfNothing) {
    Deed deed;
    deed.dice = {0, 7, 99, 100, 0xFFFFFFFF};
    EXPECT_EQ(deed.Of(1, 5), 2);
    EXPECT_EQ(deed.Of(4, 10), 5);
    EXPECT_EQ(deed.Of(1, 0), 0);
    EXPECT_TRUE(deed.Chance(0, 1));
    EXPECT_FALSE(deed.Chance(0, 0));
    EXPECT_FALSE(deed.Chance(2, 99));
    EXPECT_TRUE(deed.Chance(2, 100));
}

TEST(Deeds, NumbersAreReadFromTheCommandLine) {
    std::vector<int> numbers;
    EXPECT_TRUE(ReadNumbers(u"3-5,9"_s, numbers));
    EXPECT_THAT(numbers, ElementsAre(3, 4, 5, 9));
    EXPECT_TRUE(ReadNumbers(QString(), numbers));
    EXPECT_TRUE(numbers.empty());
    for (const QString& wrong : {u"x"_s, u"5-3"_s, u"1-"_s}) {
        EXPECT_FALSE(ReadNumbers(wrong, numbers)) << wrong.toStdString();
    }
}

} // namespace
} // namespace monkey
