// What is told of filings, when, and how often.
#include "host/reminders/PushChannel.h"

#include "site/IBimPhotos.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/host/reminders/TwoSites.h"
#include "tests/support/WaitFor.h"

#include <QElapsedTimer>
#include <QStringList>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TwoSites;
using support::WaitFor;

struct Channel : TwoSites {
    Channel() {
        QObject::connect(&channel, &PushChannel::Filed, [this](const site::Filings& filings) {
            ++portions;
            for (const site::Filing& filing : filings) {
                told << filing.name;
                byOthers << (filing.byThisSite ? 0 : 1);
            }
        });
        QObject::connect(&channel, &PushChannel::Failed,
                         [this](const QString& text) { failures << text; });
    }
    PushChannel channel{session.Site()};
    QStringList told;
    QStringList failures;
    QList<int> byOthers;
    int portions = 0;
};

TEST(PushChannel, WhatWasThereBeforeIsNoNews) {
    TwoSites sites;
    TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"before.jpg"_s);
    PushChannel channel(sites.session.Site());
    QStringList told;
    QObject::connect(&channel, &PushChannel::Filed, [&](const site::Filings& filings) {
        for (const site::Filing& filing : filings) {
            told << filing.name;
        }
    });
    TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"after.jpg"_s);
    ASSERT_TRUE(WaitFor([&] { return !told.isEmpty(); }));
    EXPECT_EQ(told, QStringList{u"after.jpg"_s});
}

TEST(PushChannel, AnothersFilingIsToldWithinTwoSeconds) {
    Channel sites;
    QElapsedTimer since;
    since.start();
    TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"a.jpg"_s);
    ASSERT_TRUE(WaitFor([&] { return sites.told.size() == 1; }, std::chrono::seconds(2)));
    EXPECT_EQ(sites.byOthers, QList<int>{1});
}

TEST(PushChannel, AllComeOnceInTheOrderOfTheirCommits) {
    Channel sites;
    QStringList filed;
    for (int at = 0; at < 60; ++at) {
        site::IIntake& into = at % 3 == 0 ? *sites.own : *sites.theirs;
        const QString name = u"%1"_s.arg(at);
        if (at % 2 == 0) {
            TwoSites::FilePhoto(into, at % 4 == 0 ? sites.ppid : sites.otherPpid, name);
        } else {
            TwoSites::FileIssue(into, sites.ppid, name);
        }
        filed << name;
        if (at % 7 == 0) {
            support::RunPendingEvents();
        }
    }
    ASSERT_TRUE(WaitFor([&] { return sites.told.size() >= filed.size(); }));
    support::RunPendingEvents();
    EXPECT_EQ(sites.told, filed);
    for (int at = 0; at < 60; ++at) {
        EXPECT_EQ(sites.byOthers[at], at % 3 == 0 ? 0 : 1) << at;
    }
}

TEST(PushChannel, VeryManyComeInPortions) {
    Channel sites;
    sites.theirs->BeginBatch();
    for (int at = 0; at < 450; ++at) {
        TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"%1"_s.arg(at));
    }
    sites.theirs->CommitBatch();
    ASSERT_TRUE(WaitFor([&] { return sites.told.size() == 450; }));
    EXPECT_EQ(sites.portions, 9) << "the window stays alive between them";
    EXPECT_EQ(sites.told.front(), u"0"_s);
    EXPECT_EQ(sites.told.back(), u"449"_s);
}

TEST(PushChannel, AnEditIsNoFiling) {
    Channel sites;
    const qint32 picId = TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"a.jpg"_s);
    ASSERT_TRUE(WaitFor([&] { return sites.told.size() == 1; }));
    sites.other.site->BimPhotos().SetStatus(sites.ppid, {picId}, 1);
    TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"b.jpg"_s);
    ASSERT_TRUE(WaitFor([&] { return sites.told.size() == 2; }));
    EXPECT_EQ(sites.told, (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
}

TEST(PushChannel, AReadThatFailsIsToldOnceAndLosesNothing) {
    Channel sites;
    const auto database = [&]() -> site::Database& {
        return static_cast<site::SqliteSite&>(sites.session.Site()).Folder().Db();
    };
    database().Exec(u"ALTER TABLE issue RENAME TO issue_away"_s);
    TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"a.jpg"_s);
    database().Exec(u"ALTER TABLE bim_photo RENAME TO photo_away"_s);
    ASSERT_TRUE(WaitFor([&] { return !sites.failures.isEmpty(); }));
    EXPECT_TRUE(sites.told.isEmpty());
    database().Exec(u"ALTER TABLE photo_away RENAME TO bim_photo"_s);
    database().Exec(u"ALTER TABLE issue_away RENAME TO issue"_s);
    ASSERT_TRUE(WaitFor([&] { return sites.told.size() == 1; }));
    EXPECT_EQ(sites.failures.size(), 1);
}

TEST(PushChannel, AtRestNothingIsAsked) {
    Channel sites;
    TwoSites::FilePhoto(*sites.theirs, sites.ppid, u"a.jpg"_s);
    ASSERT_TRUE(WaitFor([&] { return sites.told.size() == 1; }));
    // The looks after a commit have an end; behind them there is none.
    QElapsedTimer rest;
    auto& database = static_cast<site::SqliteSite&>(sites.session.Site()).Folder().Db();
    qint64 statements = database.StatementsRun();
    rest.start();
    EXPECT_TRUE(WaitFor(
        [&] {
            if (database.StatementsRun() != statements) {
                statements = database.StatementsRun();
                rest.restart();
            }
            return rest.hasExpired(3000);
        },
        std::chrono::seconds(15)));
}

} // namespace
} // namespace host
