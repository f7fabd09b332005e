#include "bench/IssueSite.h"

#include "bench/CachedPictures.h"
#include "host/session/HostSession.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/ITNQuestionMng.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPicturesOfIssue = 200;
constexpr qint32 kIssueMark = 1;
constexpr qint64 kRaised = 1'700'000'000;
const QString kEngineer = u"bench"_s;

void FilePictures(site::SiteWriter& writer, const IssueSite& place) {
    const QByteArray stored = StoredPicture();
    for (int i = 0; i < kPicturesOfIssue; ++i) {
        site::NewIssuePic pic;
        pic.questionId = place.questionId;
        pic.fileName = u"IMG_%1.jpg"_s.arg(i);
        pic.uploader = kEngineer;
        pic.uploadTime = kRaised + i;
        writer.FileIssuePic(place.ppid, pic, {{}, stored});
    }
}

} // namespace

IssueSite FileIssue(host::HostSession& session, const QStringList& photos) {
    IssueSite place;
    site::SiteWriter writer(support::FolderOf(session));
    writer.BeginBatch();
    place.ppid = writer.AddProject(u"测速"_s);
    writer.AddUser(kEngineer, {KX_DATA::kRightEdit, KX_DATA::kRightDelete});
    writer.AddMark(kIssueMark, u"质量"_s, 0x00C0FF);
    site::NewIssue issue;
    issue.ppid = place.ppid;
    issue.theme = u"外墙渗漏"_s;
    issue.description = u"雨后渗水，需返工"_s;
    issue.floor = u"3"_s;
    issue.componentName = u"KL-5"_s;
    issue.markId = kIssueMark;
    issue.creator = kEngineer;
    issue.createTime = kRaised;
    place.questionId = writer.FileIssue(issue);
    FilePictures(writer, place);
    writer.CommitBatch();
    std::vector<KX_DATA::QuestionPicRecord> pics;
    if (!session.SignIn(kEngineer) || !session.OpenProject(place.ppid) ||
        GetTNQuestionMng()->GetIssuePics(place.ppid, place.questionId, 0, pics) == 0) {
        return {};
    }
    QString folder;
    GetKXPathMng()->GetAttachFolder(folder, place.ppid, u"测速"_s);
    QStringList uuids;
    for (const KX_DATA::QuestionPicRecord& pic : pics) {
        uuids << pic.fileUuid;
    }
    if (!PutIntoCache(uuids, folder, photos)) {
        return {};
    }
    place.firstPicture = folder + uuids.front() + u".jpg"_s;
    return place;
}

} // namespace bench
