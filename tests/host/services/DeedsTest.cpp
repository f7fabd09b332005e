// What the services tell the host of what was deleted, hidden and shown: once done, and only that.
#include "host/services/DoneDeed.h"
#include "services/Factories.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "site/IBin.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "tests/host/services/ServiceSite.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

class DeedSite : public ServiceSite {
public:
    DeedSite() {
        serving.Around().deedDone = [this](const DoneDeed& deed) { deeds.push_back(deed); };
        photo = AddPhoto([](site::NewBimPhoto&) {});
        hidden = AddPhoto([](site::NewBimPhoto& other) { other.status = 1; });
        issue = AddIssue([](site::NewIssue&) {});
        issuePic =
            writer->FileIssuePic(first, {issue, false, u"渗水.jpg"_s, u"li"_s, 1}, {{}, "a"});
        remedyPic =
            writer->FileIssuePic(first, {issue, true, u"已改.jpg"_s, u"li"_s, 1}, {{}, "b"});
        site::NewCheckpoint point;
        point.drawingId = writer->AddDrawing(first, u"一层"_s);
        checkpoint = writer->AddCheckpoint(first, point);
        for (qint32* onPoint : {&pdfPhoto, &viewed}) {
            site::NewPdfPhoto filed;
            filed.checkpointId = checkpoint;
            filed.fileName = u"图.jpg"_s;
            *onPoint = writer->FilePdfPhoto(first, filed, {{}, "c"});
        }
    }
    [[nodiscard]] DoneDeed Only() {
        EXPECT_EQ(deeds.size(), 1U);
        const DoneDeed deed = deeds.empty() ? DoneDeed{} : deeds.front();
        deeds.clear();
        return deed;
    }
    /// The deed deleted one thing of a kind, which the bin has.
    void ExpectDeleted(site::BinKind what, const QString& name) {
        const DoneDeed deed = Only();
        EXPECT_EQ(deed.kind, DeedKind::Deleted);
        EXPECT_EQ(deed.what, what);
        ASSERT_EQ(deed.items.size(), 1U) << name.toStdString();
        EXPECT_EQ(deed.items[0].name, name);
        EXPECT_EQ(deed.items[0].ppid, first);
        EXPECT_EQ(deed.items[0].id, session.Site().Bin().List().front().id);
    }

    std::vector<DoneDeed> deeds;
    qint32 photo = 0;
    qint32 hidden = 0;
    QString issue;
    QString issuePic;
    QString remedyPic;
    qint32 checkpoint = 0;
    qint32 pdfPhoto = 0;
    qint32 viewed = 0;
};

} // namespace

TEST(Deeds, EachDeletionIsToldWithItsEntryOfTheBin) {
    DeedSite site;
    EXPECT_TRUE(GetVeskPicMng()->DeleteBimPics({site.photo}));
    site.ExpectDeleted(site::BinKind::BimPhoto, u"a.jpg"_s);
    EXPECT_TRUE(GetVeskPicMng()->DeletePdfPics(site.first, {site.pdfPhoto}));
    site.ExpectDeleted(site::BinKind::PdfPhoto, u"图.jpg"_s);
    EXPECT_NE(GetVeskPicMng()->DeleteCheckpointPic(site.checkpoint, site.viewed), 0);
    site.ExpectDeleted(site::BinKind::PdfPhoto, u"图.jpg"_s);
    EXPECT_TRUE(GetTNQuestionMng()->DeletePics(KX_DATA::kIssuePicKind, {site.issuePic}));
    site.ExpectDeleted(site::BinKind::IssuePic, u"渗水.jpg"_s);
    KX_DATA::RectifyRecord record;
    record.questionId = site.issue;
    EXPECT_TRUE(
        GetTNQuestionMng()->DeleteRectifyPics(KX_DATA::kRectifyPicKind, record, {site.remedyPic}));
    site.ExpectDeleted(site::BinKind::IssuePic, u"已改.jpg"_s);
    EXPECT_TRUE(GetTNQuestionMng()->DeleteIssues({site.issue}));
    site.ExpectDeleted(site::BinKind::Issue, u"裂缝"_s);
}

TEST(Deeds, OfAChangeOfStatusThoseAreToldThatReallyChanged) {
    DeedSite site;
    const std::vector<qint32> both{site.photo, site.hidden};
    EXPECT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.first, both, true));
    DoneDeed deed = site.Only();
    EXPECT_EQ(deed.kind, DeedKind::Hidden);
    EXPECT_EQ(deed.what, site::BinKind::BimPhoto);
    ASSERT_EQ(deed.items.size(), 1U);
    EXPECT_EQ(deed.items[0].id, site.photo);
    EXPECT_EQ(deed.items[0].ppid, site.first);
    EXPECT_EQ(deed.items[0].name, u"a.jpg"_s);
    EXPECT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.first, both, true));
    EXPECT_TRUE(site.deeds.empty()) << "both are hidden already";
    EXPECT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.first, both, false));
    deed = site.Only();
    EXPECT_EQ(deed.kind, DeedKind::Shown);
    EXPECT_EQ(deed.items.size(), 2U);
    EXPECT_TRUE(GetVeskPicMng()->SetPdfPicsShown(site.first, {site.pdfPhoto}, true));
    deed = site.Only();
    EXPECT_EQ(deed.what, site::BinKind::PdfPhoto);
    EXPECT_EQ(deed.items[0].id, site.pdfPhoto);
    EXPECT_TRUE(GetTNQuestionMng()->SetIssuesShown(site.first, {site.issue}, true));
    deed = site.Only();
    EXPECT_EQ(deed.kind, DeedKind::Hidden);
    EXPECT_EQ(deed.what, site::BinKind::Issue);
    EXPECT_EQ(deed.items[0].questionId, site.issue);
    EXPECT_EQ(deed.items[0].name, u"裂缝"_s);
}

TEST(Deeds, WhatFailsIsNotTold) {
    DeedSite site;
    EXPECT_FALSE(GetVeskPicMng()->DeleteBimPics({4711}));
    EXPECT_FALSE(GetVeskPicMng()->DeletePdfPics(site.second, {site.pdfPhoto}));
    EXPECT_EQ(GetVeskPicMng()->DeleteCheckpointPic(site.checkpoint, 4711), 0);
    EXPECT_FALSE(GetVeskPicMng()->SetBimPicsShown(site.second, {site.photo}, true));
    EXPECT_FALSE(GetTNQuestionMng()->DeleteIssues({u"gone"_s}));
    EXPECT_FALSE(
        GetTNQuestionMng()->DeletePics(KX_DATA::kIssuePicKind, {site.issuePic, u"gone"_s}));
    EXPECT_FALSE(GetTNQuestionMng()->SetIssuesShown(site.first, {u"gone"_s}, true));
    EXPECT_TRUE(GetVeskPicMng()->DeleteBimPics({})) << "nothing was chosen";
    EXPECT_TRUE(site.deeds.empty());
    site.writer.reset();
    site.session.Close();
    EXPECT_FALSE(GetVeskPicMng()->DeleteBimPics({site.photo}));
    EXPECT_TRUE(site.deeds.empty());
}

TEST(Deeds, OfADeletionOfWhichPartWasGoneTheRestIsTold) {
    DeedSite site;
    EXPECT_TRUE(GetVeskPicMng()->DeleteBimPics({4711, site.photo, site.hidden}));
    EXPECT_EQ(site.Only().items.size(), 2U);
}

TEST(Deeds, AClientThatHasGoneIsNotTold) {
    DeedSite site;
    site.serving.TakeBack();
    EXPECT_TRUE(GetVeskPicMng()->DeleteBimPics({site.photo}));
    EXPECT_TRUE(site.deeds.empty());
}

} // namespace host
