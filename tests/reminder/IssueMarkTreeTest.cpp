#include "reminder/marks/IssueMarkTree.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using KX_DATA::IssueMarkGroup;

namespace {

std::vector<IssueMarkGroup> TwoFloors() {
    return {{u"1"_s, 1, 2, {{u"甲"_s, u"k2"_s, {}, {}, 0}, {u"乙"_s, u"k1"_s, u"A"_s, {}, 3}}},
            {u"2"_s, 2, 1, {{u"丙"_s, u"k1"_s, {}, {}, 0}}}};
}

} // namespace

TEST(IssueMarkTree, GivesTheFirstEntryOfEachTickedKeyAloneInKeyOrder) {
    IssueMarkTree tree;
    tree.SetGroups(TwoFloors());
    const auto cut = tree.Cut({{u"k1"_s, 1}, {u"k2"_s, 1}, {u"none"_s, 1}});
    ASSERT_EQ(cut.size(), 2U);
    EXPECT_EQ(cut[0].name, u"1"_s);
    EXPECT_EQ(cut[0].id, 1);
    EXPECT_EQ(cut[0].count, 2);
    ASSERT_EQ(cut[0].entries.size(), 1U);
    EXPECT_EQ(cut[0].entries[0].itemText, u"乙"_s);
    EXPECT_EQ(cut[0].entries[0].text3, u"A"_s);
    EXPECT_EQ(cut[0].entries[0].value, 3);
    EXPECT_EQ(cut[1].entries[0].itemText, u"甲"_s);
}

TEST(IssueMarkTree, KeysWithNoEntryAddNothing) {
    IssueMarkTree tree;
    EXPECT_TRUE(tree.Cut({{u"k1"_s, 1}}).empty());
    tree.SetGroups(TwoFloors());
    EXPECT_TRUE(tree.Cut({{u"x"_s, 1}, {u"y"_s, 1}}).empty());
    EXPECT_TRUE(tree.Cut({}).empty());
    tree.Clear();
    EXPECT_TRUE(tree.Cut({{u"k1"_s, 1}}).empty());
    EXPECT_TRUE(tree.Names().empty());
}

TEST(IssueMarkTree, FindsEveryOneOfManyEntries) {
    std::vector<IssueMarkGroup> groups(3);
    KX_DATA::ShownIssueMarks all;
    for (int number = 0; number < 3000; ++number) {
        const QString key = u"key-%1"_s.arg(number);
        groups[size_t(number % 3)].entries.push_back({{}, key, {}, {}, number});
        all[key] = 1;
    }
    IssueMarkTree tree;
    tree.SetGroups(groups);
    const auto cut = tree.Cut(all);
    ASSERT_EQ(cut.size(), 3000U);
    for (const IssueMarkGroup& group : cut) {
        EXPECT_EQ(group.entries[0].itemKey, u"key-%1"_s.arg(group.entries[0].value));
    }
}

TEST(IssueMarkTree, FindsKeysThatShareTheirCharactersAndCopiesOfThemNearAndFar) {
    IssueMarkGroup group;
    QStringList wanted;
    KX_DATA::ShownIssueMarks ticked;
    for (int number = 1000; number < 2000; ++number) {
        const QString key = u"key-%1"_s.arg(number);
        group.entries.push_back({{}, key, {}, {}, number});
        // Runs of neighbours, then wide gaps; every third is a copy, so is one without an entry.
        if (number % 100 >= 3 && number % 37 != 0) {
            continue;
        }
        ticked[number % 3 == 0 ? QString(key.constData(), key.size()) : key] = 1;
        ticked[key + u'x'] = 1;
        wanted << key;
    }
    IssueMarkTree tree;
    tree.SetGroups({group});
    QStringList found;
    for (const IssueMarkGroup& one : tree.Cut(ticked)) {
        found << one.entries[0].itemKey;
    }
    EXPECT_EQ(found, wanted);
}

TEST(IssueMarkTree, NamesEveryKeyByTheLastEntryThatHasIt) {
    IssueMarkTree tree;
    tree.SetGroups(TwoFloors());
    EXPECT_EQ(tree.Names(), (std::map<QString, QString>{{u"k1"_s, u"丙"_s}, {u"k2"_s, u"甲"_s}}));
}

TEST(IssueMarkTree, FindsKeysThatBeginAlikeAndKeysOfAnyCharacters) {
    const std::vector<QStringList> sets = {
        {u"issue-000000001"_s, u"issue-000000002"_s, u"issue-0000000010"_s},
        {u"甲乙丙丁戊1"_s, u"甲乙丙丁戊2"_s, u"甲乙丙丁戊"_s},
        {u"a"_s, QString(), u"ÿÿÿ"_s, u"b"_s},
        {u"only"_s}};
    for (const QStringList& keys : sets) {
        IssueMarkGroup group;
        KX_DATA::ShownIssueMarks ticked = {{u"zzz"_s, 1},
                                           {u"龘"_s, 1},
                                           {u"issue-"_s, 1},
                                           {u"issue-0000000000"_s, 1},
                                           {u"issue-00000000010"_s, 1},
                                           {u"甲乙丙丁戊0"_s, 1}};
        for (const QString& key : keys) {
            group.entries.push_back({key, key, {}, {}, 0});
            ticked[key] = 1;
        }
        IssueMarkTree tree;
        tree.SetGroups({group});
        QStringList found;
        for (const IssueMarkGroup& one : tree.Cut(ticked)) {
            found << one.entries[0].itemKey;
        }
        QStringList wanted = keys;
        wanted.sort();
        EXPECT_EQ(found, wanted);
    }
}

TEST(IssueMarkTree, CopiesOfKeysThatDifferOnlyBehindTheirNumberAreToldApart) {
    // Eight characters behind what all have in common make the number; the ninth decides.
    IssueMarkGroup group;
    const QStringList wanted{u"k12345678a"_s, u"k12345678b"_s, u"k12345678c"_s, u"kz"_s};
    for (const QString& key : wanted) {
        group.entries.push_back({{}, key, {}, {}, 0});
    }
    IssueMarkTree tree;
    tree.SetGroups({group});
    for (const QString& key : wanted) {
        const auto cut = tree.Cut({{QString(key.constData(), key.size()), 1}});
        ASSERT_EQ(cut.size(), 1U) << key.toStdString();
        EXPECT_EQ(cut[0].entries[0].itemKey, key);
    }
    EXPECT_TRUE(tree.Cut({{u"k12345678d"_s, 1}}).empty()) << "as near as the others, and not there";
    EXPECT_TRUE(tree.Cut({{u"k12345678"_s, 1}}).empty());
}

TEST(IssueMarkTree, NoMoreOfTheTickedIsCarriedThanTheTreeHas) {
    IssueMarkTree tree;
    tree.SetGroups({{u"g"_s, 7, 1, {{u"text"_s, u"b"_s, {}, {}, 0}}}});
    const auto cut = tree.Cut({{u"a"_s, 1}, {u"b"_s, 1}, {u"c"_s, 1}, {u"d"_s, 1}});
    ASSERT_EQ(cut.size(), 1U);
    EXPECT_EQ(cut[0].id, 7);
    EXPECT_EQ(cut[0].entries[0].itemText, u"text"_s);
}

TEST(IssueMarkTree, NewGroupsReplaceThoseBefore) {
    IssueMarkTree tree;
    tree.SetGroups(TwoFloors());
    tree.SetGroups({{u"g"_s, 7, 1, {{u"text"_s, u"k3"_s, {}, {}, 0}}}});
    EXPECT_EQ(tree.Names(), (std::map<QString, QString>{{u"k3"_s, u"text"_s}}));
    const auto cut = tree.Cut({{u"k1"_s, 1}, {u"k2"_s, 1}, {u"k3"_s, 1}});
    ASSERT_EQ(cut.size(), 1U);
    EXPECT_EQ(cut[0].id, 7);
}
