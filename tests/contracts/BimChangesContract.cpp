// IVeskPicMng: saving, hiding and deleting BIM photos.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;
using testing::ElementsAre;

namespace {

KX_DATA::BimPicUpdate UsualUpdate(qint32 picId) {
    KX_DATA::BimPicUpdate update;
    update.picId = picId;
    update.fileName = u"新名.jpg"_s;
    update.description = u"新描述"_s;
    update.markId = 2;
    return update;
}

} // namespace

class BimChanges : public Contract {};
ON_EVERY_SITE(BimChanges);

TEST_P(BimChanges, ASavedPhotoIsWhatIsReadThenWithWhoSavedIt) {
    site->AddLabel(u"返工"_s);
    const QString label = site->AddLabel(u"渗漏"_s);
    const QString key = Position(u"5"_s, u"C"_s, u"2"_s);
    const qint32 picId = Photo([](site::NewBimPhoto& photo) { photo.labelIds = {1}; });
    const qint32 other = Photo();
    KX_DATA::BimPicUpdate update = UsualUpdate(picId);
    update.positionKey = key;
    update.labelIds = {label};
    ASSERT_TRUE(on.pics->UpdateBimPic(first, update));
    KX_DATA::BimPicDetail detail;
    ASSERT_EQ(on.pics->GetBimPicDetail(first, picId, detail), kServiceOk);
    EXPECT_EQ(detail.fileName, u"新名.jpg"_s);
    EXPECT_EQ(detail.description, u"新描述"_s);
    EXPECT_EQ(detail.markId, 2);
    EXPECT_EQ(detail.markName, u"安全"_s);
    EXPECT_EQ(detail.positionKey, key);
    EXPECT_EQ(detail.floor, u"5"_s);
    EXPECT_EQ(detail.axisX, u"C"_s);
    EXPECT_EQ(detail.axisY, u"2"_s);
    ASSERT_EQ(detail.labels.size(), 1U);
    EXPECT_EQ(detail.labels[0].labelId, label);
    EXPECT_EQ(detail.labels[0].labelName, u"渗漏"_s);
    EXPECT_EQ(detail.updaterName, u"li"_s);
    EXPECT_GT(detail.updateTime, detail.uploadTime);
    EXPECT_EQ(detail.uploaderName, u"zhang"_s);
    const std::vector<KX_DATA::BimPicRow> rows = BimRows();
    EXPECT_EQ(rows[0].fileName, u"新名.jpg"_s);
    EXPECT_EQ(rows[0].posText, u"C/2"_s);
    EXPECT_EQ(rows[0].updaterName, u"li"_s);
    EXPECT_THAT(rows[0].labelNames, ElementsAre(u"渗漏"_s));
    EXPECT_EQ(rows[1].picId, other);
    EXPECT_EQ(rows[1].fileName, u"a.jpg"_s);
}

TEST_P(BimChanges, ASaveWithAnEmptyKeyTakesThePlaceAwayAndWithStatusOneHides) {
    const QString key = Position(u"5"_s, u"C"_s, u"2"_s);
    const qint32 picId = Photo([&](site::NewBimPhoto& photo) { photo.positionKey = key; });
    KX_DATA::BimPicUpdate update = UsualUpdate(picId);
    update.status = 1;
    ASSERT_TRUE(on.pics->UpdateBimPic(first, update));
    const KX_DATA::BimPicRow row = BimRows()[0];
    EXPECT_EQ(row.positionKey, QString());
    EXPECT_EQ(row.floor, QString());
    EXPECT_EQ(row.posText, QString());
    EXPECT_EQ(row.status, 1);
}

TEST_P(BimChanges, WhatIsUnknownOrForeignIsNotSavedAndNothingChanges) {
    site->AddLabel(u"返工"_s);
    const qint32 picId = Photo();
    KX_DATA::BimPicUpdate update = UsualUpdate(kNobody);
    EXPECT_FALSE(on.pics->UpdateBimPic(first, update)) << "an unknown photo";
    update.picId = picId;
    EXPECT_FALSE(on.pics->UpdateBimPic(site->second, update)) << "a photo of another project";
    update.labelIds = {u"4711"_s};
    EXPECT_FALSE(on.pics->UpdateBimPic(first, update)) << "an unknown label";
    update.labelIds = {u"返工"_s};
    EXPECT_FALSE(on.pics->UpdateBimPic(first, update)) << "a name where an id stands";
    update.labelIds.clear();
    update.positionKey = u"unknown"_s;
    EXPECT_FALSE(on.pics->UpdateBimPic(first, update)) << "an unknown place";
    EXPECT_EQ(BimRows()[0].fileName, u"a.jpg"_s);
    EXPECT_EQ(BimRows()[0].markId, 1);
    EXPECT_EQ(BimRows()[0].updaterName, QString());
}

TEST_P(BimChanges, WhoSavesLastWinsWhateverHappenedSinceItWasRead) {
    const qint32 picId = Photo();
    KX_DATA::BimPicUpdate update = UsualUpdate(picId);
    update.positionKey.clear();
    update.labelIds.clear();
    KX_DATA::BimPicDetail seen;
    ASSERT_EQ(on.pics->GetBimPicDetail(first, picId, seen), kServiceOk);
    update.fileName = u"one.jpg"_s;
    EXPECT_TRUE(on.pics->UpdateBimPic(first, update));
    ASSERT_TRUE(on.pics->SetBimPicsShown(first, {picId}, true));
    update.fileName = u"two.jpg"_s;
    update.status = seen.status;
    EXPECT_TRUE(on.pics->UpdateBimPic(first, update));
    EXPECT_EQ(BimRows()[0].fileName, u"two.jpg"_s);
    EXPECT_EQ(BimRows()[0].status, KX_DATA::kStatusShown);
}

TEST_P(BimChanges, APhotoKeepsAPlaceThatTheModelHasNoLonger) {
    const QString gone = site->AddPosition({first, u"3"_s, u"B"_s, u"8"_s, u"K38"_s, false});
    const qint32 picId = Photo([&](site::NewBimPhoto& photo) { photo.positionKey = gone; });
    KX_DATA::BimPicUpdate update = UsualUpdate(picId);
    update.positionKey = gone;
    ASSERT_TRUE(on.pics->UpdateBimPic(first, update));
    EXPECT_EQ(BimRows()[0].floor, u"3"_s);
    EXPECT_EQ(BimRows()[0].positionKey, gone);
}

TEST_P(BimChanges, HidingAndShowingSetTheStatusOfThosePhotosAlone) {
    const qint32 one = Photo();
    const qint32 two = Photo();
    ASSERT_TRUE(on.pics->SetBimPicsShown(first, {two, kNobody}, true));
    EXPECT_EQ(BimRows()[0].status, 0);
    EXPECT_EQ(BimRows()[1].status, 1);
    ASSERT_TRUE(on.pics->SetBimPicsShown(first, {one, two}, false));
    EXPECT_EQ(BimRows()[1].status, 0);
    EXPECT_TRUE(on.pics->SetBimPicsShown(first, {}, true)) << "nothing chosen is no fault";
    EXPECT_FALSE(on.pics->SetBimPicsShown(first, {kNobody}, true));
    EXPECT_FALSE(on.pics->SetBimPicsShown(site->second, {one}, true));
    EXPECT_EQ(BimRows()[0].status, 0);
}

TEST_P(BimChanges, DeletedPhotosAreGoneFromListDetailAndFiles) {
    const qint32 one = Photo();
    const qint32 two = Photo();
    ASSERT_TRUE(on.pics->DeleteBimPics({one, kNobody}));
    ASSERT_EQ(BimRows().size(), 1U);
    EXPECT_EQ(BimRows()[0].picId, two);
    KX_DATA::BimPicDetail detail;
    EXPECT_NE(on.pics->GetBimPicDetail(first, one, detail), kServiceOk);
    EXPECT_FALSE(on.pics->DeleteBimPics({one})) << "what is gone can't be deleted again";
    EXPECT_TRUE(on.pics->DeleteBimPics({}));
    EXPECT_EQ(BimRows().size(), 1U);
}

class BimChangeFailures : public FailureContract {};
WHERE_WRITING_FAILS(BimChangeFailures);

TEST_P(BimChangeFailures, ASaveTellsItAndChangesNothing) {
    const qint32 picId = Photo();
    Fail({"UpdateBimPic"});
    EXPECT_FALSE(on.pics->UpdateBimPic(first, UsualUpdate(picId)));
    if (StillReads()) {
        EXPECT_EQ(BimRows()[0].fileName, u"a.jpg"_s);
        EXPECT_EQ(BimRows()[0].markId, 1);
    }
}

TEST_P(BimChangeFailures, HidingTellsItAndChangesNothing) {
    const qint32 picId = Photo();
    Fail({"SetBimPicsShown"});
    EXPECT_FALSE(on.pics->SetBimPicsShown(first, {picId}, true));
    if (StillReads()) {
        EXPECT_EQ(BimRows()[0].status, 0);
    }
}

TEST_P(BimChangeFailures, DeletingTellsItAndChangesNothing) {
    const qint32 picId = Photo();
    Fail({"DeleteBimPics"});
    EXPECT_FALSE(on.pics->DeleteBimPics({picId}));
    if (StillReads()) {
        EXPECT_EQ(BimRows().size(), 1U);
    }
}

} // namespace contracts
