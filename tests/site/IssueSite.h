// A site of a test with an issue that has a picture, two components and a file that was uploaded.
#pragma once

#include "site/IBin.h"
#include "site/IBlobs.h"
#include "site/IIntake.h"
#include "site/IIssues.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <QFile>

namespace sitetest {

using namespace Qt::StringLiterals;

inline constexpr qint64 kRaisedAt = 1'700'000'000;

struct IssueSite : hosttest::TempSite {
    IssueSite() {
        site::SiteWriter writer(folder);
        ppid = writer.AddProject(u"滨江花园"_s);
        other = writer.AddProject(u"科技大厦"_s);
        writer.AddMark(1, u"质量"_s, 0x0000FF);
        writer.AddMark(2, u"安全"_s, 0x00FF00);
        const QString place = writer.AddPosition({ppid, u"2"_s, u"3"_s, u"B"_s, {}, true});
        writer.AddComponent({ppid,
                             u"2A"_s,
                             u"2"_s,
                             place,
                             u"KZ-1"_s,
                             u"框架柱"_s,
                             u"柱"_s,
                             {{u"标高"_s, u"3.6"_s}}});
        writer.AddComponent({ppid, u"2B"_s, u"2"_s, place, u"KL-2"_s, {}, u"梁"_s, {}});
        questionId = writer.FileIssue(Raised());
        picId = writer.FileIssuePic(ppid, Picture(u"裂缝.jpg"_s), {{}, "picture"});
    }
    [[nodiscard]] site::NewIssue Raised() const {
        site::NewIssue issue;
        issue.ppid = ppid;
        issue.theme = u"裂缝"_s;
        issue.description = u"墙面"_s;
        issue.floor = u"1"_s;
        issue.componentName = u"Q-1"_s;
        issue.componentHandle = u"1A"_s;
        issue.markId = 1;
        issue.creator = u"li"_s;
        issue.createTime = kRaisedAt;
        return issue;
    }
    [[nodiscard]] site::NewIssuePic Picture(const QString& name) const {
        site::NewIssuePic pic;
        pic.questionId = questionId;
        pic.fileName = name;
        pic.uploader = u"li"_s;
        pic.uploadTime = kRaisedAt;
        return pic;
    }
    [[nodiscard]] site::IIssues& Issues() { return engine.Issues(); }
    /// What an editor sends back in which nothing was changed.
    [[nodiscard]] KX_DATA::IssueUpdate Read() {
        KX_DATA::QuestionDetail detail;
        EXPECT_TRUE(Issues().Detail(ppid, questionId, detail));
        KX_DATA::IssueUpdate update;
        update.questionId = questionId;
        update.questionName = detail.questionName;
        update.description = detail.description;
        update.markId = detail.markId;
        update.status = detail.status;
        update.componentHandle = detail.componentHandle;
        update.floor = detail.floor;
        update.qrCode = detail.qrCode;
        return update;
    }
    [[nodiscard]] KX_DATA::QuestionDetail Detail() {
        KX_DATA::QuestionDetail detail;
        EXPECT_TRUE(Issues().Detail(ppid, questionId, detail));
        return detail;
    }
    [[nodiscard]] KX_DATA::RectifyRecord Rectification() {
        KX_DATA::RectifyRecord record;
        EXPECT_TRUE(Issues().Rectification({ppid}, questionId, record));
        return record;
    }
    [[nodiscard]] KX_DATA::UploadResult Upload(const QByteArray& bytes) {
        QFile file(dir.filePath(u"upload"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return engine.Blobs().Upload(file.fileName(), {});
    }
    /// A new picture whose two files were uploaded.
    [[nodiscard]] KX_DATA::QuestionPicRecord Uploaded(const QString& id) {
        const KX_DATA::UploadResult file = Upload("full " + id.toUtf8());
        const KX_DATA::UploadResult thumb = Upload("small");
        KX_DATA::QuestionPicRecord pic;
        pic.picId = id;
        pic.fileName = id + u".jpg"_s;
        pic.fileUuid = file.uuid;
        pic.fileMd5 = file.md5;
        pic.thumbUuid = thumb.uuid;
        pic.thumbMd5 = thumb.md5;
        return pic;
    }
    [[nodiscard]] qint64 Count(const QString& from) {
        return folder.Db().Value(u"SELECT count(*) FROM "_s + from).toLongLong();
    }
    [[nodiscard]] qint64 Hits(const QString& keyword) {
        site::ListFilter filter;
        filter.ppids = {ppid};
        filter.keyword = keyword;
        return Issues().PageOf(filter, {{}, 1, 30}).total;
    }
    /// "person: deed old > new" of each line of the history.
    [[nodiscard]] QStringList History();

    const site::Signature wang{u"wang"_s, kRaisedAt + 60};
    qint32 ppid = 0;
    qint32 other = 0;
    QString questionId;
    QString picId;
    site::SqliteSite engine{folder};
};

inline QStringList IssueSite::History() {
    QStringList lines;
    for (const site::IssueChange& line : Issues().History(ppid, questionId)) {
        lines.append(u"%1 %2 %3>%4 %5"_s.arg(line.person)
                         .arg(static_cast<int>(line.deed))
                         .arg(line.oldText, line.newText)
                         .arg(line.count));
    }
    return lines;
}

} // namespace sitetest
