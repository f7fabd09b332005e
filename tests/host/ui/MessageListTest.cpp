#include "host/ui/MessageList.h"

#include <QStringList>

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
    list.Remove(0);
    list.Remove(99);
    EXPECT_EQ(list.All().size(), 2U);
    list.Remove(list.All()[0].id);
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

/// What befell the actions of a list, in order.
struct ToldActions {
    QStringList told;
    [[nodiscard]] MessageAction Of(const QString& name) {
        return {u"撤销"_s, u"撤销这一步"_s, [this, name] { told << u"做："_s + name; },
                [this, name] { told << u"失："_s + name; }};
    }
};

TEST(MessageActions, AreDoneOnceAndTheMessageStays) {
    ToldActions actions;
    MessageList list;
    const qint64 id = list.Add(MessageKind::Info, u"一"_s, actions.Of(u"一"_s));
    const auto work = list.TakeWork(id);
    ASSERT_TRUE(work);
    EXPECT_FALSE(list.TakeWork(id)) << "a second time";
    EXPECT_FALSE(list.TakeWork(id + 1)) << "none has this id";
    work();
    ASSERT_EQ(list.All().size(), 1U);
    EXPECT_TRUE(list.All()[0].action.caption.isEmpty());
    list.Clear();
    EXPECT_EQ(actions.told, QStringList{u"做：一"_s}) << "done, so not dropped";
}

TEST(MessageActions, KeepMessagesThatReadAlikeApart) {
    ToldActions actions;
    MessageList list;
    const qint64 first = list.Add(MessageKind::Info, u"已删除"_s, actions.Of(u"一"_s));
    const qint64 second = list.Add(MessageKind::Info, u"已删除"_s, actions.Of(u"二"_s));
    EXPECT_NE(first, second);
    ASSERT_EQ(list.All().size(), 2U);
    EXPECT_EQ(list.All()[0].times, 1);
    const qint64 plain = list.Add(MessageKind::Info, u"已删除"_s);
    EXPECT_EQ(list.All().size(), 3U);
    EXPECT_EQ(list.Add(MessageKind::Info, u"已删除"_s), plain);
    list.Add(MessageKind::Info, u"已删除"_s, actions.Of(u"三"_s));
    EXPECT_EQ(list.All().size(), 4U) << "nor is one without before one with";
}

TEST(MessageActions, AreDroppedWithTheirMessageAndTold) {
    ToldActions actions;
    MessageList list;
    list.Add(MessageKind::Info, u"滚出"_s, actions.Of(u"滚出"_s));
    const qint64 closed = list.Add(MessageKind::Info, u"关闭"_s, actions.Of(u"关闭"_s));
    list.Add(MessageKind::Info, u"收回"_s, actions.Of(u"收回"_s));
    list.Add(MessageKind::Info, u"清空"_s, actions.Of(u"清空"_s));
    EXPECT_TRUE(actions.told.isEmpty());
    list.Add(MessageKind::Info, u"又一条"_s);
    EXPECT_EQ(actions.told, QStringList{u"失：滚出"_s});
    list.Remove(closed);
    EXPECT_EQ(actions.told.last(), u"失：关闭"_s);
    EXPECT_FALSE(list.TakeWork(closed));
    list.RemoveBeginning(u"收"_s);
    EXPECT_EQ(actions.told.last(), u"失：收回"_s);
    list.Clear();
    EXPECT_EQ(actions.told.last(), u"失：清空"_s);
    EXPECT_EQ(actions.told.size(), 4);
}

} // namespace
} // namespace host
