// The cut trees against the same cut written down plainly, over many trees and selections.
#include "reminder/marks/KXVeskPicDataImpl.h"
#include "tests/support/ScriptedHost.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

using namespace Qt::StringLiterals;

namespace {

using Dice = std::mt19937;

int Roll(Dice& dice, int sides) {
    return int(dice() % unsigned(sides));
}

std::string Dump(const std::vector<KX_DATA::PicMarkGroup>& groups) {
    std::ostringstream out;
    for (const KX_DATA::PicMarkGroup& group : groups) {
        out << group.name << '#' << group.id << '\n';
        for (const KX_DATA::PicMarkItem& item : group.items) {
            out << "  " << item.positionKey << '|' << item.itemName << '|' << item.text3 << '|'
                << item.text4 << '|' << item.text5 << '|' << item.total << '|' << item.groupId
                << '\n';
            for (const KX_DATA::PicMarkLeaf& leaf : item.leaves) {
                out << "    " << leaf.text1 << '|' << leaf.text2 << '|' << leaf.markId << '|'
                    << leaf.count << '|' << leaf.markName.toStdString() << '\n';
            }
        }
    }
    return out.str();
}

std::string Dump(const std::vector<KX_DATA::IssueMarkGroup>& groups) {
    std::ostringstream out;
    for (const KX_DATA::IssueMarkGroup& group : groups) {
        out << group.name.toStdString() << '#' << group.id << '#' << group.count;
        for (const KX_DATA::IssueMarkEntry& entry : group.entries) {
            out << ' ' << entry.itemKey.toStdString() << '=' << entry.itemText.toStdString() << ','
                << entry.text3.toStdString() << ',' << entry.text4.toStdString() << ','
                << entry.value;
        }
        out << '\n';
    }
    return out.str();
}

QString SecondLevel(qint32 groupId) {
    return u"second%1"_s.arg(groupId % 3);
}

/// False: the leaf drops out.
bool CountLeaf(const KX_DATA::PicMarkItem& item,
               const std::map<qint32, std::vector<KX_DATA::ShownPicItem>>& marks,
               KX_DATA::PicMarkLeaf& leaf) {
    const auto mark = marks.find(leaf.markId);
    if (mark == marks.end()) {
        return false;
    }
    if (mark->second.empty()) {
        return true;
    }
    leaf.count = 0;
    for (const KX_DATA::ShownPicItem& photo : mark->second) {
        leaf.count += photo.itemName == item.itemName ? 1 : 0;
    }
    return leaf.count != 0;
}

std::vector<KX_DATA::PicMarkGroup> PlainCut(const std::vector<KX_DATA::PicMarkGroup>& groups,
                                            const KX_DATA::ShownPicMarks& selection) {
    std::vector<KX_DATA::PicMarkGroup> out;
    for (const KX_DATA::PicMarkGroup& group : groups) {
        const auto floor = selection.find(group.name);
        if (floor == selection.end()) {
            continue;
        }
        bool takeAll = floor->second.empty();
        const auto marks = floor->second.find(SecondLevel(group.id));
        if (marks == floor->second.end() && !floor->second.empty()) {
            continue;
        }
        if (marks != floor->second.end() && marks->second.empty()) {
            takeAll = true;
        }
        KX_DATA::PicMarkGroup cut{group.name, group.id, {}};
        for (const KX_DATA::PicMarkItem& item : group.items) {
            KX_DATA::PicMarkItem copy = item;
            copy.leaves.clear();
            copy.total = 0;
            for (KX_DATA::PicMarkLeaf leaf : item.leaves) {
                if (!takeAll && !CountLeaf(item, marks->second, leaf)) {
                    continue;
                }
                copy.total += leaf.count;
                copy.leaves.push_back(leaf);
            }
            copy.groupId = group.id;
            if (!copy.leaves.empty()) {
                cut.items.push_back(copy);
            }
        }
        if (!cut.items.empty()) {
            out.push_back(cut);
        }
    }
    return out;
}

std::string ItemName(Dice& dice) {
    return "item" + std::to_string(Roll(dice, 6));
}

std::vector<KX_DATA::PicMarkGroup> AnyGroups(Dice& dice) {
    std::vector<KX_DATA::PicMarkGroup> groups;
    for (int i = Roll(dice, 5); i >= 0; --i) {
        KX_DATA::PicMarkGroup group{"floor" + std::to_string(Roll(dice, 4)), Roll(dice, 6), {}};
        for (int j = Roll(dice, 6); j > 0; --j) {
            KX_DATA::PicMarkItem item{"key" + std::to_string(j),
                                      ItemName(dice),
                                      "c",
                                      "d",
                                      "e",
                                      Roll(dice, 9),
                                      Roll(dice, 9),
                                      {}};
            for (int k = Roll(dice, 5); k > 0; --k) {
                const int mark = Roll(dice, 4);
                item.leaves.push_back({"t" + std::to_string(Roll(dice, 2)), "u", mark,
                                       Roll(dice, 5), u"mark%1"_s.arg(mark)});
            }
            group.items.push_back(item);
        }
        groups.push_back(group);
    }
    return groups;
}

KX_DATA::ShownPicMarks AnySelection(Dice& dice) {
    KX_DATA::ShownPicMarks selection;
    for (int i = Roll(dice, 5); i > 0; --i) {
        auto& floor = selection["floor" + std::to_string(Roll(dice, 4))];
        for (int j = Roll(dice, 3); j > 0; --j) {
            auto& marks = floor[SecondLevel(Roll(dice, 6))];
            for (int k = Roll(dice, 4); k > 0; --k) {
                auto& photos = marks[Roll(dice, 4)];
                for (int n = Roll(dice, 5); n > 0; --n) {
                    photos.push_back({ItemName(dice), n});
                }
            }
        }
    }
    return selection;
}

class PlainCutTest : public testing::Test {
protected:
    PlainCutTest() {
        for (qint32 id = 0; id < 6; ++id) {
            m_host.global.groupNames[id] = SecondLevel(id);
        }
    }
    ~PlainCutTest() override { CKXVeskPicDataImpl::ReleaseInstance(); }

    support::ScriptedHost m_host;
    CKXVeskPicDataImpl& m_data = CKXVeskPicDataImpl::Instance();
    KX_DATA::MarkFilterArg m_arg;
    std::vector<KX_DATA::PicFilterEntry> m_entries;
    Dice m_dice{20260305};
};

} // namespace

TEST_F(PlainCutTest, PhotosAreCutAsIfEachLeafWereLookedUp) {
    for (int trial = 0; trial < 1000; ++trial) {
        m_host.pics.markGroups = AnyGroups(m_dice);
        m_data.GetPicFilterData(0, 0, 0, m_arg, m_entries);
        const KX_DATA::ShownPicMarks selection = AnySelection(m_dice);
        std::vector<KX_DATA::PicMarkGroup> cut;
        m_data.BuildPicMarks(selection, cut);
        ASSERT_EQ(Dump(cut), Dump(PlainCut(m_host.pics.markGroups, selection))) << trial;
        m_host.Log().Clear();
    }
}

TEST_F(PlainCutTest, IssuesAreCutAsIfEachKeyWereLookedUp) {
    const auto key = [this] {
        static const QStringList heads{u"q"_s, u"问题"_s, u"a-long-common-head-"_s, {}};
        return heads[Roll(m_dice, 4)] + QString::number(Roll(m_dice, 30));
    };
    for (int trial = 0; trial < 1000; ++trial) {
        std::vector<KX_DATA::IssueMarkGroup> groups;
        for (int i = Roll(m_dice, 4); i > 0; --i) {
            KX_DATA::IssueMarkGroup group{u"g%1"_s.arg(i), i, Roll(m_dice, 9), {}};
            for (int j = Roll(m_dice, 12); j > 0; --j) {
                group.entries.push_back({u"text%1"_s.arg(j), key(), u"c"_s, u"d"_s, j});
            }
            groups.push_back(group);
        }
        m_host.questions.markGroups = groups;
        m_data.GetIssueFilterData(0, 0, 0, m_arg, m_entries);
        KX_DATA::ShownIssueMarks selection;
        for (int i = Roll(m_dice, 12); i > 0; --i) {
            selection[key()] = 1;
        }
        std::vector<KX_DATA::IssueMarkGroup> expected;
        for (const auto& [ticked, value] : selection) {
            bool found = false;
            for (const KX_DATA::IssueMarkGroup& group : groups) {
                for (const KX_DATA::IssueMarkEntry& entry : group.entries) {
                    if (!found && entry.itemKey == ticked) {
                        expected.push_back({group.name, group.id, group.count, {entry}});
                        found = true;
                    }
                }
            }
        }
        std::vector<KX_DATA::IssueMarkGroup> cut;
        m_data.BuildIssueMarks(selection, cut);
        ASSERT_EQ(Dump(cut), Dump(expected)) << trial;
        m_host.Log().Clear();
    }
}

TEST_F(PlainCutTest, MarksWithManyKindsOfLeavesAreCutLikeOthers) {
    KX_DATA::PicMarkGroup group{"floor0", 0, {}};
    for (int i = 0; i < 60; ++i) {
        KX_DATA::PicMarkItem item{"key", "item0", "c", "d", "e", 0, 0, {}};
        for (int mark = 0; mark < 3; ++mark) {
            item.leaves.push_back(
                {"t" + std::to_string(i % (20 + mark)), "u", mark, i, u"mark%1"_s.arg(mark)});
        }
        group.items.push_back(item);
    }
    m_host.pics.markGroups = {group};
    m_data.GetPicFilterData(0, 0, 0, m_arg, m_entries);
    const KX_DATA::ShownPicMarks selection = {{"floor0", {{SecondLevel(0), {{0, {}}, {2, {}}}}}}};
    std::vector<KX_DATA::PicMarkGroup> cut;
    m_data.BuildPicMarks(selection, cut);
    EXPECT_EQ(Dump(cut), Dump(PlainCut({group}, selection)));
}
