// What a deed of one's own changed is named by it, and comes back as it was.
#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/IIssues.h"
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using site::BinEntry;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const site::Signature kDoer{u"li"_s, 1700004000};

template <class Base> class WithDeeds : public Base {
protected:
    WithDeeds() {
        key = this->Position(u"1"_s, u"1"_s, u"A"_s);
        label = this->site->AddLabel(u"渗漏"_s).toInt();
        picId = this->Photo([&](site::NewBimPhoto& photo) {
            photo.positionKey = key;
            photo.labelIds = {label};
        });
        otherId = this->Photo([](site::NewBimPhoto& photo) { photo.fileName = u"b.jpg"_s; });
    }
    [[nodiscard]] site::IBin& Bin() { return this->site->Engine()->Bin(); }
    [[nodiscard]] std::vector<BinEntry> Deleted(const std::vector<qint32>& ids) {
        std::vector<BinEntry> made;
        Bin().DeleteBimPhotos({this->first}, ids, kDoer, &made);
        return made;
    }

    QString key;
    qint32 label = 0;
    qint32 picId = 0;
    qint32 otherId = 0;
};

} // namespace

class Undoing : public WithDeeds<Contract> {};
ON_EVERY_ENGINE(Undoing);

TEST_P(Undoing, ADeletedPhotoComesBackInItsPlaceWithItsLabels) {
    const auto before = BimRows();
    const std::vector<BinEntry> made = Deleted({picId, kNobody});
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(made[0].title, u"a.jpg"_s);
    EXPECT_EQ(made[0].deletedBy, u"li"_s);
    EXPECT_EQ(BimRows().size(), 1U);
    std::vector<qint64> restored;
    EXPECT_EQ(Bin().Restore({made[0].id}, &restored), 1);
    EXPECT_THAT(restored, ElementsAre(made[0].id));
    const auto after = BimRows();
    ASSERT_EQ(after.size(), 2U);
    EXPECT_EQ(after[0].picId, picId);
    EXPECT_EQ(after[0].positionKey, key);
    EXPECT_THAT(after[0].labelNames, ElementsAre(u"渗漏"_s));
    EXPECT_EQ(after[0].updaterName, before[0].updaterName);
}

TEST_P(Undoing, ADeedNamesItsOwnAlone) {
    const std::vector<BinEntry> one = Deleted({picId});
    const std::vector<BinEntry> two = Deleted({picId, otherId});
    ASSERT_EQ(two.size(), 1U) << "the other was gone";
    EXPECT_EQ(two[0].title, u"b.jpg"_s);
    EXPECT_EQ(Bin().Restore({two[0].id}), 1);
    ASSERT_EQ(Bin().List().size(), 1U);
    EXPECT_EQ(Bin().List()[0].id, one[0].id);
}

TEST_P(Undoing, WhatLeftTheBinMeanwhileIsPassedOver) {
    const std::vector<BinEntry> made = Deleted({picId, otherId});
    ASSERT_EQ(made.size(), 2U);
    Bin().Purge({made[0].id});
    std::vector<qint64> restored;
    EXPECT_EQ(Bin().Restore({made[0].id, made[1].id}, &restored), 1);
    EXPECT_THAT(restored, ElementsAre(made[1].id));
    EXPECT_EQ(Bin().Restore({made[0].id, made[1].id}), 0);
    EXPECT_THAT(Bin().List(), IsEmpty());
}

TEST_P(Undoing, OfHiddenOnesThoseAreNamedThatWereShown) {
    ASSERT_TRUE(on.pics->SetBimPicsShown(first, {otherId}, true));
    std::vector<site::NamedPhoto> changed;
    site->Engine()->BimPhotos().SetStatus(first, {picId, otherId}, KX_DATA::kStatusHidden,
                                          &changed);
    ASSERT_EQ(changed.size(), 1U);
    EXPECT_EQ(changed[0].picId, picId);
    EXPECT_EQ(changed[0].name, u"a.jpg"_s);
    const QString id = Issue();
    std::vector<site::NamedIssue> issues;
    for (int time = 0; time < 2; ++time) {
        site->Engine()->Issues().SetStatus(first, {id}, KX_DATA::kStatusHidden, kDoer, &issues);
        ASSERT_EQ(issues.size(), 1U) << "the second time it is hidden already";
    }
    EXPECT_EQ(issues[0].theme, u"裂缝"_s);
}

TEST_P(Undoing, ADeletedIssueComesBack) {
    const QString id = Issue();
    std::vector<BinEntry> made;
    ASSERT_EQ(Bin().DeleteIssues({first}, {id}, kDoer, &made), 1);
    EXPECT_THAT(IssueRows(), IsEmpty());
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(Bin().Restore({made[0].id}), 1);
    ASSERT_EQ(IssueRows().size(), 1U);
    EXPECT_EQ(IssueRows()[0].questionId, id);
}

class UndoFailures : public WithDeeds<FailureContract> {};
WHERE_AN_ENGINE_FAILS(UndoFailures);

TEST_P(UndoFailures, ARestorationTellsItAndNamesNone) {
    const std::vector<BinEntry> made = Deleted({picId});
    ASSERT_EQ(made.size(), 1U);
    Fail({});
    std::vector<qint64> restored;
    EXPECT_THROW(Bin().Restore({made[0].id}, &restored), site::DataError);
    EXPECT_THAT(restored, IsEmpty());
    if (StillReads()) {
        EXPECT_EQ(BimRows().size(), 1U);
        EXPECT_EQ(Bin().List().size(), 1U);
    }
}

} // namespace contracts
