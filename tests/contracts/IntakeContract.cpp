// IIntake and IPhotoFacts: an import files all of a batch or nothing, and nothing twice.
#include "site/IBimPhotos.h"
#include "site/IIntake.h"
#include "site/IPhotoFacts.h"
#include "tests/contracts/Contract.h"

#include <QCryptographicHash>

namespace contracts {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

QString FiledMd5(const QByteArray& bytes) {
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

template <class Base> class WithIntake : public Base {
protected:
    [[nodiscard]] site::NewBimPhoto New(const QString& name) const {
        site::NewBimPhoto photo;
        photo.ppid = this->first;
        photo.fileName = name;
        photo.uploader = u"li"_s;
        photo.uploadTime = 1700005000;
        return photo;
    }
    const std::unique_ptr<site::IIntake> intake = this->site->Engine()->NewIntake();
};

} // namespace

class Intake : public WithIntake<Contract> {};
ON_EVERY_ENGINE(Intake);

TEST_P(Intake, ABatchThatIsGivenUpLeavesNothing) {
    {
        const auto other = site->Engine()->NewIntake();
        other->BeginBatch();
        other->FilePhoto(New(u"a.jpg"_s), {{}, "one"});
        other->AddProject(u"五号楼"_s);
    }
    EXPECT_THAT(BimRows(), IsEmpty());
    EXPECT_EQ(intake->FindProject(u"五号楼"_s), 0);
    EXPECT_EQ(intake->FindPhotoByMd5(first, FiledMd5("one")), 0);
    intake->BeginBatch();
    intake->FilePhoto(New(u"a.jpg"_s), {{}, "one"});
    intake->FilePhoto(New(u"b.jpg"_s), {{}, "two"});
    intake->CommitBatch();
    EXPECT_EQ(BimRows().size(), 2U);
}

TEST_P(Intake, APhotoIsKnownByItsPictureAndByTheFileItWasMadeOf) {
    site::NewBimPhoto photo = New(u"a.jpg"_s);
    photo.original = {{}, "as it came"};
    photo.originalName = u"a.heic"_s;
    const qint32 id = intake->FilePhoto(photo, {{}, "for viewing"});
    EXPECT_EQ(intake->FindPhotoByMd5(first, FiledMd5("for viewing")), id);
    EXPECT_EQ(intake->FindPhotoByMd5(first, FiledMd5("as it came")), id);
    EXPECT_EQ(intake->FindPhotoByMd5(site->second, FiledMd5("as it came")), 0);
    ASSERT_TRUE(on.pics->DeleteBimPics({id}));
    EXPECT_EQ(intake->FindPhotoByMd5(first, FiledMd5("as it came")), 0) << "it is in the bin";
}

TEST_P(Intake, TakenAndFiledAreTwoTimesAndTheListTellsTheFiledOne) {
    site::NewBimPhoto photo = New(u"a.jpg"_s);
    photo.facts = {1600000000, u"Maker Model"_s, 31.5, -121.25, 271.5};
    photo.original = {{}, "as it came"};
    photo.originalName = u"a.heic"_s;
    const qint32 id = intake->FilePhoto(photo, {{}, "one"});
    const qint32 plain = intake->FilePhoto(New(u"b.jpg"_s), {{}, "two"});
    EXPECT_EQ(BimRows()[0].uploadStamp, 1700005000);
    const auto details = site->Engine()->PhotoFacts().Of({first}, {id, plain, kNobody});
    ASSERT_EQ(details.size(), 2U);
    EXPECT_EQ(details[0].facts, photo.facts);
    EXPECT_EQ(details[0].filed, 1700005000);
    EXPECT_EQ(details[0].originalName, u"a.heic"_s);
    EXPECT_FALSE(details[0].originalUuid.isEmpty());
    EXPECT_TRUE(details[1].facts.IsEmpty());
    EXPECT_TRUE(details[1].originalUuid.isEmpty());
    EXPECT_THAT(site->Engine()->PhotoFacts().Of({site->second}, {id}), IsEmpty());
}

TEST_P(Intake, WhatOnePersonFiledInOneGoIsListedAlone) {
    Photo();
    const qint32 from = intake->FilePhoto(New(u"a.jpg"_s), {{}, "one"});
    Photo(); // another person's, meanwhile
    const qint32 to = intake->FilePhoto(New(u"b.jpg"_s), {{}, "two"});
    site::ListFilter filter;
    filter.ppids = {first};
    filter.filed = site::FiledRun{from, to, u"li"_s};
    std::vector<qint32> listed;
    for (const auto& row :
         site->Engine()->BimPhotos().PageOf(filter, {{u"ppid"_s, false}, 1, 9}).rows) {
        listed.push_back(row.picId);
    }
    EXPECT_THAT(listed, ElementsAre(from, to));
}

class IntakeFailures : public WithIntake<FailureContract> {};
WHERE_AN_ENGINE_FAILS(IntakeFailures);

TEST_P(IntakeFailures, FilingTellsItAndFilesNothing) {
    intake->FilePhoto(New(u"a.jpg"_s), {{}, "one"});
    Fail({});
    EXPECT_THROW(intake->FilePhoto(New(u"b.jpg"_s), {{}, "two"}), site::DataError);
    if (StillReads()) {
        EXPECT_EQ(BimRows().size(), 1U);
    }
}

} // namespace contracts
