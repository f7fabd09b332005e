// What is changed of issues, rectifications and their pictures; codes and components.
#include "tests/contracts/Contract.h"

#include <QFile>
#include <QTemporaryDir>

namespace contracts {

using namespace Qt::StringLiterals;

namespace {

template <class Base> class WithIssue : public Base {
protected:
    WithIssue() {
        id = this->Issue([](site::NewIssue& issue) {
            issue.componentName = u"Q-1"_s;
            issue.componentHandle = u"1A"_s;
        });
        record.questionId = id;
    }

    [[nodiscard]] KX_DATA::QuestionDetail Detail() {
        KX_DATA::QuestionDetail detail;
        EXPECT_NE(this->on.issues->GetIssueDetail(this->first, id, detail), 0);
        return detail;
    }
    /// What an editor sends in which nothing was changed.
    [[nodiscard]] KX_DATA::IssueUpdate Read() {
        const KX_DATA::QuestionDetail detail = Detail();
        return {detail.description, id, detail.markId,          detail.questionName,
                detail.status,      {}, detail.componentHandle, detail.floor,
                detail.qrCode};
    }
    [[nodiscard]] KX_DATA::RectifyRecord Rectification() {
        KX_DATA::RectifyRecord read;
        EXPECT_TRUE(this->on.issues->GetRectification(id, read));
        return read;
    }
    [[nodiscard]] std::vector<KX_DATA::QuestionPicRecord> Pics() {
        std::vector<KX_DATA::QuestionPicRecord> pics;
        EXPECT_NE(this->on.issues->GetIssuePics(this->first, id, 0, pics), 0);
        return pics;
    }
    /// With two files that were uploaded.
    [[nodiscard]] KX_DATA::QuestionPicRecord Uploaded(const QString& picId) {
        KX_DATA::QuestionPicRecord pic;
        pic.picId = picId;
        pic.fileName = u"整改.jpg"_s;
        pic.uploaderName = u"li"_s;
        pic.uploadTime = 1700000000;
        const KX_DATA::UploadResult file = Upload("full");
        const KX_DATA::UploadResult thumb = Upload("tiny!");
        pic.fileUuid = file.uuid;
        pic.fileMd5 = file.md5;
        pic.fileSize = file.size;
        pic.thumbUuid = thumb.uuid;
        pic.thumbMd5 = thumb.md5;
        pic.thumbSize = thumb.size;
        return pic;
    }

    QString id;
    KX_DATA::RectifyRecord record; ///< as a viewer hands it over

private:
    KX_DATA::UploadResult Upload(const QByteArray& bytes) {
        QFile file(m_dir.filePath(u"up.jpg"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        KX_DATA::UploadResult result;
        QString error;
        EXPECT_TRUE(this->on.uploads->UploadFile({{file.fileName()}}, 1, result, error));
        return result;
    }

    QTemporaryDir m_dir;
};

} // namespace

class IssueEdits : public WithIssue<Contract> {};
ON_EVERY_SITE(IssueEdits);

TEST_P(IssueEdits, AnUpdateChangesWhatItNamesAndSaysWho) {
    KX_DATA::IssueUpdate update = Read();
    update.questionName = u"渗水"_s;
    update.description = u"一片"_s;
    update.markId = 2;
    update.status = 1;
    update.qrCode = u"code"_s;
    ASSERT_TRUE(on.issues->UpdateIssue(first, update));
    EXPECT_EQ(Detail().questionName, u"渗水"_s);
    EXPECT_EQ(Detail().description, u"一片"_s);
    EXPECT_EQ(Detail().markId, 2);
    EXPECT_EQ(Detail().status, 1);
    EXPECT_EQ(Detail().qrCode, u"code"_s);
    EXPECT_EQ(Detail().updaterName, u"li"_s);
    EXPECT_EQ(Detail().creatorName, u"zhang"_s);
}

TEST_P(IssueEdits, AnUpdateLeavesAloneWhatItCantKnow) {
    KX_DATA::IssueUpdate update = Read();
    update.qrCode = u"code"_s;
    ASSERT_TRUE(on.issues->UpdateIssue(first, update));
    update.qrCode.clear();
    update.componentHandle.clear();
    update.floor.clear();
    update.markId = 0;
    update.status = -1;
    ASSERT_TRUE(on.issues->UpdateIssue(first, update));
    EXPECT_EQ(Detail().qrCode, u"code"_s);
    EXPECT_EQ(Detail().componentHandle, u"1A"_s);
    EXPECT_EQ(Detail().floor, u"1"_s);
    EXPECT_EQ(Detail().markId, 1);
    EXPECT_EQ(Detail().status, 0);
}

TEST_P(IssueEdits, AnotherComponentBringsItsFloorAndNamesAndAnUnknownOneIsRefused) {
    site->AddComponent({first, u"2A"_s, u"2"_s, {}, u"KZ-1"_s, u"框架柱"_s, u"柱"_s, {}});
    KX_DATA::IssueUpdate update = Read();
    update.componentHandle = u"2A"_s;
    update.floor = u"2"_s;
    ASSERT_TRUE(on.issues->UpdateIssue(first, update));
    EXPECT_EQ(Detail().componentName, u"KZ-1"_s);
    EXPECT_EQ(Detail().componentSubName, u"框架柱"_s);
    EXPECT_EQ(Detail().componentHandle, u"2A"_s);
    EXPECT_EQ(Detail().floor, u"2"_s);
    update.componentHandle = u"9Z"_s;
    update.questionName = u"新"_s;
    EXPECT_FALSE(on.issues->UpdateIssue(first, update));
    EXPECT_EQ(Detail().questionName, u"裂缝"_s);
}

TEST_P(IssueEdits, AnIssueThatIsGoneOrForeignIsNotUpdated) {
    KX_DATA::IssueUpdate update = Read();
    update.questionName = u"新"_s;
    EXPECT_FALSE(on.issues->UpdateIssue(site->second, update));
    update.questionId = u"unknown"_s;
    EXPECT_FALSE(on.issues->UpdateIssue(first, update));
    EXPECT_EQ(Detail().questionName, u"裂缝"_s);
    ASSERT_TRUE(on.issues->DeleteIssues({id}));
    update.questionId = id;
    EXPECT_FALSE(on.issues->UpdateIssue(first, update));
    EXPECT_FALSE(on.issues->SaveRectification({id, u"好"_s, 2, {}, 0, {}}));
    EXPECT_FALSE(on.issues->AddRectifyPics(0, record, {Uploaded(u"g1"_s)}));
}

TEST_P(IssueEdits, ARectificationIsSavedAndWhoSavedItIsItsRectifier) {
    ASSERT_TRUE(on.issues->SaveRectification({id, u"已修补"_s, 2, {}, 0, {}}));
    EXPECT_EQ(Rectification().rectifyText, u"已修补"_s);
    EXPECT_EQ(Rectification().state, 2);
    EXPECT_EQ(Rectification().rectifierName, u"li"_s);
    EXPECT_FALSE(on.issues->SaveRectification({u"unknown"_s, {}, 0, {}, 0, {}}));
}

TEST_P(IssueEdits, UploadedPicturesAreAddedUnderTheirOwnIdsAndRemovedAgain) {
    const std::vector pics{Uploaded(u"g1"_s), Uploaded(u"g2"_s)};
    ASSERT_TRUE(on.issues->AddRectifyPics(0, record, pics));
    const KX_DATA::RectifyRecord read = Rectification();
    ASSERT_EQ(read.pics.size(), 2U);
    EXPECT_EQ(read.rectifierName, u"li"_s);
    EXPECT_EQ(read.pics[0].picId, u"g1"_s);
    EXPECT_EQ(read.pics[0].fileName, u"整改.jpg"_s);
    EXPECT_EQ(read.pics[0].uploaderName, u"li"_s);
    EXPECT_EQ(read.pics[0].uploadTime, 1700000000);
    EXPECT_EQ(read.pics[0].fileUuid, pics[0].fileUuid);
    EXPECT_EQ(read.pics[0].fileMd5, pics[0].fileMd5);
    EXPECT_EQ(read.pics[0].fileSize, 4);
    EXPECT_EQ(read.pics[0].thumbUuid, pics[0].thumbUuid);
    EXPECT_EQ(read.pics[0].thumbSize, 5);
    EXPECT_TRUE(Pics().empty()) << "they are the rectification's";
    EXPECT_FALSE(on.issues->DeleteRectifyPics(0, record, {u"g1"_s, u"gone"_s}));
    EXPECT_EQ(Rectification().pics.size(), 2U);
    EXPECT_TRUE(on.issues->DeleteRectifyPics(0, record, {u"g1"_s}));
    ASSERT_EQ(Rectification().pics.size(), 1U);
    EXPECT_EQ(Rectification().pics[0].picId, u"g2"_s);
}

TEST_P(IssueEdits, OnePictureWithoutItsFileKeepsAllOfThemOut) {
    KX_DATA::QuestionPicRecord bad = Uploaded(u"g2"_s);
    bad.thumbUuid = u"nowhere"_s;
    EXPECT_FALSE(on.issues->AddRectifyPics(0, record, {Uploaded(u"g1"_s), bad}));
    EXPECT_TRUE(Rectification().pics.empty());
    EXPECT_EQ(Rectification().rectifierName, QString());
}

TEST_P(IssueEdits, PicturesOfAnIssueAreRemovedAllOrNone) {
    site->AddIssuePic({id, false, u"a.jpg"_s, u"zhang"_s, 5}, "abc");
    site->AddIssuePic({id, true, u"b.jpg"_s, u"zhao"_s, 6}, "defg");
    const QString picId = Pics().at(0).picId;
    EXPECT_FALSE(on.issues->DeletePics(1, {picId, u"gone"_s}));
    EXPECT_FALSE(on.issues->DeletePics(1, {Rectification().pics.at(0).picId}));
    ASSERT_EQ(Pics().size(), 1U);
    EXPECT_TRUE(on.issues->DeletePics(1, {picId}));
    EXPECT_TRUE(Pics().empty());
    EXPECT_EQ(Rectification().pics.size(), 1U);
    EXPECT_FALSE(on.issues->DeletePics(1, {picId}));
}

TEST_P(IssueEdits, PicturesOfAnotherKindAreRefused) {
    site->AddIssuePic({id, false, u"a.jpg"_s, u"zhang"_s, 5}, "abc");
    EXPECT_FALSE(on.issues->DeletePics(0, {Pics().at(0).picId}));
    EXPECT_FALSE(on.issues->AddRectifyPics(1, record, {Uploaded(u"g1"_s)}));
    ASSERT_TRUE(on.issues->AddRectifyPics(0, record, {Uploaded(u"g1"_s)}));
    EXPECT_FALSE(on.issues->DeleteRectifyPics(1, record, {u"g1"_s}));
    EXPECT_EQ(Pics().size(), 1U);
    EXPECT_EQ(Rectification().pics.size(), 1U);
}

TEST_P(IssueEdits, AComponentOfTheModelTellsItsSubName) {
    site->AddComponent({first, u"2A"_s, u"2"_s, {}, u"KZ-1"_s, u"框架柱"_s, u"柱"_s, {}});
    std::vector<KX_DATA::ComponentInfo> found;
    ASSERT_NE(on.reportData->GetComponentInfo({-1, u"2A"_s, u"2"_s, {}, {}}, found), 0);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].componentSubName, u"框架柱"_s);
}

TEST_P(IssueEdits, ACodeIsATextThatAnUpdateTakes) {
    KX_DATA::QRCodeQuery query;
    query.ppid = first;
    query.componentHandle = u"1A"_s;
    KX_DATA::IssueUpdate update = Read();
    ASSERT_NE(on.qrCodes->CreateQRCode(query, update.qrCode), 0);
    EXPECT_TRUE(update.qrCode.startsWith(u"kxissue:1:1:"_s)) << update.qrCode.toStdString();
    ASSERT_TRUE(on.issues->UpdateIssue(first, update));
    EXPECT_EQ(Detail().qrCode, update.qrCode);
}

class IssueReadFailures : public FailureContract {};
WHERE_READING_FAILS(IssueReadFailures);

TEST_P(IssueReadFailures, ComponentsTellItAndLeaveTheListAlone) {
    Fail({"GetComponentInfo"});
    std::vector<KX_DATA::ComponentInfo> components(2);
    EXPECT_EQ(on.reportData->GetComponentInfo({-1, u"2A"_s, u"2"_s, {}, {}}, components), 0);
    EXPECT_EQ(components.size(), 2U);
}

class CodeFailures : public FailureContract {};
WHERE_NOTHING_IS_OPEN(CodeFailures);

TEST_P(CodeFailures, WithoutAnOpenProjectThereIsNoCode) {
    Fail({"CreateQRCode"});
    KX_DATA::QRCodeQuery query;
    query.ppid = first;
    QString text = u"old"_s;
    EXPECT_EQ(on.qrCodes->CreateQRCode(query, text), 0);
    EXPECT_EQ(text, u"old"_s);
}

class IssueEditFailures : public WithIssue<FailureContract> {};
WHERE_WRITING_FAILS(IssueEditFailures);

TEST_P(IssueEditFailures, EveryChangeTellsItAndChangesNothing) {
    site->AddIssuePic({id, false, u"a.jpg"_s, u"zhang"_s, 5}, "abc");
    site->AddIssuePic({id, true, u"b.jpg"_s, u"zhao"_s, 6}, "defg");
    const QString picId = Pics().at(0).picId;
    const QString remedyId = Rectification().pics.at(0).picId;
    const KX_DATA::QuestionPicRecord added = Uploaded(u"g1"_s);
    KX_DATA::IssueUpdate update = Read();
    update.questionName = u"新"_s;
    Fail({"UpdateIssue", "SaveRectification", "DeletePics", "AddRectifyPics", "DeleteRectifyPics"});
    EXPECT_FALSE(on.issues->UpdateIssue(first, update));
    EXPECT_FALSE(on.issues->SaveRectification({id, u"新"_s, 2, {}, 0, {}}));
    EXPECT_FALSE(on.issues->DeletePics(1, {picId}));
    if (GetParam().trouble != Trouble::ReadOnly) {
        EXPECT_FALSE(on.issues->AddRectifyPics(0, record, {added}));
    }
    EXPECT_FALSE(on.issues->DeleteRectifyPics(0, record, {remedyId}));
    if (StillReads()) {
        EXPECT_EQ(Detail().questionName, u"裂缝"_s);
        EXPECT_EQ(Rectification().rectifyText, QString());
        EXPECT_EQ(Pics().size(), 1U);
        EXPECT_EQ(Rectification().pics.front().picId, remedyId);
    }
}

} // namespace contracts
