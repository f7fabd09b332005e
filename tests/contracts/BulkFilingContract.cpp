// IBulkFiling: many photos or issues at once, as the lists tell them then; taken back as one.
#include "site/IBimPhotos.h"
#include "site/IBulkFiling.h"
#include "site/IStatistics.h"
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using site::BulkOutcome;
using site::BulkWish;
using site::ListKind;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const site::Signature kFiler{u"li"_s, 1700002000};

/// A photo at a corner with mark and label, one with nothing, and one of the second project.
template <class Base> class WithPhotosToFile : public Base {
protected:
    WithPhotosToFile() {
        corner = this->Position(u"1"_s, u"1"_s, u"A"_s);
        roof = this->Position(u"9"_s, u"2"_s, u"B"_s);
        old = this->site->AddLabel(u"渗漏"_s).toInt();
        fresh = this->site->AddLabel(u"裂缝"_s).toInt();
        placed = this->Photo([&](site::NewBimPhoto& photo) {
            photo.positionKey = corner;
            photo.labelIds = {old};
        });
        loose = this->Photo([](site::NewBimPhoto& photo) {
            photo.fileName = u"b.jpg"_s;
            photo.markId = 0;
        });
        foreign = this->Photo([&](site::NewBimPhoto& photo) { photo.ppid = this->site->second; });
    }
    [[nodiscard]] site::IBulkFiling& Filing() { return this->site->Engine()->BulkFiling(); }
    [[nodiscard]] BulkOutcome File(const std::vector<qint32>& ids, const BulkWish& wish) {
        return Filing().FileBimPhotos({this->first, this->site->second}, ids, wish, kFiler);
    }
    /// Place, mark, status and one more label.
    [[nodiscard]] BulkWish All() const { return {roof, 2, 1, {fresh}, false}; }
    [[nodiscard]] std::vector<qint32> Unfiled() {
        site::ListFilter filter;
        filter.ppids = {this->first};
        filter.unfiled = true;
        std::vector<qint32> ids;
        for (const auto& row : this->site->Engine()->BimPhotos().PageOf(filter, {{}, 1, 9}).rows) {
            ids.push_back(row.picId);
        }
        return ids;
    }

    QString corner;
    QString roof;
    qint32 old = 0;
    qint32 fresh = 0;
    qint32 placed = 0;
    qint32 loose = 0;
    qint32 foreign = 0;
};

} // namespace

class BulkFilings : public WithPhotosToFile<Contract> {};
ON_EVERY_ENGINE(BulkFilings);

TEST_P(BulkFilings, RowsTellPlaceMarkLabelsStatusAndWhoFiled) {
    const BulkOutcome outcome = File({placed, loose}, All());
    EXPECT_EQ(outcome.changed.size(), 2U);
    EXPECT_THAT(outcome.skipped, IsEmpty());
    for (const auto& row : BimRows()) {
        EXPECT_EQ(row.positionKey, roof);
        EXPECT_EQ(row.floor, u"9"_s);
        EXPECT_EQ(row.posText, u"2/B"_s);
        EXPECT_EQ(row.markId, 2);
        EXPECT_EQ(row.status, KX_DATA::kStatusHidden);
        EXPECT_EQ(row.updaterName, u"li"_s);
        EXPECT_EQ(row.updateStamp, kFiler.at);
    }
    EXPECT_THAT(BimRows()[0].labelNames, ElementsAre(u"渗漏"_s, u"裂缝"_s)) << "added";
    EXPECT_THAT(Unfiled(), IsEmpty());
}

TEST_P(BulkFilings, LabelsAreReplacedAndWhatIsNotWishedStays) {
    ASSERT_EQ(File({placed}, {{}, {}, {}, {fresh}, true}).changed.size(), 1U);
    EXPECT_THAT(BimRows()[0].labelNames, ElementsAre(u"裂缝"_s));
    EXPECT_EQ(BimRows()[0].positionKey, corner);
    EXPECT_EQ(BimRows()[0].markId, 1);
    EXPECT_EQ(BimRows()[0].status, KX_DATA::kStatusShown);
    EXPECT_EQ(File({placed}, {{}, {}, {}, {fresh}, true}).unchanged, 1);
}

TEST_P(BulkFilings, APlaceAndAMarkThatAreTakenAwayLeaveAPhotoToBeFiled) {
    EXPECT_THAT(Unfiled(), ElementsAre(loose));
    ASSERT_EQ(File({placed}, {QString(), {}, {}, {}, false}).changed.size(), 1U);
    EXPECT_THAT(Unfiled(), testing::UnorderedElementsAre(loose, placed));
    ASSERT_EQ(File({placed, loose}, {corner, {}, {}, {}, false}).changed.size(), 2U);
    EXPECT_THAT(Unfiled(), ElementsAre(loose)) << "it lacks a mark";
}

TEST_P(BulkFilings, WhatCannotBeFiledIsSkippedAndNamedAndTheRestIsFiled) {
    ASSERT_TRUE(on.pics->DeleteBimPics({loose}));
    const BulkOutcome outcome = File({loose, foreign, kNobody, placed}, All());
    ASSERT_EQ(outcome.skipped.size(), 3U);
    EXPECT_EQ(outcome.skipped[0].why, u"已被删除"_s);
    EXPECT_EQ(outcome.skipped[1].name, u"a.jpg"_s);
    EXPECT_EQ(outcome.skipped[1].why, u"属于另一个工程，那里没有所选的位置"_s);
    EXPECT_EQ(outcome.skipped[2].name, QString::number(kNobody));
    ASSERT_EQ(outcome.changed.size(), 1U);
    EXPECT_EQ(outcome.changed[0].id, placed);
    EXPECT_EQ(
        Filing().FileBimPhotos({first}, {foreign}, {{}, 2, {}, {}, false}, kFiler).skipped.size(),
        1U)
        << "its project isn't open";
}

TEST_P(BulkFilings, WhatTheSiteDoesNotHaveIsRefusedAndChangesNothing) {
    for (const BulkWish& wish :
         {BulkWish{u"none"_s, {}, 1, {}, false}, BulkWish{{}, 99, 1, {}, false},
          BulkWish{{}, {}, 1, {fresh, kNobody}, false}}) {
        EXPECT_THROW(static_cast<void>(File({placed, loose}, wish)), site::DataError);
    }
    EXPECT_EQ(BimRows()[0].status, KX_DATA::kStatusShown);
    EXPECT_EQ(BimRows()[1].updaterName, QString());
}

TEST_P(BulkFilings, AreTakenBackAsTheyWereButForWhatWasChangedSince) {
    const auto before = BimRows();
    const BulkOutcome outcome = File({placed, loose}, All());
    ASSERT_TRUE(on.pics->SetBimPicsShown(first, {loose}, false));
    const BulkOutcome back = Filing().TakeBack(outcome.changed, {u"li"_s, 1700003000});
    EXPECT_EQ(back.changed.size(), 1U);
    ASSERT_EQ(back.skipped.size(), 1U);
    EXPECT_EQ(back.skipped[0].name, u"b.jpg"_s);
    EXPECT_EQ(back.skipped[0].why, u"之后又被修改过"_s);
    const auto after = BimRows();
    EXPECT_EQ(after[0].positionKey, corner);
    EXPECT_EQ(after[0].floor, u"1"_s);
    EXPECT_EQ(after[0].markId, 1);
    EXPECT_EQ(after[0].status, KX_DATA::kStatusShown);
    EXPECT_EQ(after[0].labelNames, before[0].labelNames);
    EXPECT_EQ(after[0].updaterName, before[0].updaterName);
    EXPECT_EQ(after[0].updateStamp, before[0].updateStamp);
    EXPECT_EQ(after[1].positionKey, roof);
}

TEST_P(BulkFilings, IssuesGetMarkAndStatusAndHaveThemTakenBack) {
    const QString id = Issue();
    const BulkOutcome outcome =
        Filing().FileIssues({first}, {id, u"none"_s}, {{}, 2, 1, {}, false}, kFiler);
    EXPECT_EQ(outcome.changed.size(), 1U);
    EXPECT_EQ(outcome.skipped.size(), 1U);
    EXPECT_EQ(IssueRows()[0].markId, 2);
    EXPECT_EQ(IssueRows()[0].status, KX_DATA::kStatusHidden);
    EXPECT_EQ(Filing().TakeBack(outcome.changed, kFiler).changed.size(), 1U);
    EXPECT_EQ(IssueRows()[0].markId, 1);
    EXPECT_EQ(IssueRows()[0].status, KX_DATA::kStatusShown);
}

TEST_P(BulkFilings, DrawingPhotosGetAStatusAndHaveItTakenBack) {
    const qint32 id = PdfPhoto(Point(site->AddDrawing(first, u"首层"_s), 1), u"p.jpg"_s);
    const BulkOutcome outcome =
        Filing().FilePdfPhotos({first}, {id}, {{}, {}, 1, {}, false}, kFiler);
    EXPECT_EQ(outcome.changed.size(), 1U);
    EXPECT_EQ(PdfRows()[0].status, KX_DATA::kStatusHidden);
    EXPECT_EQ(Filing().TakeBack(outcome.changed, kFiler).changed.size(), 1U);
    EXPECT_EQ(PdfRows()[0].status, KX_DATA::kStatusShown);
}

TEST_P(BulkFilings, StatisticsFollowThem) {
    const auto marks = [this] {
        std::vector<std::pair<qint32, qint64>> counts;
        for (const auto& each :
             site->Engine()->Statistics().Of(ListKind::BimPhotos, {first}, {}).marks) {
            counts.emplace_back(each.number, each.count);
        }
        return counts;
    };
    EXPECT_THAT(marks(), ElementsAre(std::pair(0, 1), std::pair(1, 1)));
    const BulkOutcome outcome = File({placed, loose}, All());
    EXPECT_THAT(marks(), ElementsAre(std::pair(2, 2)));
    const auto counted = site->Engine()->Statistics().Of(ListKind::BimPhotos, {first},
                                                         {kFiler.at, kFiler.at + 1, kFiler.at + 9});
    ASSERT_EQ(counted.places.size(), 1U);
    EXPECT_EQ(counted.places[0].name, u"9"_s);
    EXPECT_EQ(counted.places[0].count, 2);
    EXPECT_THAT(counted.weeks, ElementsAre(2, 0)) << "by the last change";
    static_cast<void>(Filing().TakeBack(outcome.changed, kFiler));
    EXPECT_THAT(marks(), ElementsAre(std::pair(0, 1), std::pair(1, 1)));
}

class BulkFilingFailures : public WithPhotosToFile<FailureContract> {};
WHERE_AN_ENGINE_FAILS(BulkFilingFailures);

TEST_P(BulkFilingFailures, FilingAndTakingBackTellItAndNothingIsChanged) {
    const BulkOutcome outcome = File({placed}, All());
    Fail({});
    EXPECT_THROW(static_cast<void>(File({loose}, All())), site::DataError);
    EXPECT_THROW(static_cast<void>(Filing().TakeBack(outcome.changed, kFiler)), site::DataError);
    if (StillReads()) {
        EXPECT_EQ(BimRows()[0].positionKey, roof);
        EXPECT_EQ(BimRows()[1].updaterName, QString());
    }
}

} // namespace contracts
