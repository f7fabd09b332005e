#include "host/app/IssueIntake.h"

#include "host/app/ModelComponents.h"
#include "host/session/HostSession.h"
#include "host/ui/issues/PictureCheck.h"
#include "site/DataError.h"
#include "site/IComponents.h"
#include "site/IIntake.h"
#include "site/RectifyStates.h"

#include <QBuffer>
#include <QFileInfo>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kThumbQuality = 80;

QByteArray ThumbOf(const CollectedPicture& picture) {
    const QImage reduced = picture.reduced.isNull()
                               ? ReducedPicture(picture.path, PictureList::kReduced)
                               : picture.reduced;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    reduced.save(&buffer, "JPG", kThumbQuality);
    return bytes;
}

site::NewIssue IssueOf(const HostSession& session, const IssueDraft& draft) {
    site::NewIssue issue;
    issue.ppid = session.CurrentProject().ppid;
    issue.theme = draft.subject;
    issue.description = draft.description;
    issue.floor = draft.component.floor;
    issue.posInfo =
        AxesOfKey(session, issue.ppid, draft.component.floor, draft.component.positionKey).Short();
    issue.componentName = draft.component.name;
    issue.componentSubName = draft.component.subName;
    issue.componentHandle = draft.component.handle;
    issue.markId = draft.markId;
    issue.state = site::kStateOpen;
    issue.creator = session.UserName();
    issue.createTime = session.Site().Now();
    return issue;
}

/// What became of files and component since they were chosen.
QString LackOf(const HostSession& session, const IssueDraft& draft) {
    if (draft.component.ppid != session.CurrentProject().ppid) {
        return u"所选构件不属于当前工程，请重新选择构件。"_s;
    }
    if (!session.Site().Components().Find(draft.component.ppid, draft.component.floor,
                                          draft.component.handle)) {
        return u"所选构件已不在模型中，请重新选择构件。"_s;
    }
    for (const CollectedPicture& picture : draft.pictures) {
        if (const QString lack = PictureLack(picture.path); !lack.isEmpty()) {
            return u"图片"_s + lack + u"，请移除它或换一张后再登记。"_s;
        }
        if (picture.reduced.size() == QSize(1, 1) &&
            ReducedPicture(picture.path, PictureList::kReduced).isNull()) {
            return u"图片“%1”已损坏，无法读取，请移除它或换一张后再登记。"_s.arg(
                QFileInfo(picture.path).fileName());
        }
    }
    return {};
}

void File(const HostSession& session, const IssueDraft& draft) {
    const site::NewIssue issue = IssueOf(session, draft);
    const auto intake = session.Site().NewIntake();
    intake->BeginBatch();
    site::NewIssuePic pic;
    pic.questionId = intake->FileIssue(issue);
    pic.uploader = issue.creator;
    pic.uploadTime = issue.createTime;
    for (const CollectedPicture& picture : draft.pictures) {
        pic.fileName = QFileInfo(picture.path).fileName();
        intake->FileIssuePic(issue.ppid, pic, {picture.path, {}}, {{}, ThumbOf(picture)});
    }
    intake->CommitBatch();
}

} // namespace

QString FileDraft(const HostSession& session, const IssueDraft& draft) {
    try {
        if (const QString lack = LackOf(session, draft); !lack.isEmpty()) {
            return lack;
        }
        File(session, draft);
        return {};
    } catch (const site::DataError& error) {
        return u"没有登记：%1"_s.arg(error.Text());
    }
}

} // namespace host
