// What a site says of its own deletions and changes of status, for who undoes them.
#include "services/PicRecords.h"
#include "site/IBin.h"
#include "site/IDrawings.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/IssueSite.h"

#include <gmock/gmock.h>

namespace site {
namespace {

using namespace Qt::StringLiterals;
using sitetest::IssueSite;
using testing::ElementsAre;

/// An issue with a picture, three photos, a drawing with a checkpoint and a photo on it.
class UndoSite : public IssueSite {
public:
    UndoSite() {
        SiteWriter writer(folder);
        for (const QString& name : {u"一.jpg"_s, u"二.jpg"_s, u"三.jpg"_s}) {
            NewBimPhoto photo;
            photo.ppid = ppid;
            photo.fileName = name;
            photos.push_back(writer.FilePhoto(photo, {{}, name.toUtf8()}));
        }
        NewCheckpoint point;
        drawing = writer.AddDrawing(ppid, u"一层平面"_s);
        point.drawingId = drawing;
        checkpoint = writer.AddCheckpoint(ppid, point);
        NewPdfPhoto photo;
        photo.checkpointId = checkpoint;
        photo.fileName = u"图.jpg"_s;
        pdfPhoto = writer.FilePdfPhoto(ppid, photo, {{}, "sheet"});
    }
    [[nodiscard]] IBin& Bin() { return engine.Bin(); }

    std::vector<qint32> photos;
    qint32 drawing = 0;
    qint32 checkpoint = 0;
    qint32 pdfPhoto = 0;
    std::vector<BinEntry> made;
};

std::vector<QString> TitlesOf(const std::vector<BinEntry>& entries) {
    std::vector<QString> titles;
    for (const BinEntry& entry : entries) {
        titles.push_back(entry.title);
    }
    return titles;
}

TEST(Undo, ADeletionNamesItsOwnEntriesWhoeverElseDeletesAtTheTime) {
    UndoSite site;
    SqliteSite other(site.folder);
    other.Bin().DeleteBimPhotos({site.ppid}, {site.photos[0]}, {u"zhao"_s, 1});
    EXPECT_EQ(site.Bin().DeleteBimPhotos({site.ppid}, {site.photos[2], site.photos[0], 4711},
                                         site.wang, &site.made),
              1);
    other.Bin().DeleteBimPhotos({site.ppid}, {site.photos[1]}, {u"zhao"_s, 1});
    ASSERT_THAT(TitlesOf(site.made), ElementsAre(u"三.jpg"_s));
    const BinEntry& entry = site.made.front();
    EXPECT_EQ(entry.kind, BinKind::BimPhoto);
    EXPECT_EQ(entry.ppid, site.ppid);
    EXPECT_EQ(entry.deletedBy, u"wang"_s);
    EXPECT_EQ(entry.deletedAt, site.wang.at);
    EXPECT_EQ(site.Bin().Restore({entry.id}), 1);
    EXPECT_EQ(site.Bin().List().size(), 2U) << "what the other deleted stays there";
}

TEST(Undo, EachKindOfDeletionNamesItsEntriesBehindThoseThatAreThere) {
    UndoSite site;
    std::vector<BinEntry>& made = site.made;
    EXPECT_EQ(site.Bin().DeletePdfPhotos(site.ppid, {site.pdfPhoto}, site.wang, &made), 1);
    EXPECT_TRUE(site.Bin().DeleteCheckpoint({site.ppid}, site.checkpoint, site.wang, &made));
    EXPECT_TRUE(site.Bin().DeleteDrawing({site.ppid}, site.drawing, site.wang, &made));
    EXPECT_TRUE(site.Issues().DeletePics({site.ppid}, {site.picId}, site.wang, &made));
    ASSERT_TRUE(site.Issues().AddRectifyPics({site.ppid}, site.questionId, {site.Uploaded(u"g1"_s)},
                                             site.wang));
    EXPECT_TRUE(
        site.Issues().DeleteRectifyPics({site.ppid}, site.questionId, {u"g1"_s}, site.wang, &made));
    EXPECT_EQ(site.Bin().DeleteIssues({site.ppid}, {site.questionId}, site.wang, &made), 1);
    std::vector<BinKind> kinds;
    std::vector<qint64> ids;
    for (const BinEntry& entry : made) {
        kinds.push_back(entry.kind);
        ids.push_back(entry.id);
    }
    EXPECT_THAT(kinds, ElementsAre(BinKind::PdfPhoto, BinKind::Checkpoint, BinKind::Drawing,
                                   BinKind::IssuePic, BinKind::IssuePic, BinKind::Issue));
    std::vector<qint64> restored;
    EXPECT_EQ(site.Bin().Restore(ids, &restored), 6);
    EXPECT_THAT(restored, testing::UnorderedElementsAreArray(ids));
    EXPECT_TRUE(site.Bin().List().empty());
}

TEST(Undo, WhatIsRefusedNamesNothing) {
    UndoSite site;
    EXPECT_EQ(site.Bin().DeleteBimPhotos({site.other}, site.photos, site.wang, &site.made), 0);
    EXPECT_THROW(site.Bin().DeleteCheckpoint({site.ppid}, site.checkpoint, site.wang, &site.made),
                 DataError)
        << "a photo hangs on it";
    EXPECT_FALSE(
        site.Issues().DeletePics({site.ppid}, {site.picId, u"gone"_s}, site.wang, &site.made));
    EXPECT_FALSE(site.Issues().DeleteRectifyPics({site.ppid}, site.questionId, {site.picId},
                                                 site.wang, &site.made));
    EXPECT_TRUE(site.made.empty());
    EXPECT_TRUE(site.folder.Store().NamesInBin().empty());
}

TEST(Undo, ARestorationNamesThoseThatWereStillInTheBin) {
    UndoSite site;
    site.Bin().DeleteBimPhotos({site.ppid}, site.photos, site.wang, &site.made);
    ASSERT_EQ(site.made.size(), 3U);
    const std::vector<qint64> ids{site.made[0].id, site.made[1].id, site.made[2].id};
    site.Bin().Purge({ids[0]});
    SqliteSite(site.folder).Bin().Restore({ids[2]});
    std::vector<qint64> restored;
    EXPECT_EQ(site.Bin().Restore(ids, &restored), 1);
    EXPECT_THAT(restored, ElementsAre(ids[1]));
}

TEST(Undo, ARestorationThatFailsNamesNone) {
    UndoSite site;
    site.Bin().DeletePdfPhotos(site.ppid, {site.pdfPhoto}, site.wang, &site.made);
    site.Bin().DeleteBimPhotos({site.ppid}, {site.photos[0]}, site.wang, &site.made);
    ASSERT_TRUE(site.Bin().DeleteCheckpoint({site.ppid}, site.checkpoint, site.wang));
    std::vector<qint64> restored;
    EXPECT_THROW(site.Bin().Restore({site.made[0].id, site.made[1].id}, &restored), DataError);
    EXPECT_TRUE(restored.empty());
    EXPECT_EQ(site.Bin().List().size(), 3U);
}

TEST(Undo, AChangeOfStatusNamesThoseWhoseStatusWasAnother) {
    UndoSite site;
    IBimPhotos& bim = site.engine.BimPhotos();
    ASSERT_EQ(bim.SetStatus(site.ppid, {site.photos[1]}, KX_DATA::kStatusHidden), 1);
    std::vector<NamedPhoto> changed;
    EXPECT_EQ(bim.SetStatus(site.ppid, site.photos, KX_DATA::kStatusHidden, &changed), 3)
        << "there are three, of which two were shown";
    ASSERT_EQ(changed.size(), 2U);
    EXPECT_EQ(changed[0].picId, site.photos[0]);
    EXPECT_EQ(changed[0].name, u"一.jpg"_s);
    EXPECT_EQ(changed[1].picId, site.photos[2]);
    EXPECT_EQ(bim.SetStatus(site.other, site.photos, KX_DATA::kStatusShown, &changed), 0);
    EXPECT_EQ(changed.size(), 2U) << "they are of another project";

    IPdfPhotos& pdf = site.engine.PdfPhotos();
    changed.clear();
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(pdf.SetStatus(site.ppid, {site.pdfPhoto}, KX_DATA::kStatusHidden, &changed), 1);
        ASSERT_EQ(changed.size(), 1U);
        EXPECT_EQ(changed[0].name, u"图.jpg"_s);
    }
}

TEST(Undo, AnIssueWhoseStatusChangedIsNamedByItsTheme) {
    UndoSite site;
    std::vector<NamedIssue> changed;
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(site.Issues().SetStatus(site.ppid, {site.questionId, u"gone"_s},
                                          KX_DATA::kStatusHidden, site.wang, &changed),
                  1);
        ASSERT_EQ(changed.size(), 1U);
        EXPECT_EQ(changed[0].questionId, site.questionId);
        EXPECT_EQ(changed[0].theme, site.Raised().theme);
    }
}

} // namespace
} // namespace site
