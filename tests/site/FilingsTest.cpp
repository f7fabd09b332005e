// What was filed lately: which, in which order, by which client.
#include "site/IBin.h"
#include "site/IFilings.h"
#include "site/IIntake.h"
#include "site/OpenSite.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <QStringList>

#include <functional>

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

constexpr qint64 kFiled = 1'700'000'000;
constexpr int kAll = 1000;

/// A site with two projects, open twice: as this client, and as another's.
struct FilingSite : TempSite {
    FilingSite() {
        EXPECT_NE(other.site, nullptr);
        ppid = intake->AddProject(u"滨江花园"_s);
        otherPpid = intake->AddProject(u"科技大厦"_s);
        label = intake->AddLabel(u"渗漏"_s);
        secondLabel = intake->AddLabel(u"裂缝"_s);
        position = intake->AddPosition({ppid, u"3层"_s, u"A"_s, u"5"_s, {}, true});
    }
    [[nodiscard]] static NewBimPhoto Photo(qint32 project, const QString& name) {
        NewBimPhoto photo;
        photo.ppid = project;
        photo.fileName = name;
        photo.uploader = u"wang"_s;
        photo.uploadTime = kFiled;
        return photo;
    }
    [[nodiscard]] static NewIssue Issue(qint32 project, const QString& theme) {
        NewIssue issue;
        issue.ppid = project;
        issue.theme = theme;
        issue.creator = u"zhao"_s;
        issue.createTime = kFiled;
        return issue;
    }
    static qint32 FilePhoto(IIntake& into, qint32 project, const QString& name) {
        return into.FilePhoto(Photo(project, name), {{}, "jpeg"});
    }

    SqliteSite engine{folder};
    OpenedSite other = OpenSite(dir.path() + u"/site"_s, {500, false});
    std::unique_ptr<IIntake> intake = engine.NewIntake();
    qint32 ppid = 0;
    qint32 otherPpid = 0;
    qint32 label = 0;
    qint32 secondLabel = 0;
    QString position;
};

QStringList Names(const Filings& filings) {
    QStringList names;
    for (const Filing& filing : filings) {
        names << filing.name;
    }
    return names;
}

TEST(Filings, AnEmptySiteHasNone) {
    FilingSite site;
    EXPECT_EQ(site.engine.Filings().Newest(), 0);
    const IFilings::Next next = site.engine.Filings().After(0, kAll);
    EXPECT_TRUE(next.filings.empty());
    EXPECT_EQ(next.mark, 0);
}

TEST(Filings, PhotosAndIssuesComeInTheOrderOfTheirCommits) {
    FilingSite site;
    FilingSite::FilePhoto(*site.intake, site.ppid, u"a.jpg"_s);
    site.intake->FileIssue(FilingSite::Issue(site.ppid, u"b"_s));
    FilingSite::FilePhoto(*site.other.site->NewIntake(), site.otherPpid, u"c.jpg"_s);
    site.intake->FileIssue(FilingSite::Issue(site.ppid, u"d"_s));
    const IFilings::Next next = site.engine.Filings().After(0, kAll);
    EXPECT_EQ(Names(next.filings), (QStringList{u"a.jpg"_s, u"b"_s, u"c.jpg"_s, u"d"_s}));
    EXPECT_EQ(next.mark, site.engine.Filings().Newest());
}

TEST(Filings, EachSaysWhichClientFiledIt) {
    FilingSite site;
    FilingSite::FilePhoto(*site.intake, site.ppid, u"own.jpg"_s);
    FilingSite::FilePhoto(*site.other.site->NewIntake(), site.ppid, u"theirs.jpg"_s);
    const Filings filings = site.engine.Filings().After(0, kAll).filings;
    ASSERT_EQ(filings.size(), 2U);
    EXPECT_TRUE(filings[0].byThisSite);
    EXPECT_FALSE(filings[1].byThisSite);
}

TEST(Filings, APhotoSaysWhoWhereAndWhat) {
    FilingSite site;
    NewBimPhoto photo = FilingSite::Photo(site.ppid, u"墙面.jpg"_s);
    photo.positionKey = site.position;
    photo.markId = 7;
    photo.labelIds = {site.secondLabel, site.label};
    const qint32 picId = site.intake->FilePhoto(photo, {{}, "jpeg"});
    const Filings filings = site.engine.Filings().After(0, kAll).filings;
    ASSERT_EQ(filings.size(), 1U);
    const Filing& filing = filings.front();
    EXPECT_EQ(filing.kind, ChangeKind::BimPhoto);
    EXPECT_EQ(filing.ppid, site.ppid);
    EXPECT_EQ(filing.picId, picId);
    EXPECT_EQ(filing.person, u"wang"_s);
    EXPECT_EQ(filing.at, kFiled);
    EXPECT_EQ(filing.floor, u"3层"_s);
    EXPECT_EQ(filing.posText, u"A/5"_s);
    EXPECT_EQ(filing.positionKey, site.position);
    EXPECT_EQ(filing.markId, 7);
    EXPECT_EQ(filing.labels, (std::vector<QString>{u"渗漏"_s, u"裂缝"_s}));
    EXPECT_TRUE(site.engine.Blobs().SizeOf(filing.uuid, {}) > 0);
}

TEST(Filings, AnIssueSaysItsComponentAndItsFirstPicture) {
    FilingSite site;
    NewIssue issue = FilingSite::Issue(site.ppid, u"钢筋外露"_s);
    issue.floor = u"3层"_s;
    issue.posInfo = u"A-5"_s;
    issue.componentHandle = u"1F2A"_s;
    issue.componentName = u"梁"_s;
    issue.markId = 4;
    const QString questionId = site.intake->FileIssue(issue);
    site.intake->FileIssuePic(site.ppid, {questionId, true, u"r.jpg"_s, u"li"_s, kFiled},
                              {{}, "after"});
    site.intake->FileIssuePic(site.ppid, {questionId, false, u"p.jpg"_s, u"li"_s, kFiled},
                              {{}, "picture"});
    site.intake->FileIssuePic(site.ppid, {questionId, false, u"q.jpg"_s, u"li"_s, kFiled},
                              {{}, "second one"});
    const Filings filings = site.engine.Filings().After(0, kAll).filings;
    ASSERT_EQ(filings.size(), 1U) << "pictures are no issues of their own";
    const Filing& filing = filings.front();
    EXPECT_EQ(filing.kind, ChangeKind::Issue);
    EXPECT_EQ(filing.questionId, questionId);
    EXPECT_EQ(filing.person, u"zhao"_s);
    EXPECT_EQ(filing.posText, u"A-5"_s);
    EXPECT_EQ(filing.handle, u"1F2A"_s);
    EXPECT_EQ(filing.componentName, u"梁"_s);
    EXPECT_EQ(filing.markId, 4);
    EXPECT_EQ(site.engine.Blobs().SizeOf(filing.uuid, {}), qint64(sizeof("picture") - 1));
}

TEST(Filings, AMarkGoesOnBehindWhatWasLookedAt) {
    FilingSite site;
    for (const QString& name : {u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s}) {
        FilingSite::FilePhoto(*site.intake, site.ppid, name);
    }
    const IFilings::Next first = site.engine.Filings().After(0, 2);
    EXPECT_EQ(Names(first.filings), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
    const IFilings::Next second = site.engine.Filings().After(first.mark, 2);
    EXPECT_EQ(Names(second.filings), QStringList{u"c.jpg"_s});
}

TEST(Filings, WhatIsInTheBinIsLeftOutAndTheMarkPassesIt) {
    FilingSite site;
    const qint32 gone = FilingSite::FilePhoto(*site.intake, site.ppid, u"gone.jpg"_s);
    FilingSite::FilePhoto(*site.intake, site.ppid, u"stays.jpg"_s);
    const QString issue = site.intake->FileIssue(FilingSite::Issue(site.ppid, u"gone too"_s));
    site.engine.Bin().DeleteBimPhotos({site.ppid}, {gone}, {u"li"_s, kFiled});
    site.engine.Bin().DeleteIssues({site.ppid}, {issue}, {u"li"_s, kFiled});
    const IFilings::Next next = site.engine.Filings().After(0, kAll);
    EXPECT_EQ(Names(next.filings), QStringList{u"stays.jpg"_s});
    EXPECT_EQ(next.mark, site.engine.Filings().Newest());
    EXPECT_EQ(Names(site.engine.Filings().Latest({site.ppid}, {1, next.mark}, kAll)),
              QStringList{u"stays.jpg"_s});
    EXPECT_EQ(site.engine.Filings().Count({site.ppid}, {{1, next.mark}}, kAll), 1);
    for (const BinEntry& entry : site.engine.Bin().List()) {
        site.engine.Bin().Restore({entry.id});
    }
    EXPECT_EQ(site.engine.Filings().After(0, kAll).filings.size(), 3U);
}

TEST(Filings, TheLatestAreThoseOfTheProjectsAndTheRange) {
    FilingSite site;
    for (const QString& name : {u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s, u"d.jpg"_s}) {
        FilingSite::FilePhoto(*site.intake, site.ppid, name);
        FilingSite::FilePhoto(*site.intake, site.otherPpid, u"x"_s + name);
    }
    IFilings& filings = site.engine.Filings();
    EXPECT_EQ(Names(filings.Latest({site.ppid}, {1, kAll}, 2)),
              (QStringList{u"d.jpg"_s, u"c.jpg"_s}));
    EXPECT_EQ(Names(filings.Latest({site.ppid}, {3, 5}, kAll)),
              (QStringList{u"c.jpg"_s, u"b.jpg"_s}));
    EXPECT_EQ(Names(filings.Latest({site.ppid, site.otherPpid}, {3, 4}, kAll)),
              (QStringList{u"xb.jpg"_s, u"b.jpg"_s}));
    EXPECT_TRUE(filings.Latest({}, {1, kAll}, kAll).empty());
}

TEST(Filings, TheyAreCountedWithinTheRangesAndNoFurtherThanAsked) {
    FilingSite site;
    for (int at = 0; at < 5; ++at) {
        FilingSite::FilePhoto(*site.intake, site.ppid, u"%1.jpg"_s.arg(at));
        site.intake->FileIssue(FilingSite::Issue(site.otherPpid, u"x"_s));
    }
    IFilings& filings = site.engine.Filings();
    EXPECT_EQ(filings.Count({site.ppid}, {{1, kAll}}, kAll), 5);
    EXPECT_EQ(filings.Count({site.otherPpid}, {{1, kAll}}, kAll), 5);
    EXPECT_EQ(filings.Count({site.ppid, site.otherPpid}, {{1, 2}, {5, 5}}, kAll), 3);
    EXPECT_EQ(filings.Count({site.ppid, site.otherPpid}, {{1, 2}, {5, kAll}}, 4), 4);
    EXPECT_EQ(filings.Count({site.ppid}, {}, kAll), 0);
}

TEST(Filings, ABatchThatIsUndoneFilesNothing) {
    FilingSite site;
    site.intake->BeginBatch();
    FilingSite::FilePhoto(*site.intake, site.ppid, u"a.jpg"_s);
    site.intake = site.engine.NewIntake();
    EXPECT_TRUE(site.engine.Filings().After(0, kAll).filings.empty());
    EXPECT_EQ(site.engine.Filings().Newest(), 0);
}

TEST(Filings, TheOldestAreForgottenWhenThereAreVeryMany) {
    FilingSite site;
    FilingSite::FilePhoto(*site.intake, site.ppid, u"old.jpg"_s);
    site.folder.Db().Exec(u"UPDATE sqlite_sequence SET seq = 199999 WHERE name = 'filing'"_s);
    FilingSite::FilePhoto(*site.intake, site.ppid, u"new.jpg"_s);
    FilingTable::Trim(site.folder.Db());
    EXPECT_EQ(site.engine.Filings().After(0, kAll).filings.size(), 2U);
    FilingSite::FilePhoto(*site.intake, site.ppid, u"newest.jpg"_s);
    FilingTable::Trim(site.folder.Db());
    EXPECT_EQ(Names(site.engine.Filings().After(0, kAll).filings),
              (QStringList{u"new.jpg"_s, u"newest.jpg"_s}));
    EXPECT_EQ(site.engine.Filings().Newest(), 200'001);
}

} // namespace
} // namespace site
