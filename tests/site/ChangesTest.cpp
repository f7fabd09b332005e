// The feed of changes: what was changed, where, by whom, in the order of the commits.
#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/ICatalogue.h"
#include "site/IChanges.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"
#include "tests/support/WaitFor.h"

#include <QElapsedTimer>
#include <QStringList>

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

constexpr qint64 kChanged = 1'700'000'000;

/// A site with a photo, and what was told of it since.
struct FeedSite : TempSite {
    FeedSite() {
        ppid = writer.AddProject(u"滨江花园"_s);
        other = writer.AddProject(u"科技大厦"_s);
        photo = AddPhoto();
        engine.Changes().SetPerson(u"li"_s);
        Listen(engine);
    }
    qint32 AddPhoto() {
        NewBimPhoto made;
        made.ppid = ppid;
        made.fileName = u"a.jpg"_s;
        made.uploader = u"wang"_s;
        made.uploadTime = kChanged;
        return writer.FilePhoto(made, {{}, "jpeg"});
    }
    void Listen(ISite& from) {
        listening = from.Changes().Subscribe([this](const Changes& changes) {
            told.insert(told.end(), changes.begin(), changes.end());
        });
    }
    /// "kind project id person" of each, and forgets them.
    [[nodiscard]] QStringList Told() {
        QStringList lines;
        for (const Change& change : std::exchange(told, {})) {
            lines << u"%1 %2 %3 %4"_s.arg(static_cast<int>(change.kind))
                         .arg(change.ppid)
                         .arg(change.id)
                         .arg(change.person);
        }
        return lines;
    }
    [[nodiscard]] QString Line(ChangeKind kind, qint32 project, qint64 id,
                               const QString& person = u"li"_s) const {
        return u"%1 %2 %3 %4"_s.arg(static_cast<int>(kind)).arg(project).arg(id).arg(person);
    }
    void Save(ISite& on) {
        KX_DATA::BimPicUpdate update;
        update.picId = photo;
        update.fileName = u"b.jpg"_s;
        EXPECT_EQ(on.BimPhotos().Update(ppid, update, {u"zhao"_s, kChanged + 1}), Saved::Yes);
    }

    SiteWriter writer{folder};
    SqliteSite engine{folder};
    qint32 ppid = 0;
    qint32 other = 0;
    qint32 photo = 0;
    Changes told;
    std::shared_ptr<void> listening;
};

/// The same folder, opened by a second client.
struct SecondClient {
    explicit SecondClient(const FeedSite& site) : folder(site.folder.Path()) {
        EXPECT_FALSE(folder.Open({500, false}).has_value());
        engine = std::make_unique<SqliteSite>(folder);
    }
    DataFolder folder;
    std::unique_ptr<SqliteSite> engine;
};

} // namespace

TEST(Changes, OnesOwnAreToldAsTheyAreCommittedWithWhoDidThem) {
    FeedSite site;
    site.Save(site.engine);
    EXPECT_EQ(site.Told(),
              QStringList{site.Line(ChangeKind::BimPhoto, site.ppid, site.photo, u"zhao"_s)});
    site.engine.BimPhotos().SetStatus(site.ppid, {site.photo}, 1);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::BimPhoto, site.ppid, site.photo)});
    const qint32 filed = site.AddPhoto();
    EXPECT_EQ(site.Told(),
              QStringList{site.Line(ChangeKind::BimPhoto, site.ppid, filed, u"wang"_s)});
}

TEST(Changes, EveryKindOfChangeIsToldAsWhatItIs) {
    FeedSite site;
    NewCheckpoint point;
    point.drawingId = site.writer.AddDrawing(site.ppid, u"首层"_s);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Drawing, site.ppid, point.drawingId)});
    const qint32 checkpoint = site.writer.AddCheckpoint(site.ppid, point);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Checkpoint, site.ppid, checkpoint)});
    NewPdfPhoto onPoint;
    onPoint.checkpointId = checkpoint;
    onPoint.fileName = u"p.jpg"_s;
    onPoint.uploader = u"wang"_s;
    onPoint.uploadTime = kChanged;
    const qint32 pdf = site.writer.FilePdfPhoto(site.ppid, onPoint, {{}, "jpeg"});
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::PdfPhoto, site.ppid, pdf, u"wang"_s)});
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = checkpoint;
    EXPECT_EQ(site.engine.PdfPhotos().UpdateCheckpoint({site.ppid}, edit, {u"zhao"_s, kChanged}),
              Saved::Yes);
    EXPECT_EQ(site.Told(),
              QStringList{site.Line(ChangeKind::Checkpoint, site.ppid, checkpoint, u"zhao"_s)});
    NewIssue issue;
    issue.ppid = site.ppid;
    issue.creator = u"wang"_s;
    issue.createTime = kChanged;
    const QString question = site.writer.FileIssue(issue);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Issue, site.ppid, 1, u"wang"_s)});
    site.engine.Issues().SetStatus(site.ppid, {question}, 1);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Issue, site.ppid, 1)});
    site.writer.AddMark(7, u"安全"_s, 255);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Mark, 0, 7)});
    const qint32 label = site.engine.Catalogue().AddLabel(u"质量"_s);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Label, 0, label)});
    site.writer.AddFloor(site.ppid, u"3"_s);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Place, site.ppid, 0)});
    site.engine.Catalogue().SetSetting(u"a"_s, u"b"_s);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Other, 0, 0)});
}

TEST(Changes, TheBinTellsOfWhatGoesAndComesBack) {
    FeedSite site;
    ASSERT_EQ(site.engine.Bin().DeleteBimPhotos({site.ppid}, {site.photo}, {u"zhao"_s, kChanged}),
              1);
    EXPECT_EQ(site.Told(),
              QStringList{site.Line(ChangeKind::BimPhoto, site.ppid, site.photo, u"zhao"_s)});
    ASSERT_EQ(site.engine.Bin().Restore({site.engine.Bin().List().front().id}), 1);
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::BimPhoto, site.ppid, site.photo)});
}

TEST(Changes, AnotherClientsAreToldSoonWithoutAsking) {
    FeedSite site;
    SecondClient second(site);
    second.engine->Changes().SetPerson(u"zhao"_s);
    second.engine->BimPhotos().SetStatus(site.ppid, {site.photo}, 1);
    ASSERT_TRUE(support::WaitFor([&] { return !site.told.empty(); }));
    EXPECT_FALSE(site.told.front().byThisSite);
    EXPECT_EQ(site.Told(),
              QStringList{site.Line(ChangeKind::BimPhoto, site.ppid, site.photo, u"zhao"_s)});
}

TEST(Changes, AnotherClientsAreToldAtOnceWhileTheLooksOfTheOneBeforeGoOn) {
    FeedSite site;
    SecondClient second(site);
    const auto hide = [&](qint32 status) {
        second.engine->BimPhotos().SetStatus(site.ppid, {site.photo}, status);
    };
    hide(1);
    ASSERT_TRUE(support::WaitFor([&] { return !site.Told().isEmpty(); }));
    QElapsedTimer clock;
    clock.start();
    constexpr int kIntoTheLongWait = 900;
    ASSERT_TRUE(support::WaitFor([&] { return clock.hasExpired(kIntoTheLongWait); }));
    hide(0);
    clock.restart();
    ASSERT_TRUE(support::WaitFor([&] { return !site.told.empty(); }));
    EXPECT_LT(clock.elapsed(), 1000);
}

TEST(Changes, ManyOfTwoClientsAtOnceAllComeOnceAndInOrder) {
    FeedSite site;
    SecondClient second(site);
    for (int i = 0; i < 40; ++i) {
        ISite& on = i % 2 == 0 ? static_cast<ISite&>(site.engine) : *second.engine;
        on.BimPhotos().SetStatus(site.ppid, {site.photo}, i % 3 == 0 ? 1 : 0);
    }
    ASSERT_TRUE(support::WaitFor([&] { return site.told.size() >= 40; }));
    EXPECT_EQ(site.told.size(), 40U);
    for (std::size_t i = 0; i < site.told.size(); ++i) {
        EXPECT_EQ(site.told[i].byThisSite, i % 2 == 0);
        EXPECT_EQ(site.told[i].seq, site.told[0].seq + static_cast<qint64>(i));
    }
}

TEST(Changes, WhatIsUndoneIsNotTold) {
    FeedSite site;
    {
        const Transaction undone(site.folder.Db());
        site.engine.BimPhotos().SetStatus(site.ppid, {site.photo}, 1);
    }
    site.engine.Changes().Look();
    EXPECT_EQ(site.Told(), QStringList());
    site.AddPhoto();
    EXPECT_EQ(site.Told().size(), 1);
}

TEST(Changes, ACommitThatChangesNothingIsNotTold) {
    FeedSite site;
    EXPECT_EQ(site.engine.BimPhotos().SetStatus(site.ppid, {site.photo + 100}, 1), 0);
    EXPECT_EQ(site.Told(), QStringList());
    site.AddPhoto();
    EXPECT_EQ(site.Told().size(), 1);
}

TEST(Changes, ARestartGoesOnFromItsMark) {
    FeedSite site;
    const qint64 mark = site.engine.Changes().Mark();
    site.Save(site.engine);
    site.AddPhoto();
    SecondClient later(site);
    const IChanges::Past past = later.engine->Changes().Since(mark, 100);
    EXPECT_TRUE(past.complete);
    ASSERT_EQ(past.changes.size(), 2U);
    EXPECT_EQ(past.changes[0].person, u"zhao"_s);
    EXPECT_EQ(past.changes[1].person, u"wang"_s);
    EXPECT_EQ(later.engine->Changes().Since(mark, 1).changes.size(), 1U);
    EXPECT_EQ(later.engine->Changes().Mark(), past.changes[1].seq);
    EXPECT_TRUE(later.engine->Changes().Since(past.changes[1].seq, 100).changes.empty());
}

TEST(Changes, AMarkThatIsNoLongerKnownSaysSo) {
    FeedSite site;
    const qint64 mark = site.engine.Changes().Mark();
    site.AddPhoto();
    site.AddPhoto();
    EXPECT_TRUE(site.engine.Changes().Since(mark, 100).complete);
    EXPECT_FALSE(site.engine.Changes().Since(mark + 1000, 100).complete) << "of another site";
    site.folder.Db().Exec(u"DELETE FROM change WHERE seq <= ?"_s, {mark + 1});
    EXPECT_FALSE(site.engine.Changes().Since(mark, 100).complete);
    EXPECT_TRUE(site.engine.Changes().Since(mark + 1, 100).complete);
    site.folder.Db().Exec(u"DELETE FROM change"_s);
    EXPECT_FALSE(site.engine.Changes().Since(mark + 1, 100).complete);
    EXPECT_TRUE(site.engine.Changes().Since(mark + 2, 100).complete);
}

TEST(Changes, VeryManyOfOneCommitAreOneLine) {
    FeedSite site;
    site.writer.BeginBatch();
    for (int i = 0; i < 250; ++i) {
        site.AddPhoto();
    }
    site.writer.CommitBatch();
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::BimPhoto, site.ppid, 0, u"wang"_s)});
}

TEST(Changes, ARecordThatOneCommitChangesTwiceIsToldOnce) {
    FeedSite site;
    Transaction both(site.folder.Db());
    site.engine.BimPhotos().SetStatus(site.ppid, {site.photo}, 1);
    site.engine.BimPhotos().SetStatus(site.ppid, {site.photo}, 0);
    both.Commit();
    EXPECT_EQ(site.Told().size(), 1);
}

TEST(Changes, WhatNobodyNotedIsAnything) {
    FeedSite site;
    SecondClient tool(site);
    tool.folder.Db().Exec(u"UPDATE bim_photo SET name = 'x'"_s);
    site.engine.Changes().Look();
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Anything, 0, 0, {})});
    site.folder.Db().Exec(u"UPDATE bim_photo SET name = 'y'"_s);
    site.engine.Changes().Look();
    EXPECT_EQ(site.Told(), QStringList{site.Line(ChangeKind::Anything, 0, 0, {})});
    site.engine.Changes().Look();
    EXPECT_EQ(site.Told(), QStringList());
}

TEST(Changes, WhoListensNoLongerIsNotTold) {
    FeedSite site;
    site.listening.reset();
    site.AddPhoto();
    EXPECT_EQ(site.Told(), QStringList());
}

TEST(Changes, AQuestionOfAListenerIsAnswered) {
    FeedSite site;
    qint64 newest = 0;
    const auto asking = site.engine.Changes().Subscribe([&](const Changes&) {
        site.engine.Changes().Look();
        newest = site.engine.Changes().Mark();
    });
    site.AddPhoto();
    EXPECT_EQ(site.told.size(), 1U);
    EXPECT_EQ(newest, site.told.front().seq);
}

TEST(Changes, VeryOldLinesAreForgottenAtAnOpening) {
    FeedSite site;
    site.folder.Db().Exec(u"INSERT INTO change VALUES (300000, 1, 1, 1, '', 0)"_s);
    SecondClient keeps(site);
    EXPECT_GT(site.folder.Db().Value(u"SELECT count(*) FROM change"_s).toInt(), 1);
    DataFolder cleans(site.folder.Path());
    ASSERT_FALSE(cleans.Open().has_value());
    EXPECT_EQ(site.folder.Db().Value(u"SELECT min(seq) FROM change"_s).toInt(), 300000);
}

TEST(Changes, WhileAnotherClientWritesAnOpeningForgetsNothing) {
    FeedSite site;
    site.folder.Db().Exec(u"INSERT INTO change VALUES (300000, 1, 1, 1, '', 0)"_s);
    const Transaction writing(site.folder.Db());
    DataFolder second(site.folder.Path());
    const auto fault = second.Open({100, true});
    EXPECT_FALSE(fault.has_value()) << fault->text.toStdString();
    EXPECT_GT(site.folder.Db().Value(u"SELECT count(*) FROM change"_s).toInt(), 1);
}

TEST(Changes, AListenerThatFailsKeepsNobodyFromBeingTold) {
    FeedSite site;
    site.listening.reset();
    const auto failing = site.engine.Changes().Subscribe(
        [](const Changes&) { throw DataError(Fault::Other, u"x"_s); });
    site.Listen(site.engine);
    site.AddPhoto();
    EXPECT_EQ(site.told.size(), 1U);
    site.AddPhoto();
    EXPECT_EQ(site.told.size(), 2U) << "nor the next time";
}

TEST(Changes, AtRestNothingIsAsked) {
    FeedSite site;
    site.AddPhoto();
    const auto pass = [](int milliseconds) {
        QElapsedTimer timer;
        timer.start();
        EXPECT_TRUE(support::WaitFor([&] { return timer.elapsed() >= milliseconds; }));
    };
    pass(3200); // the looks behind a commit
    const qint64 before = site.folder.Db().StatementsRun();
    pass(2500); // longer than the time between looks where no file can be watched
    EXPECT_EQ(site.folder.Db().StatementsRun(), before);
}

TEST(Changes, ALookWithoutNewsIsOneStatement) {
    FeedSite site;
    site.engine.Changes().Look();
    const qint64 before = site.folder.Db().StatementsRun();
    site.engine.Changes().Look();
    EXPECT_EQ(site.folder.Db().StatementsRun() - before, 1);
}

} // namespace site
