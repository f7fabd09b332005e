// What a person has read of what others filed, over restarts and with two clients.
#include "host/reminders/CatchUp.h"

#include "site/IBin.h"
#include "site/ICatalogue.h"
#include "tests/host/reminders/TwoSites.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"

#include <QStringList>

#include <limits>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TwoSites;

constexpr qint64 kNewest = std::numeric_limits<qint64>::max();

/// Names of the page, an unread one with a star.
QStringList Listed(CatchUp& catchUp, int most = 100, qint64 before = kNewest) {
    QStringList names;
    for (const site::Filing& filing : catchUp.Page(before, most)) {
        names << filing.name + (catchUp.IsRead(filing.ppid, filing.seq) ? u""_s : u"*"_s);
    }
    return names;
}

/// As a client finds it that starts now.
QStringList ListedAtTheNextStart(TwoSites& sites) {
    CatchUp next(sites.session);
    return Listed(next);
}

void FileMany(TwoSites& sites, const QStringList& names) {
    for (const QString& name : names) {
        TwoSites::FilePhoto(*sites.theirs, sites.ppid, name);
    }
}

qint64 SeqOf(CatchUp& catchUp, const QString& name) {
    for (const site::Filing& filing : catchUp.Page(kNewest, 100)) {
        if (filing.name == name) {
            return filing.seq;
        }
    }
    ADD_FAILURE() << name.toStdString();
    return 0;
}

TEST(CatchUp, WhoNeverHadOneKnowsAllThatWasThere) {
    TwoSites sites;
    FileMany(sites, {u"old"_s});
    CatchUp catchUp(sites.session);
    EXPECT_EQ(Listed(catchUp), QStringList());
    EXPECT_EQ(catchUp.Unread(), 0);
    FileMany(sites, {u"new"_s});
    EXPECT_EQ(Listed(catchUp), QStringList{u"new*"_s});
    EXPECT_EQ(catchUp.Unread(), 1);
}

TEST(CatchUp, WhatCameWhileNoClientRanIsListedNewestFirst) {
    TwoSites sites;
    { const CatchUp earlier(sites.session); }
    FileMany(sites, {u"a"_s, u"b"_s});
    TwoSites::FileIssue(*sites.theirs, sites.ppid, u"c"_s);
    CatchUp catchUp(sites.session);
    EXPECT_EQ(Listed(catchUp), (QStringList{u"c*"_s, u"b*"_s, u"a*"_s}));
    EXPECT_EQ(catchUp.Unread(), 3);
}

TEST(CatchUp, ARestartKeepsWhatIsUnreadAndLetsGoOfWhatWasReadBefore) {
    TwoSites sites;
    {
        CatchUp catchUp(sites.session);
        FileMany(sites, {u"a"_s, u"b"_s, u"c"_s, u"d"_s});
        catchUp.MarkRead(sites.ppid, SeqOf(catchUp, u"a"_s));
        catchUp.MarkRead(sites.ppid, SeqOf(catchUp, u"c"_s));
        EXPECT_EQ(Listed(catchUp), (QStringList{u"d*"_s, u"c"_s, u"b*"_s, u"a"_s}));
        EXPECT_EQ(catchUp.Unread(), 2);
        catchUp.Keep();
    }
    EXPECT_EQ(ListedAtTheNextStart(sites), (QStringList{u"d*"_s, u"c"_s, u"b*"_s}));
}

TEST(CatchUp, WhatWasReadIsKeptByItselfAMomentLater) {
    TwoSites sites;
    CatchUp catchUp(sites.session);
    FileMany(sites, {u"a"_s, u"b"_s});
    const auto kept = [&] { return sites.session.Site().Catalogue().Setting(u"news:li"_s); };
    const QString before = kept();
    catchUp.MarkRead(sites.ppid, SeqOf(catchUp, u"b"_s));
    support::RunPendingEvents();
    EXPECT_EQ(kept(), before) << "several in a row are written once";
    EXPECT_TRUE(support::WaitFor([&] { return kept() != before; }));
    EXPECT_EQ(ListedAtTheNextStart(sites), (QStringList{u"b"_s, u"a*"_s}));
}

TEST(CatchUp, WhatCouldNotBeKeptIsKeptTheNextTime) {
    TwoSites sites;
    CatchUp catchUp(sites.session);
    FileMany(sites, {u"a"_s, u"b"_s});
    auto& database = support::FolderOf(*sites.other.site).Db();
    catchUp.MarkRead(sites.ppid, SeqOf(catchUp, u"b"_s));
    database.Exec(u"ALTER TABLE setting RENAME TO setting_away"_s);
    catchUp.Keep();
    database.Exec(u"ALTER TABLE setting_away RENAME TO setting"_s);
    catchUp.Keep();
    EXPECT_EQ(ListedAtTheNextStart(sites), (QStringList{u"b"_s, u"a*"_s}));
}

TEST(CatchUp, MarkingAllReadsAlsoWhatIsNotListedYet) {
    TwoSites sites;
    CatchUp catchUp(sites.session);
    FileMany(sites, {u"a"_s, u"b"_s, u"c"_s});
    EXPECT_EQ(Listed(catchUp, 1), QStringList{u"c*"_s});
    catchUp.MarkAllRead(sites.session.Site().Filings().Newest());
    EXPECT_EQ(catchUp.Unread(), 0);
    EXPECT_EQ(Listed(catchUp), (QStringList{u"c"_s, u"b"_s, u"a"_s})) << "still there to look at";
    catchUp.Keep();
    EXPECT_EQ(ListedAtTheNextStart(sites), QStringList());
}

TEST(CatchUp, OnesOwnIsNeitherListedNorCountedNorAfterARestart) {
    TwoSites sites;
    CatchUp catchUp(sites.session);
    FileMany(sites, {u"theirs"_s});
    TwoSites::FilePhoto(*sites.own, sites.ppid, u"own"_s);
    catchUp.TakeOwn(sites.ppid, sites.session.Site().Filings().Newest());
    FileMany(sites, {u"theirs too"_s});
    EXPECT_EQ(Listed(catchUp), (QStringList{u"theirs too*"_s, u"theirs*"_s}));
    EXPECT_EQ(catchUp.Unread(), 2);
    catchUp.Keep();
    EXPECT_EQ(ListedAtTheNextStart(sites), (QStringList{u"theirs too*"_s, u"theirs*"_s}));
}

TEST(CatchUp, PagesGoOnBehindEachOther) {
    TwoSites sites;
    CatchUp catchUp(sites.session);
    FileMany(sites, {u"a"_s, u"b"_s});
    TwoSites::FilePhoto(*sites.own, sites.ppid, u"own"_s);
    catchUp.TakeOwn(sites.ppid, sites.session.Site().Filings().Newest());
    FileMany(sites, {u"c"_s, u"d"_s});
    EXPECT_EQ(Listed(catchUp, 3), (QStringList{u"d*"_s, u"c*"_s, u"b*"_s}));
    EXPECT_EQ(Listed(catchUp, 3, SeqOf(catchUp, u"b"_s)), QStringList{u"a*"_s});
}

TEST(CatchUp, ListsTheOpenProjectsAlone) {
    TwoSites sites;
    CatchUp catchUp(sites.session);
    FileMany(sites, {u"here"_s});
    TwoSites::FilePhoto(*sites.theirs, sites.otherPpid, u"there"_s);
    EXPECT_EQ(Listed(catchUp), QStringList{u"here*"_s});
    EXPECT_EQ(catchUp.Unread(), 1);
    ASSERT_TRUE(sites.session.OpenProject(sites.otherPpid));
    EXPECT_EQ(Listed(catchUp), QStringList{u"there*"_s}) << "it waited";
    sites.session.CloseProject();
    EXPECT_EQ(Listed(catchUp), QStringList());
    EXPECT_EQ(catchUp.Unread(), 0);
}

TEST(CatchUp, AllOfOneProjectAsReadLeavesThoseOfAnotherUnread) {
    TwoSites sites;
    CatchUp catchUp(sites.session);
    FileMany(sites, {u"here"_s});
    TwoSites::FilePhoto(*sites.theirs, sites.otherPpid, u"there"_s);
    FileMany(sites, {u"here too"_s});
    catchUp.MarkAllRead(sites.session.Site().Filings().Newest());
    EXPECT_EQ(catchUp.Unread(), 0);
    catchUp.Keep();
    ASSERT_TRUE(sites.session.OpenProject(sites.otherPpid));
    EXPECT_EQ(Listed(catchUp), QStringList{u"there*"_s});
    EXPECT_EQ(catchUp.Unread(), 1);
    EXPECT_EQ(ListedAtTheNextStart(sites), QStringList{u"there*"_s});
}

TEST(CatchUp, WhatIsReadAmongFilingsOfOtherProjectsIsLetGoAtTheNextStart) {
    TwoSites sites;
    {
        CatchUp catchUp(sites.session);
        for (const QString& name : {u"a"_s, u"b"_s, u"c"_s}) {
            FileMany(sites, {name});
            TwoSites::FilePhoto(*sites.theirs, sites.otherPpid, u"x"_s + name);
        }
        TwoSites::FilePhoto(*sites.own, sites.ppid, u"own"_s);
        catchUp.TakeOwn(sites.ppid, sites.session.Site().Filings().Newest());
        catchUp.MarkRead(sites.ppid, SeqOf(catchUp, u"a"_s));
        catchUp.MarkRead(sites.ppid, SeqOf(catchUp, u"b"_s));
        catchUp.Keep();
    }
    EXPECT_EQ(ListedAtTheNextStart(sites), QStringList{u"c*"_s});
}

TEST(CatchUp, AWorksetListsItsProjectsTogether) {
    TwoSites sites;
    const qint32 workset = sites.own->AddWorkset(u"总包"_s, {sites.ppid, sites.otherPpid});
    CatchUp catchUp(sites.session);
    FileMany(sites, {u"here"_s});
    TwoSites::FilePhoto(*sites.theirs, sites.otherPpid, u"there"_s);
    catchUp.MarkAllRead(sites.session.Site().Filings().Newest());
    FileMany(sites, {u"later"_s});
    ASSERT_TRUE(sites.session.OpenWorkset(workset));
    catchUp.Begin();
    EXPECT_EQ(Listed(catchUp), (QStringList{u"later*"_s, u"there*"_s}));
    EXPECT_EQ(catchUp.Unread(), 2);
}

TEST(CatchUp, EachPersonHasOne) {
    TwoSites sites;
    {
        CatchUp catchUp(sites.session);
        ASSERT_TRUE(sites.session.SignIn(u"zhao"_s));
        const CatchUp ofZhao(sites.session);
        ASSERT_TRUE(sites.session.SignIn(u"li"_s));
        FileMany(sites, {u"a"_s});
        catchUp.MarkAllRead(sites.session.Site().Filings().Newest());
        catchUp.Keep();
    }
    ASSERT_TRUE(sites.session.SignIn(u"zhao"_s));
    EXPECT_EQ(ListedAtTheNextStart(sites), QStringList{u"a*"_s});
}

TEST(CatchUp, TwoClientsOfOnePersonAddUpWhatWasRead) {
    TwoSites sites;
    CatchUp first(sites.session);
    HostSession again;
    ASSERT_FALSE(again.Open(sites.Place()).has_value());
    ASSERT_TRUE(again.SignIn(u"li"_s));
    ASSERT_TRUE(again.OpenProject(sites.ppid));
    CatchUp second(again);
    FileMany(sites, {u"a"_s, u"b"_s, u"c"_s});
    first.MarkRead(sites.ppid, SeqOf(first, u"b"_s));
    second.MarkRead(sites.ppid, SeqOf(second, u"a"_s));
    first.Keep();
    second.Keep();
    EXPECT_EQ(ListedAtTheNextStart(sites), (QStringList{u"c*"_s}));
}

TEST(CatchUp, WhatWasDeletedIsNotListedAndComesBackFromTheBin) {
    TwoSites sites;
    CatchUp catchUp(sites.session);
    const qint32 gone = TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"gone"_s);
    FileMany(sites, {u"stays"_s});
    site::IBin& bin = sites.other.site->Bin();
    ASSERT_EQ(bin.DeleteBimPhotos({sites.ppid}, {gone}, {u"wang"_s, 0}), 1);
    EXPECT_EQ(Listed(catchUp), QStringList{u"stays*"_s});
    EXPECT_EQ(catchUp.Unread(), 1);
    ASSERT_EQ(bin.Restore({bin.List().front().id}), 1);
    EXPECT_EQ(Listed(catchUp), (QStringList{u"stays*"_s, u"gone*"_s}));
}

TEST(CatchUp, WhatIsKeptAndMakesNoSenseLosesNothing) {
    TwoSites sites;
    { const CatchUp earlier(sites.session); }
    FileMany(sites, {u"a"_s});
    sites.session.Site().Catalogue().SetSetting(u"news:li"_s, u"nonsense;;x-y"_s);
    EXPECT_EQ(ListedAtTheNextStart(sites), QStringList{u"a*"_s});
}

} // namespace
} // namespace host
