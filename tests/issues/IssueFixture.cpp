#include "tests/issues/IssueFixture.h"

#include "frame/KXVeskPictureImpl.h"
#include "tests/support/Hands.h"
#include "tests/viewers/support/SamplePictures.h"

#include <algorithm>

using namespace Qt::StringLiterals;

IssueFixture::IssueFixture() {
    for (const QString& id : {u"q1"_s, u"q2"_s}) {
        KX_DATA::IssueRow row;
        row.questionId = id;
        row.ppid = 1;
        row.theme = u"梁底裂缝"_s;
        row.description = u"缝宽0.3"_s;
        row.floor = u"3"_s;
        row.compName = u"KL-5"_s;
        row.markId = 1;
        row.creatorName = u"张三"_s;
        row.createTime = 1772668800;
        row.updaterName = u"李四"_s;
        row.updateTime = 1772672400;
        host.questions.issues.push_back(row);
        KX_DATA::QuestionDetail& detail = host.questions.details[id];
        detail.componentHandle = u"H77"_s;
        detail.componentSubName = u"框架梁"_s;
        detail.qrCode = u"code-%1"_s.arg(id);
        host.questions.rectifications[id].state = 1;
    }
    host.questions.pics[u"q1"_s] = {Picture(u"p1"_s), Picture(u"p2"_s), Picture(u"p3"_s)};
    KX_DATA::RectifyRecord& record = host.questions.rectifications[u"q1"_s];
    record.rectifyText = u"已注浆"_s;
    record.rectifierName = u"王五"_s;
    record.pics = {Picture(u"r1"_s), Picture(u"r2"_s)};
    Facade().SetIssueEditSink(&editSink);
    host.Log().Clear();
}

bool IssueFixture::Open(const QString& questionId, qint32 readOnly) {
    Wrap().readOnly = readOnly;
    Wrap().outerRefresh = &Facade();
    return Wrap().ShowQuestion(1, questionId, mainWindow.Id());
}

bool IssueFixture::OpenRectify(const QString& questionId) {
    const bool isOpen = Open(questionId);
    Wrap().TabWnd()->SetActiveTab(1);
    return isOpen;
}

bool IssueFixture::Edit(const QString& questionId) {
    const qint32 ppid = 1;
    return Facade().EditIssue(&ppid, questionId);
}

KX_DATA::IssueRow& IssueFixture::Row(const QString& questionId) {
    return *std::ranges::find_if(host.questions.issues, [&](const KX_DATA::IssueRow& row) {
        return row.questionId == questionId;
    });
}

KX_DATA::QuestionDetail& IssueFixture::Detail(const QString& questionId) {
    return host.questions.details.at(questionId);
}

KX_DATA::QuestionPicRecord IssueFixture::Picture(const QString& id) {
    KX_DATA::QuestionPicRecord pic;
    pic.picId = id;
    pic.fileName = id + u".jpg"_s;
    pic.uploaderName = u"上传者"_s + id;
    pic.uploadTime = 1772668800;
    pic.fileUuid = u"uuid-"_s + id;
    folder.Write(u"1/attachments/uuid-%1.jpg"_s.arg(id),
                 support::JpegBytes(support::CornerMarked(QSize(300, 200))));
    return pic;
}

QString IssueFixture::TextOf(const issues::IssuePane& page, const char* name) {
    return page.Widget()->findChild<QLabel*>(QString::fromLatin1(name))->text();
}

QString IssueFixture::TipOf(const issues::IssuePane& page, const char* name) {
    return page.Widget()->findChild<QLabel*>(QString::fromLatin1(name))->toolTip();
}

void IssueFixture::Press(const char* button) {
    support::Click(&Box<QAbstractButton>(button));
}

std::vector<std::string> IssueFixture::Uuids(const issues::IssuePane& page) {
    std::vector<std::string> uuids;
    for (const GalleryItem& item : page.State().items) {
        uuids.push_back(item.picUuid.toStdString());
    }
    return uuids;
}
