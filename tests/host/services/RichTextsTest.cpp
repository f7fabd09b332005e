// What a person is told of records of places that can't be saved, and what is recorded.
#include "services/Factories.h"
#include "services/IRichTextMsgMng.h"
#include "site/ICatalogue.h"
#include "site/sqlite/Database.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

struct RecordSite : ServiceSite {
    RecordSite() {
        site::NewCheckpoint made;
        made.drawingId = writer->AddDrawing(first, u"首层"_s);
        made.number = 4;
        key.objectType = 2;
        key.ownerId = writer->AddCheckpoint(first, made);
    }
    bool Save(const QString& state, const std::vector<KX_DATA::RichAttachment>& added = {}) {
        return GetRichTextMsgMng()->SaveRichText(state, {}, key, {}, added);
    }
    [[nodiscard]] QStringList Recorded() {
        QStringList actions;
        for (const site::LoggedAction& entry : session.Site().Catalogue().Actions(10)) {
            actions << entry.person + u' ' + entry.action;
        }
        return actions;
    }

    KX_DATA::RichTextKey key;
};

} // namespace

TEST(RichTextServices, ASaveIsRecordedAndWhatFailedIsNot) {
    RecordSite site;
    EXPECT_TRUE(site.Save(u"整改中"_s));
    EXPECT_EQ(site.Recorded(), QStringList{u"li 保存富文本“首层 检查点4”"_s});
    EXPECT_FALSE(site.Save(u"完成"_s));
    EXPECT_EQ(site.Recorded().size(), 1);
}

TEST(RichTextServices, WhatIsRefusedIsToldInASentence) {
    RecordSite site;
    EXPECT_FALSE(site.Save(u"完成"_s));
    EXPECT_FALSE(site.Save(u"整改中"_s, {{u"../图.png"_s, {}, u"nowhere"_s, 0, 3}}));
    EXPECT_FALSE(site.Save(u"整改中"_s, {{u"图.png"_s, {}, u"nowhere"_s, 0, 3}}));
    site.key.ownerId = 4711;
    EXPECT_FALSE(site.Save(u"整改中"_s));
    ASSERT_EQ(site.messages.size(), 4U);
    EXPECT_EQ(site.messages[0], u"保存富文本失败：整改情况不是已有的状态，没有保存富文本。"_s);
    EXPECT_TRUE(site.messages[1].contains(u"“../图.png”不能用作文件名"_s));
    EXPECT_EQ(site.messages[2],
              u"保存富文本失败：文件“图.png”不在站点中，没有保存富文本；请重新上传。"_s);
    EXPECT_TRUE(site.messages[3].startsWith(u"保存富文本失败：富文本的位置："_s))
        << site.messages[3].toStdString();
}

TEST(RichTextServices, ASaveThatCannotBeRecordedIsSavedAllTheSame) {
    RecordSite site;
    support::FolderOf(site.session)
        .Db()
        .Exec(u"CREATE TRIGGER broken BEFORE INSERT ON action_log BEGIN"
              " SELECT RAISE(ABORT, 'broken'); END"_s);
    EXPECT_TRUE(site.Save(u"整改中"_s));
    KX_DATA::RichTextMsg message;
    std::vector<KX_DATA::RichAttachment> attachments;
    ASSERT_TRUE(GetRichTextMsgMng()->GetRichText(site.key, message, attachments));
    EXPECT_EQ(message.stateText, u"整改中"_s);
    ASSERT_EQ(site.messages.size(), 1U);
    EXPECT_TRUE(site.messages[0].startsWith(u"记录操作日志失败："_s));
}

} // namespace host
