// What a person is told of comments that can't be written, read or taken away, and what is
// recorded.
#include "services/Factories.h"
#include "services/IPDFDrawingMng.h"
#include "site/ICatalogue.h"
#include "site/sqlite/Database.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;
using KX_DATA::kServiceOk;

namespace {

struct ThreadSite : ServiceSite {
    ThreadSite() {
        site::NewCheckpoint made;
        made.drawingId = writer->AddDrawing(first, u"一层平面图"_s);
        made.number = 7;
        point = writer->AddCheckpoint(first, made);
    }
    qint64 Write(const QString& text) {
        KX_DATA::CheckpointComment comment;
        return GetPDFDrawingMng()->AddComment(point, text, comment) == kServiceOk
                   ? comment.commentId
                   : 0;
    }
    [[nodiscard]] QStringList Recorded() {
        QStringList actions;
        for (const site::LoggedAction& entry : session.Site().Catalogue().Actions(10)) {
            actions << entry.person + u' ' + entry.action;
        }
        return actions;
    }

    qint32 point = 0;
};

} // namespace

TEST(CommentServices, WhatIsWrittenAndTakenAwayIsRecorded) {
    ThreadSite site;
    const qint64 id = site.Write(u"li：一"_s);
    EXPECT_EQ(site.Recorded(), QStringList{u"li 发表评论"_s});
    EXPECT_TRUE(GetPDFDrawingMng()->DeleteComment(site.point, id));
    EXPECT_EQ(site.Recorded(), (QStringList{u"li 删除评论"_s, u"li 发表评论"_s}));
    EXPECT_FALSE(GetPDFDrawingMng()->DeleteComment(site.point, id));
    EXPECT_EQ(site.Recorded().size(), 2) << "what failed was not done";
}

TEST(CommentServices, WhatIsRefusedIsToldInASentence) {
    ThreadSite site;
    const qint64 id = site.Write(u"li：一"_s);
    EXPECT_EQ(site.Write(u" "_s), 0);
    ASSERT_TRUE(site.session.SignIn(u"guest"_s));
    EXPECT_FALSE(GetPDFDrawingMng()->DeleteComment(site.point, id));
    ASSERT_TRUE(site.session.SignIn(u"li"_s));
    EXPECT_TRUE(GetPDFDrawingMng()->DeleteComment(site.point, id));
    EXPECT_FALSE(GetPDFDrawingMng()->DeleteComment(site.point, id));
    ASSERT_EQ(site.messages.size(), 3U);
    EXPECT_EQ(site.messages[0], u"发表评论失败：评论没有内容，没有保存。"_s);
    EXPECT_EQ(site.messages[1],
              u"删除评论失败：这条评论是他人发表的，您没有删除他人评论的权限。"_s);
    EXPECT_TRUE(site.messages[2].startsWith(u"删除评论失败：评论："_s)) << "somebody was faster";
}

TEST(CommentServices, ACommentThatCannotBeRecordedIsWrittenAllTheSame) {
    ThreadSite site;
    support::FolderOf(site.session)
        .Db()
        .Exec(u"CREATE TRIGGER broken BEFORE INSERT ON action_log BEGIN"
              " SELECT RAISE(ABORT, 'broken'); END"_s);
    EXPECT_NE(site.Write(u"li：一"_s), 0);
    std::vector<KX_DATA::CheckpointComment> comments;
    EXPECT_EQ(GetPDFDrawingMng()->GetComments(site.point, 0, 50, comments), kServiceOk);
    EXPECT_EQ(comments.size(), 1U);
    ASSERT_EQ(site.messages.size(), 1U);
    EXPECT_TRUE(site.messages[0].startsWith(u"记录操作日志失败"_s));
}

} // namespace host
