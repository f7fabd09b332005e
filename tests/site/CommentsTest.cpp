// Comments on checkpoints: order, who may take them away, what the feed and others see of them.
#include "site/IComments.h"

#include "site/IChanges.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"
#include "tests/support/WaitFor.h"

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

constexpr qint64 kWrittenAt = 1'700'000'000;

/// Two checkpoints of the first of two projects.
struct CommentSite : TempSite {
    CommentSite() {
        SiteWriter writer(folder);
        ppid = writer.AddProject(u"滨江花园"_s);
        other = writer.AddProject(u"科技大厦"_s);
        NewCheckpoint made;
        made.drawingId = writer.AddDrawing(ppid, u"首层"_s);
        made.number = 1;
        point = writer.AddCheckpoint(ppid, made);
        made.number = 2;
        otherPoint = writer.AddCheckpoint(ppid, made);
    }
    qint64 Write(const QString& text, const QString& person = u"li"_s) {
        const auto written = engine.Comments().Add({ppid}, point, text, {person, kWrittenAt});
        return written ? written->id : 0;
    }
    [[nodiscard]] QStringList TextsOf(IComments& from) {
        QStringList texts;
        const auto page = from.PageOf({ppid}, point, 0, 1000);
        for (const Comment& comment : *page) {
            texts << comment.text;
        }
        return texts;
    }
    [[nodiscard]] QStringList Texts() { return TextsOf(engine.Comments()); }
    /// The sentence with which a text is refused; nothing was written then.
    [[nodiscard]] QString RefusalOf(const QString& text) {
        try {
            (void)Write(text);
            ADD_FAILURE() << "written";
        } catch (const DataError& error) {
            EXPECT_EQ(error.GetFault(), Fault::Refused);
            EXPECT_TRUE(Texts().isEmpty());
            return error.Text();
        }
        return {};
    }

    SqliteSite engine{folder};
    qint32 ppid = 0;
    qint32 other = 0;
    qint32 point = 0;
    qint32 otherPoint = 0;
};

/// The same folder, opened by a second client.
struct AnotherClient {
    explicit AnotherClient(const CommentSite& site) : folder(site.folder.Path()) {
        EXPECT_FALSE(folder.Open({500, false}).has_value());
        engine = std::make_unique<SqliteSite>(folder);
    }
    DataFolder folder;
    std::unique_ptr<SqliteSite> engine;
};

} // namespace

TEST(Comments, KnowWhoWroteThemAndWhenAndStandInTheOrderOfWriting) {
    CommentSite site;
    site.Write(u"li：一"_s);
    const auto written =
        site.engine.Comments().Add({site.ppid}, site.point, u"wang：二"_s, {u"wang"_s, 5});
    ASSERT_TRUE(written);
    EXPECT_EQ(written->at, 5) << "an earlier clock doesn't come first";
    const auto page = site.engine.Comments().PageOf({site.ppid}, site.point, 0, 50);
    ASSERT_EQ(page->size(), 2U);
    EXPECT_EQ(page->at(0).at, kWrittenAt);
    EXPECT_EQ(page->at(1).id, written->id);
    EXPECT_EQ(page->at(1).person, u"wang"_s);
    EXPECT_EQ(page->at(1).text, u"wang：二"_s);
}

TEST(Comments, ATextIsRefusedWithASentenceWhereItSaysNothingOrVeryMuch) {
    CommentSite site;
    EXPECT_TRUE(site.RefusalOf(u" \n　"_s).contains(u"没有内容"_s));
    EXPECT_TRUE(site.RefusalOf(QString(kMostCommentText + 1, u'x')).contains(u"4001"_s));
    EXPECT_NE(site.Write(QString(kMostCommentText, u'x')), 0);
}

TEST(Comments, ANullCharacterIsKeptAsAnyOther) {
    CommentSite site;
    const QString text = u"li：a"_s + QChar(0) + u"b"_s;
    site.Write(text);
    EXPECT_EQ(site.Texts(), QStringList{text});
}

TEST(Comments, NumbersOfPagesThatMakeNoSenseAreEmptyPages) {
    CommentSite site;
    site.Write(u"li：一"_s);
    IComments& comments = site.engine.Comments();
    for (const auto& [page, size] : std::vector<std::pair<int, int>>{
             {-1, 50}, {0, 0}, {0, -1}, {std::numeric_limits<int>::max(), 50}}) {
        EXPECT_TRUE(comments.PageOf({site.ppid}, site.point, page, size)->empty()) << page;
    }
}

TEST(Comments, WhoReadsPageAfterPageGetsEachOnceThoughSomeAreRemovedMeanwhile) {
    CommentSite site;
    std::vector<qint64> ids;
    for (int at = 0; at < 5; ++at) {
        ids.push_back(site.Write(u"li：%1"_s.arg(at)));
    }
    IComments& comments = site.engine.Comments();
    const auto page = [&](int number) {
        std::vector<qint64> read;
        const auto some = comments.PageOf({site.ppid}, site.point, number, 2);
        for (const Comment& comment : *some) {
            read.push_back(comment.id);
        }
        return read;
    };
    EXPECT_EQ(page(0), std::vector({ids[0], ids[1]}));
    const Signature by{u"li"_s, kWrittenAt};
    EXPECT_EQ(comments.Remove({site.ppid}, site.point, ids[0], by, CommentsOf::Author),
              Removed::Yes);
    EXPECT_EQ(page(1), std::vector({ids[2], ids[3]}));
    EXPECT_EQ(page(2), std::vector({ids[4]}));
    EXPECT_EQ(page(1), std::vector({ids[3], ids[4]}))
        << "a page that isn't the next one is counted";
    EXPECT_EQ(page(0), std::vector({ids[1], ids[2]}));
    EXPECT_TRUE(comments.PageOf({site.ppid}, site.otherPoint, 1, 2)->empty());
}

TEST(Comments, OfAnotherProjectAreAsUnknownAsTheirCheckpoint) {
    CommentSite site;
    const qint64 id = site.Write(u"li：一"_s);
    IComments& comments = site.engine.Comments();
    const Signature by{u"li"_s, kWrittenAt};
    EXPECT_FALSE(comments.PageOf({site.other}, site.point, 0, 50));
    EXPECT_FALSE(comments.Add({site.other}, site.point, u"li：二"_s, by));
    EXPECT_EQ(comments.Remove({site.other}, site.point, id, by, CommentsOf::Anyone), Removed::Gone);
    EXPECT_EQ(comments.Remove({site.ppid}, site.otherPoint, id, by, CommentsOf::Anyone),
              Removed::Gone);
    EXPECT_EQ(site.Texts(), QStringList{u"li：一"_s});
}

TEST(Comments, AnAuthorTakesTheirOwnAwayAndWhoMayTakesAnyones) {
    CommentSite site;
    const qint64 id = site.Write(u"li：一"_s);
    IComments& comments = site.engine.Comments();
    const Signature wang{u"wang"_s, kWrittenAt};
    EXPECT_EQ(comments.Remove({site.ppid}, site.point, id, wang, CommentsOf::Author),
              Removed::NotTheirs);
    EXPECT_EQ(site.Texts().size(), 1);
    EXPECT_EQ(comments.Remove({site.ppid}, site.point, id, wang, CommentsOf::Anyone), Removed::Yes);
    EXPECT_TRUE(site.Texts().isEmpty());
    EXPECT_EQ(comments.Remove({site.ppid}, site.point, id, wang, CommentsOf::Anyone),
              Removed::Gone);
}

TEST(Comments, GoWithTheirCheckpoint) {
    CommentSite site;
    site.Write(u"li：一"_s);
    site.folder.Db().Exec(u"DELETE FROM checkpoint WHERE id = ?"_s, {site.point});
    EXPECT_EQ(site.folder.Db().Value(u"SELECT count(*) FROM comment"_s).toInt(), 0);
    EXPECT_FALSE(site.engine.Comments().PageOf({site.ppid}, site.point, 0, 50));
}

TEST(Comments, WhatOneClientWritesAndTakesAwayAnotherIsToldAndReads) {
    CommentSite site;
    const AnotherClient second(site);
    Changes told;
    const auto listening = second.engine->Changes().Subscribe(
        [&](const Changes& changes) { told.insert(told.end(), changes.begin(), changes.end()); });
    const qint64 id = site.Write(u"li：一"_s);
    ASSERT_TRUE(support::WaitFor([&] { return !told.empty(); }));
    EXPECT_EQ(told.front().kind, ChangeKind::Comment);
    EXPECT_EQ(told.front().ppid, site.ppid);
    EXPECT_EQ(told.front().id, site.point) << "a viewer knows its checkpoint";
    EXPECT_EQ(told.front().person, u"li"_s);
    EXPECT_EQ(site.TextsOf(second.engine->Comments()), QStringList{u"li：一"_s});
    told.clear();
    const Signature by{u"li"_s, kWrittenAt};
    EXPECT_EQ(second.engine->Comments().Remove({site.ppid}, site.point, id, by, CommentsOf::Author),
              Removed::Yes);
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(site.engine.Comments().Remove({site.ppid}, site.point, id, by, CommentsOf::Author),
              Removed::Gone)
        << "both wanted it";
}

TEST(Comments, AFaultInTheMiddleChangesNothing) {
    CommentSite site;
    const qint64 id = site.Write(u"li：一"_s);
    site.folder.Db().Exec(u"CREATE TRIGGER broken BEFORE INSERT ON change BEGIN"
                          " SELECT RAISE(ABORT, 'broken'); END"_s);
    EXPECT_THROW(site.Write(u"li：二"_s), DataError);
    EXPECT_THROW((void)site.engine.Comments().Remove({site.ppid}, site.point, id, {u"li"_s, 0},
                                                     CommentsOf::Author),
                 DataError);
    EXPECT_EQ(site.Texts(), QStringList{u"li：一"_s});
}

} // namespace site
