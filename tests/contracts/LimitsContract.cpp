// What the three lists are limited to, and what is in use and on the mark panel after changes.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;
using testing::ElementsAre;

class Limits : public Contract {
protected:
    std::vector<qint32> BimIds(const KX_DATA::PicQueryFilter& filter,
                               const KX_DATA::PageRequest& request = {1, 10, u"ppid"_s, u"asc"_s}) {
        KX_DATA::PageResult result;
        std::vector<KX_DATA::BimPicRow> rows;
        EXPECT_EQ(on.pics->QueryBimPics(filter, request, result, rows), kServiceOk);
        EXPECT_EQ(result.totalCount, qint32(rows.size()));
        std::vector<qint32> ids;
        for (const KX_DATA::BimPicRow& row : rows) {
            ids.push_back(row.picId);
        }
        return ids;
    }
    std::vector<qint32> PdfIds(const KX_DATA::PdfQueryFilter& filter) {
        KX_DATA::PageResult result;
        std::vector<KX_DATA::PdfPicRecord> rows;
        EXPECT_NE(on.pics->QueryPdfPics(filter, {1, 10, u"ppid"_s, u"asc"_s}, result, rows), 0);
        std::vector<qint32> ids;
        for (const KX_DATA::PdfPicRecord& row : rows) {
            ids.push_back(row.picId);
        }
        return ids;
    }
    std::vector<QString> IssueIds(const KX_DATA::PicQueryFilter& filter) {
        KX_DATA::PageResult result;
        std::vector<KX_DATA::IssueRow> rows;
        EXPECT_EQ(on.issues->QueryIssues(filter, {1, 10, u"ppid"_s, u"asc"_s}, result, rows),
                  kServiceOk);
        std::vector<QString> ids;
        for (const KX_DATA::IssueRow& row : rows) {
            ids.push_back(row.questionId);
        }
        return ids;
    }
};
ON_EVERY_SITE(Limits);

TEST_P(Limits, AListOfNoProjectIsEmpty) {
    Photo();
    Issue();
    PdfPhoto(Point(site->AddDrawing(first, u"一层"_s), 1), u"p.jpg"_s);
    EXPECT_TRUE(BimIds({}).empty());
    EXPECT_TRUE(PdfIds({}).empty());
    EXPECT_TRUE(IssueIds({}).empty());
}

TEST_P(Limits, AListOfAMarkHasItsRowsAlone) {
    Photo();
    Issue();
    const qint32 photo = Photo([](site::NewBimPhoto& made) { made.markId = 2; });
    const QString issue = Issue([](site::NewIssue& made) { made.markId = 2; });
    KX_DATA::PicQueryFilter filter = Filter();
    filter.markId = 2;
    EXPECT_THAT(BimIds(filter), ElementsAre(photo));
    EXPECT_THAT(IssueIds(filter), ElementsAre(issue));
}

TEST_P(Limits, APhotoIsFoundByKeywordLabelStateAndPlace) {
    Photo();
    const qint32 label = site->AddLabel(u"渗漏"_s).toInt();
    const QString key = Position(u"3"_s, u"B"_s, u"7"_s);
    const qint32 picId = Photo([&](site::NewBimPhoto& photo) {
        photo.fileName = u"East wall.jpg"_s;
        photo.labelIds = {label};
        photo.positionKey = key;
        photo.state = 1;
    });
    KX_DATA::PicQueryFilter filter = Filter();
    filter.keyword = u"EAST"_s;
    EXPECT_THAT(BimIds(filter), ElementsAre(picId));
    filter = Filter();
    filter.labelId = QString::number(label);
    EXPECT_THAT(BimIds(filter), ElementsAre(picId));
    filter = Filter();
    filter.status = u"整改中"_s;
    EXPECT_THAT(BimIds(filter), ElementsAre(picId));
    filter = Filter();
    filter.presetKey = key;
    EXPECT_THAT(BimIds(filter), ElementsAre(picId));
}

TEST_P(Limits, AnIssueIsFoundByItsFloorAndByAComponentOnIt) {
    const QString there = Issue([](site::NewIssue& issue) { issue.floor = u"3"_s; });
    const QString component = Issue([](site::NewIssue& issue) {
        issue.floor = u"3"_s;
        issue.componentHandle = u"h7"_s;
    });
    Issue([](site::NewIssue& issue) { issue.componentHandle = u"h7"_s; });
    KX_DATA::PicQueryFilter filter = Filter();
    filter.presetKey = u"3"_s;
    EXPECT_THAT(IssueIds(filter), ElementsAre(there, component));
    filter.presetExtra = u"h7"_s;
    EXPECT_THAT(IssueIds(filter), ElementsAre(component));
}

TEST_P(Limits, ADrawingPhotoIsFoundByItsDrawingAndItsCheckpoint) {
    const qint32 drawing = site->AddDrawing(first, u"一层"_s);
    const qint32 other = site->AddDrawing(first, u"二层"_s);
    const qint32 point = Point(drawing, 1);
    const qint32 one = PdfPhoto(point, u"a.jpg"_s);
    const qint32 two = PdfPhoto(Point(drawing, 2), u"b.jpg"_s);
    PdfPhoto(Point(other, 3), u"c.jpg"_s);
    KX_DATA::PdfQueryFilter filter = PdfFilter();
    filter.drawingId = drawing;
    EXPECT_THAT(PdfIds(filter), ElementsAre(one, two));
    filter.checkpointId = point;
    EXPECT_THAT(PdfIds(filter), ElementsAre(one));
}

TEST_P(Limits, BothEndsOfATimeAreWithinIt) {
    const auto at = [&](qint64 time) {
        return Photo([time](site::NewBimPhoto& photo) { photo.uploadTime = time; });
    };
    at(1700000000);
    const qint32 begin = at(1700000060);
    const qint32 end = at(1700000120);
    at(1700000180);
    KX_DATA::PicQueryFilter filter = Filter();
    filter.noDateLimit = false;
    filter.startTime = 1700000060;
    filter.endTime = 1700000120;
    EXPECT_THAT(BimIds(filter), ElementsAre(begin, end));
}

TEST_P(Limits, RowsComeInTheOrderAskedFor) {
    const qint32 b = Photo([](site::NewBimPhoto& photo) { photo.fileName = u"b.jpg"_s; });
    const qint32 a = Photo([](site::NewBimPhoto& photo) { photo.fileName = u"a.jpg"_s; });
    EXPECT_THAT(BimIds(Filter(), {1, 10, u"pic_name"_s, u"asc"_s}), ElementsAre(a, b));
    EXPECT_THAT(BimIds(Filter(), {1, 10, u"pic_name"_s, u"desc"_s}), ElementsAre(b, a));
}

TEST_P(Limits, APhotoAskedForTwiceHasItsFileTwice) {
    const qint32 own = Photo();
    std::vector<KX_DATA::PicFileEntry> files;
    ASSERT_EQ(on.pics->GetPicFiles({own, own}, files), kServiceOk);
    EXPECT_EQ(files.size(), 2U);
}

class AfterChanges : public Contract {
protected:
    std::vector<qint32> BimMarks() {
        std::vector<qint32> marks;
        EXPECT_TRUE(on.pics->GetUsedBimMarks(marks));
        return marks;
    }
    qint32 MarkedPhotos(qint32 markId) {
        KX_DATA::MarkFilterArg arg;
        std::vector<qint32> ids;
        return on.pics->GetBimPicMarkerList(0, 0, 0, markId, arg, ids);
    }
};
ON_EVERY_SITE(AfterChanges);

TEST_P(AfterChanges, AHiddenPhotoIsDeletedToo) {
    const qint32 own = Photo([](site::NewBimPhoto& photo) { photo.status = 1; });
    EXPECT_TRUE(on.pics->DeleteBimPics({own}));
    EXPECT_TRUE(BimRows().empty());
}

TEST_P(AfterChanges, AMarkAndALabelAreNoLongerInUseOnceTheirPhotoIsGone) {
    const qint32 label = site->AddLabel(u"渗漏"_s).toInt();
    Photo();
    const qint32 own = Photo([label](site::NewBimPhoto& photo) {
        photo.markId = 2;
        photo.labelIds = {label};
    });
    EXPECT_THAT(BimMarks(), ElementsAre(1, 2));
    ASSERT_TRUE(on.pics->DeleteBimPics({own}));
    EXPECT_THAT(BimMarks(), ElementsAre(1));
    std::vector<KX_DATA::LabelEntry> labels(1);
    ASSERT_TRUE(on.pics->GetBimLabels(labels));
    EXPECT_TRUE(labels.empty());
}

TEST_P(AfterChanges, AnIssuesMarkIsNoLongerInUseOnceItIsGone) {
    const QString own = Issue();
    std::vector<qint32> marks;
    ASSERT_TRUE(on.issues->DeleteIssues({own}));
    marks.resize(1);
    ASSERT_TRUE(on.issues->GetUsedMarks(KX_DATA::kIssueMarkKind, marks));
    EXPECT_TRUE(marks.empty());
}

TEST_P(AfterChanges, AHiddenPhotosMarkIsInUseAndOnThePanelNoLonger) {
    const qint32 own = Photo();
    ASSERT_EQ(MarkedPhotos(1), 1);
    ASSERT_TRUE(on.pics->SetBimPicsShown(first, {own}, true));
    EXPECT_EQ(MarkedPhotos(1), 0);
    EXPECT_THAT(BimMarks(), ElementsAre(1));
    KX_DATA::MarkFilterArg arg;
    std::vector<KX_DATA::PicFilterEntry> entries(1);
    on.pics->GetBimPicFilterGroups(0, 0, 0, arg, entries);
    EXPECT_TRUE(entries.empty());
    std::vector<KX_DATA::PicMarkGroup> groups(1);
    on.pics->GetBimPicFilterValues(0, 0, 0, arg, groups);
    EXPECT_TRUE(groups.empty());
    ASSERT_TRUE(on.pics->SetBimPicsShown(first, {own}, false));
    EXPECT_EQ(MarkedPhotos(1), 1);
}

TEST_P(AfterChanges, AHiddenIssueIsNoLongerOnThePanel) {
    const QString own = Issue();
    KX_DATA::MarkFilterArg arg;
    std::vector<KX_DATA::IssueMarkGroup> groups;
    on.issues->GetIssueGroups(0, nullptr, nullptr, arg, groups);
    ASSERT_EQ(groups.size(), 1U);
    ASSERT_TRUE(on.issues->SetIssuesShown(first, {own}, true));
    on.issues->GetIssueGroups(0, nullptr, nullptr, arg, groups);
    EXPECT_TRUE(groups.empty());
    std::vector<KX_DATA::IssueFilterSource> sources(1);
    on.issues->GetIssueFilterList(0, nullptr, nullptr, arg, sources);
    EXPECT_TRUE(sources.empty());
}

TEST_P(AfterChanges, ThePanelListsPhotosNewestFirstWithinATimeAndOfAPerson) {
    const qint32 older = Photo();
    const qint32 newer = Photo([](site::NewBimPhoto& photo) {
        photo.uploader = u"wang"_s;
        photo.uploadTime += 600;
    });
    KX_DATA::MarkFilterArg arg;
    std::vector<qint32> ids;
    EXPECT_EQ(on.pics->GetBimPicMarkerList(0, 0, 0, 1, arg, ids), 2);
    EXPECT_THAT(ids, ElementsAre(newer, older));
    EXPECT_EQ(on.pics->GetBimPicMarkerList(0, 1700000599, 1, 1, arg, ids), 1);
    EXPECT_THAT(ids, ElementsAre(older));
    arg.userName = u"wang"_s;
    EXPECT_EQ(on.pics->GetBimPicMarkerList(0, 0, 0, 1, arg, ids), 1);
    EXPECT_THAT(ids, ElementsAre(newer));
}

TEST_P(AfterChanges, ADeletedPhotoIsGoneFromItsCheckpointAndItsFiles) {
    const qint32 point = Point(site->AddDrawing(first, u"一层"_s), 1);
    const qint32 picId = PdfPhoto(point, u"a.jpg"_s);
    const qint32 left = PdfPhoto(point, u"b.jpg"_s);
    ASSERT_TRUE(on.pics->DeletePdfPics(first, {picId}));
    KX_DATA::DrawingRecord record;
    ASSERT_EQ(on.drawings->GetDrawing(point, record), kServiceOk);
    ASSERT_EQ(record.pics.size(), 1U);
    EXPECT_EQ(record.pics[0].picId, left);
    std::vector<KX_DATA::PicFileEntry> files(2);
    ASSERT_EQ(on.pics->GetPicFiles({picId}, files), kServiceOk);
    EXPECT_TRUE(files.empty());
    KX_DATA::CheckpointPicDetail detail;
    EXPECT_NE(on.pics->GetCheckpointPics(first, picId, detail), kServiceOk);
    ASSERT_TRUE(on.pics->DeletePdfPics(first, {left}));
    std::vector<qint32> marks(1);
    ASSERT_TRUE(on.pics->GetUsedPdfMarks(marks));
    EXPECT_TRUE(marks.empty());
}

TEST_P(AfterChanges, ASavedDrawingPhotoTellsItsNewNameOnItsCheckpoint) {
    const qint32 picId = PdfPhoto(Point(site->AddDrawing(first, u"一层"_s), 1), u"a.jpg"_s);
    KX_DATA::PdfPicUpdate update;
    update.picId = picId;
    update.fileName = u"c.jpg"_s;
    update.description = u"新描述"_s;
    ASSERT_TRUE(on.pics->UpdatePdfPic(first, update));
    KX_DATA::CheckpointPicDetail detail;
    ASSERT_EQ(on.pics->GetCheckpointPics(first, picId, detail), kServiceOk);
    EXPECT_EQ(detail.name, u"c.jpg"_s);
    EXPECT_EQ(detail.description, u"新描述"_s);
    EXPECT_EQ(detail.updater, u"li"_s);
}

} // namespace contracts
