#include "host/ui/MessageList.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(MessageList, ShowsTheNewestFirst) {
    MessageList list;
    list.Add(MessageKind::Info, u"一"_s);
    list.Add(MessageKind::Error, u"二"_s);
    ASSERT_EQ(list.All().size(), 2U);
    EXPECT_EQ(list.All()[0].text, u"二"_s);
    EXPECT_EQ(list.All()[0].kind, MessageKind::Error);
}

TEST(MessageList, CountsAMessageThatIsSaidAgain) {
    MessageList list;
    list.Add(MessageKind::Warning, u"查询失败"_s);
    list.Add(MessageKind::Warning, u"查询失败"_s);
    list.Add(MessageKind::Warning, u"查询失败"_s);
    ASSERT_EQ(list.All().size(), 1U);
    EXPECT_EQ(MessageLine(list.All()[0]), u"查询失败（共 3 次）"_s);
    list.Add(MessageKind::Error, u"查询失败"_s);
    EXPECT_EQ(list.All().size(), 2U);
    EXPECT_EQ(MessageLine(list.All()[0]), u"查询失败"_s);
}

TEST(MessageList, AMessageIsNeverTakenForAPlaceholder) {
    EXPECT_EQ(MessageLine({MessageKind::Info, u"%2.jpg"_s, 2}), u"%2.jpg（共 2 次）"_s);
}

TEST(MessageList, DropsTheOldestBeyondItsSize) {
    MessageList list;
    for (int number = 0; number <= MessageList::kMost; ++number) {
        list.Add(MessageKind::Info, QString::number(number));
    }
    ASSERT_EQ(int(list.All().size()), MessageList::kMost);
    EXPECT_EQ(list.All().back().text, u"1"_s);
}

TEST(MessageList, RemovesWhatIsThereAndIgnoresWhatIsnt) {
    MessageList list;
    list.Add(MessageKind::Info, u"一"_s);
    list.Add(MessageKind::Info, u"二"_s);
    list.Remove(5);
    list.Remove(-1);
    EXPECT_EQ(list.All().size(), 2U);
    list.Remove(0);
    ASSERT_EQ(list.All().size(), 1U);
    EXPECT_EQ(list.All()[0].text, u"一"_s);
}

TEST(MessageList, WhatNoLongerHoldsIsTakenBackByHowItBegins) {
    MessageList list;
    list.Add(MessageKind::Error, u"查询失败：一"_s);
    list.Add(MessageKind::Error, u"删除失败：一"_s);
    list.Add(MessageKind::Error, u"查询失败：二"_s);
    EXPECT_FALSE(list.RemoveBeginning(u"修改失败："_s));
    EXPECT_TRUE(list.RemoveBeginning(u"查询失败："_s));
    ASSERT_EQ(list.All().size(), 1U);
    EXPECT_EQ(list.All()[0].text, u"删除失败：一"_s);
}

} // namespace
} // namespace host
