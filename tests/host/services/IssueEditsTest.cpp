// What issue services say when they refuse, and who may be asked on another thread.
#include "services/CSoapError.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IKXFilesMng.h"
#include "services/IKXReportDataMng.h"
#include "services/ITNQRCodeMng.h"
#include "services/ITNQuestionMng.h"
#include "site/IIssues.h"
#include "tests/host/services/ServiceSite.h"

#include <QFile>

#include <thread>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

struct RefusalSite : ServiceSite {
    [[nodiscard]] static QString Last() {
        QString text;
        GetSoapError()->GetLastError(text);
        return text;
    }
    [[nodiscard]] KX_DATA::QuestionPicRecord Uploaded() {
        QFile file(dir.filePath(u"up.jpg"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("abc") == 3);
        file.close();
        KX_DATA::UploadResult result;
        QString error;
        EXPECT_TRUE(GetKXFilesUploadMng()->UploadFile({{file.fileName()}}, 1, result, error));
        KX_DATA::QuestionPicRecord pic;
        pic.picId = u"g1"_s;
        pic.fileUuid = pic.thumbUuid = result.uuid;
        pic.fileMd5 = pic.thumbMd5 = result.md5;
        return pic;
    }
    const QString id = AddIssue([](site::NewIssue&) {});
};

} // namespace

TEST(IssueRefusals, APictureThatAnotherClientDeletedIsToldInTheWordsThatViewersLookFor) {
    RefusalSite site;
    EXPECT_EQ(site.Last(), QString());
    EXPECT_FALSE(GetTNQuestionMng()->DeletePics(KX_DATA::kIssuePicKind, {u"gone"_s}));
    EXPECT_EQ(site.Last(), u"要删除的图片已不存在，可能已被他人删除。"_s);
    ASSERT_EQ(site.messages.size(), 1U);
    EXPECT_EQ(site.messages[0], u"删除问题图片失败："_s + site.Last());
}

TEST(IssueRefusals, PicturesOfARectificationAreNotDeletedAsAnothersKind) {
    RefusalSite site;
    KX_DATA::RectifyRecord record;
    record.questionId = site.id;
    ASSERT_TRUE(
        GetTNQuestionMng()->AddRectifyPics(KX_DATA::kRectifyPicKind, record, {site.Uploaded()}));
    EXPECT_FALSE(GetTNQuestionMng()->DeleteRectifyPics(KX_DATA::kIssuePicKind, record, {u"g1"_s}));
    ASSERT_TRUE(GetTNQuestionMng()->GetRectification(site.id, record));
    EXPECT_EQ(record.pics.size(), 1U);
    EXPECT_TRUE(GetTNQuestionMng()->DeleteRectifyPics(KX_DATA::kRectifyPicKind, record, {u"g1"_s}));
}

TEST(IssueRefusals, EachServiceSaysWhatItRefusedLast) {
    RefusalSite site;
    KX_DATA::IssueUpdate update;
    update.questionId = u"gone"_s;
    EXPECT_FALSE(GetTNQuestionMng()->UpdateIssue(site.first, update));
    EXPECT_TRUE(site.Last().startsWith(u"TN问题"_s)) << site.Last().toStdString();
    update.questionId = site.id;
    update.componentHandle = u"9Z"_s;
    EXPECT_FALSE(GetTNQuestionMng()->UpdateIssue(site.first, update));
    EXPECT_EQ(site.Last(), u"所选的构件已不在模型中，请重新选择构件。"_s);
    KX_DATA::UploadResult result;
    QString error;
    EXPECT_FALSE(GetKXFilesUploadMng()->UploadFile({{u"/no/such"_s}}, 1, result, error));
    EXPECT_EQ(site.Last(), error);
}

TEST(IssueRefusals, PicturesAreFiledAndWhoActsIsToldOnAnUploadsOwnThread) {
    RefusalSite site;
    const KX_DATA::QuestionPicRecord pic = site.Uploaded();
    KX_DATA::RectifyRecord record;
    record.questionId = site.id;
    bool added = false;
    std::string who;
    std::jthread([&] {
        who = GetNRQAuthMng()->GetLoginInfo().userName;
        added = GetTNQuestionMng()->AddRectifyPics(KX_DATA::kRectifyPicKind, record, {pic});
    }).join();
    EXPECT_TRUE(added);
    EXPECT_EQ(who, "li");
    ASSERT_TRUE(GetTNQuestionMng()->GetRectification(site.id, record));
    EXPECT_EQ(record.pics.size(), 1U);
    EXPECT_EQ(record.rectifierName, u"li"_s);
    EXPECT_TRUE(site.messages.empty());
}

TEST(IssueRefusals, AnUploadThatOutlivesTheSessionFilesNothingAndSaysWhy) {
    RefusalSite site;
    const KX_DATA::QuestionPicRecord pic = site.Uploaded();
    site.writer.reset();
    site.session.Close();
    KX_DATA::RectifyRecord record;
    record.questionId = site.id;
    bool added = true;
    std::jthread([&] {
        added = GetTNQuestionMng()->AddRectifyPics(KX_DATA::kRectifyPicKind, record, {pic});
    }).join();
    EXPECT_FALSE(added);
    EXPECT_EQ(site.Last(), u"没有打开数据文件夹。"_s);
}

TEST(IssueHistory, WhoHidIssuesThroughTheServiceStandsInIt) {
    RefusalSite site;
    ASSERT_TRUE(GetTNQuestionMng()->SetIssuesShown(site.first, {site.id}, true));
    const auto lines = site.session.Site().Issues().History(site.first, site.id);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].person, u"li"_s);
    EXPECT_EQ(lines[0].newText, u"隐藏"_s);
}

TEST(QrCodes, EachIsAnotherOneAndLeadsToItsProject) {
    RefusalSite site;
    KX_DATA::QRCodeQuery query;
    query.ppid = site.first;
    QString one;
    QString two;
    ASSERT_NE(GetTNQRCodeMng()->CreateQRCode(query, one), 0);
    ASSERT_NE(GetTNQRCodeMng()->CreateQRCode(query, two), 0);
    EXPECT_TRUE(one.startsWith(u"kxissue:1:%1:"_s.arg(site.first))) << one.toStdString();
    EXPECT_NE(one, two);
    for (const qint32 ppid : {0, site.second}) {
        query.ppid = ppid;
        EXPECT_EQ(GetTNQRCodeMng()->CreateQRCode(query, one), 0) << "no open project";
    }
}

} // namespace host
