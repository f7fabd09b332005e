#include "site/IBimPhotos.h"
#include "site/ICatalogue.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <chrono>
#include <thread>

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;
using std::chrono::milliseconds;

/// Counts so far that nobody waits for its end.
const QString kEndless = u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)"
                         " SELECT count(*) FROM n WHERE i < 0"_s;

Fault FaultOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const DataError& error) {
        return error.GetFault();
    }
    ADD_FAILURE() << "it came to an end";
    return Fault::Other;
}

TEST(Limits, AQuestionPastItsDeadlineEndsAndTheNextOneIsAnswered) {
    TempSite temp;
    SqliteSite site(temp.folder);
    {
        const Within within(site, {milliseconds(50), {}});
        EXPECT_EQ(FaultOf([&] { (void)temp.folder.Db().Value(kEndless); }), Fault::TooSlow);
        EXPECT_TRUE(site.Catalogue().Projects().empty());
    }
    EXPECT_EQ(site.SetLimits({}).deadline, milliseconds(0)) << "limits outlive their scope";
}

TEST(Limits, AQuestionIsCancelledFromAnotherThread) {
    TempSite temp;
    SqliteSite site(temp.folder);
    std::stop_source stop;
    const Within within(site, {milliseconds(0), stop.get_token()});
    std::jthread other([&] { stop.request_stop(); });
    EXPECT_EQ(FaultOf([&] { (void)temp.folder.Db().Value(kEndless); }), Fault::Cancelled);
}

TEST(Limits, WhatIsCancelledInAChangeChangesNothing) {
    TempSite temp;
    SqliteSite site(temp.folder);
    std::stop_source stop;
    {
        const Within within(site, {milliseconds(0), stop.get_token()});
        const auto change = [&] {
            Transaction transaction(temp.folder.Db());
            SiteWriter(temp.folder).AddProject(u"滨江花园"_s);
            stop.request_stop();
            (void)temp.folder.Db().Value(kEndless);
            transaction.Commit();
        };
        EXPECT_EQ(FaultOf(change), Fault::Cancelled);
    }
    EXPECT_TRUE(site.Catalogue().Projects().empty());
    SiteWriter(temp.folder).AddProject(u"滨江花园"_s);
    EXPECT_EQ(site.Catalogue().Projects().size(), 1U);
}

TEST(Limits, WhatIsBeingCommittedIsNotEnded) {
    TempSite temp;
    SqliteSite site(temp.folder);
    std::stop_source stop;
    const Within within(site, {milliseconds(0), stop.get_token()});
    {
        Transaction transaction(temp.folder.Db());
        temp.folder.Db().Exec(u"INSERT INTO project (name, major) VALUES ('a', 1)"_s);
        stop.request_stop();
        transaction.Commit();
    }
    site.SetLimits({});
    EXPECT_EQ(site.Catalogue().Projects().size(), 1U);
}

TEST(Limits, WaitingForAnotherProcesssLockIsCancelledToo) {
    TempSite temp;
    SqliteSite site(temp.folder);
    DataFolder neighbour(temp.folder.Path());
    OpenOptions options;
    options.cleanUp = false;
    ASSERT_FALSE(neighbour.Open(options));
    Transaction held(neighbour.Db());
    std::stop_source stop;
    const Within within(site, {milliseconds(0), stop.get_token()});
    const auto change = [&] { SiteWriter(temp.folder).AddProject(u"滨江花园"_s); };
    EXPECT_EQ(FaultOf(change), Fault::Locked) << "after the busy timeout of half a second";
    stop.request_stop();
    EXPECT_EQ(FaultOf(change), Fault::Cancelled);
    site.SetLimits({milliseconds(20), {}});
    EXPECT_EQ(FaultOf(change), Fault::TooSlow);
}

TEST(Limits, AFaultThatComesLateIsStillItself) {
    TempSite temp;
    SqliteSite site(temp.folder);
    std::stop_source stop;
    stop.request_stop();
    const Within within(site, {milliseconds(0), stop.get_token()});
    EXPECT_EQ(FaultOf([&] { (void)temp.folder.Db().Value(u"SELECT * FROM nothing"_s); }),
              Fault::Other);
}

TEST(Limits, AScanHasItsTimeFromItsOwnBegin) {
    TempSite temp;
    SqliteSite site(temp.folder);
    const Within within(site, {milliseconds(100), {}});
    (void)site.Catalogue().Projects();
    const auto end = std::chrono::steady_clock::now() + milliseconds(150);
    while (std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
    }
    int rows = 0;
    EXPECT_NO_THROW(
        temp.folder.Db().Scan(u"SELECT 1"_s, {}, [&](const sqlite::RawRow&) { ++rows; }));
    EXPECT_EQ(rows, 1);
}

TEST(Limits, AStopIsHeardBeforeASmallQuestionAndBeforeAChange) {
    TempSite temp;
    SqliteSite site(temp.folder);
    std::stop_source stop;
    stop.request_stop();
    {
        const Within within(site, {milliseconds(0), stop.get_token()});
        EXPECT_EQ(FaultOf([&] { (void)site.Catalogue().Projects(); }), Fault::Cancelled);
        EXPECT_EQ(FaultOf([&] { (void)site.Catalogue().AddLabel(u"裂缝"_s); }), Fault::Cancelled);
    }
    EXPECT_TRUE(site.Catalogue().Labels().empty());
    EXPECT_NE(site.Catalogue().AddLabel(u"裂缝"_s), 0) << "the site works on";
}

} // namespace
} // namespace site
