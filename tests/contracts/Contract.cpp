#include "tests/contracts/Contract.h"

#include "tests/contracts/FolderSite.h"
#include "tests/contracts/ScriptedSite.h"

namespace contracts {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kAllRows = 1000;
constexpr qint64 kUploadTime = 1700000000;

SiteRow DoubleRow() {
    return {"Double", [] { return std::make_unique<ScriptedSite>(); }};
}

SiteRow FolderRow() {
    return {"Folder", [] { return std::make_unique<FolderSite>(); }};
}

} // namespace

std::vector<SiteRow> AllSites() {
    return {DoubleRow(), FolderRow()};
}

std::vector<SiteRow> EngineSites() {
    return {FolderRow()};
}

std::vector<FailureRow> EngineFailures() {
    return {{FolderRow(), Trouble::Broken, "FolderBroken"},
            {FolderRow(), Trouble::Locked, "FolderLocked"},
            {FolderRow(), Trouble::ReadOnly, "FolderReadOnly"}};
}

std::vector<FailureRow> ClosingFailures() {
    return {{DoubleRow(), Trouble::Scripted, "Double"},
            {FolderRow(), Trouble::Closed, "FolderClosed"}};
}

std::vector<FailureRow> ReadingFailures() {
    std::vector<FailureRow> rows = ClosingFailures();
    rows.push_back({FolderRow(), Trouble::Broken, "FolderBroken"});
    return rows;
}

std::vector<FailureRow> WritingFailures() {
    std::vector<FailureRow> rows = ReadingFailures();
    rows.push_back({FolderRow(), Trouble::Locked, "FolderLocked"});
    rows.push_back({FolderRow(), Trouble::ReadOnly, "FolderReadOnly"});
    return rows;
}

qint32 SiteUser::Photo(const std::function<void(site::NewBimPhoto&)>& change) {
    site::NewBimPhoto photo;
    photo.ppid = first;
    photo.fileName = u"a.jpg"_s;
    photo.markId = 1;
    photo.uploader = u"zhang"_s;
    photo.uploadTime = kUploadTime;
    if (change) {
        change(photo);
    }
    return site->AddPhoto(photo, "jpeg", {});
}

QString SiteUser::Issue(const std::function<void(site::NewIssue&)>& change) {
    site::NewIssue issue;
    issue.ppid = first;
    issue.theme = u"裂缝"_s;
    issue.floor = u"1"_s;
    issue.markId = 1;
    issue.creator = u"zhang"_s;
    issue.createTime = kUploadTime;
    if (change) {
        change(issue);
    }
    return site->AddIssue(issue, {});
}

qint32 SiteUser::Point(qint32 drawingId, qint32 number,
                       const std::function<void(site::NewCheckpoint&)>& change) {
    site::NewCheckpoint point;
    point.drawingId = drawingId;
    point.number = number;
    point.markId = 1;
    if (change) {
        change(point);
    }
    return site->AddCheckpoint(point, "amr");
}

qint32 SiteUser::PdfPhoto(qint32 pointId, const QString& name,
                          const std::function<void(site::NewPdfPhoto&)>& change) {
    site::NewPdfPhoto photo;
    photo.checkpointId = pointId;
    photo.fileName = name;
    photo.uploader = u"zhang"_s;
    photo.uploadTime = kUploadTime;
    if (change) {
        change(photo);
    }
    return site->AddPdfPhoto(photo, "jpeg");
}

QString SiteUser::Position(const QString& floor, const QString& x, const QString& y,
                           const QString& key) {
    return site->AddPosition({first, floor, x, y, key, true});
}

KX_DATA::PicQueryFilter SiteUser::Filter() const {
    KX_DATA::PicQueryFilter filter;
    filter.projectIds = {first};
    return filter;
}

KX_DATA::PdfQueryFilter SiteUser::PdfFilter() const {
    KX_DATA::PdfQueryFilter filter;
    filter.projectIds = {first};
    return filter;
}

std::vector<KX_DATA::BimPicRow> SiteUser::BimRows() {
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    EXPECT_EQ(on.pics->QueryBimPics(Filter(), {1, kAllRows, u"ppid"_s, u"asc"_s}, result, rows),
              KX_DATA::kServiceOk);
    return rows;
}

std::vector<KX_DATA::PdfPicRecord> SiteUser::PdfRows() {
    KX_DATA::PageResult result;
    std::vector<KX_DATA::PdfPicRecord> rows;
    EXPECT_NE(on.pics->QueryPdfPics(PdfFilter(), {1, kAllRows, u"ppid"_s, u"asc"_s}, result, rows),
              0);
    return rows;
}

std::vector<KX_DATA::IssueRow> SiteUser::IssueRows() {
    KX_DATA::PageResult result;
    std::vector<KX_DATA::IssueRow> rows;
    EXPECT_EQ(on.issues->QueryIssues(Filter(), {1, kAllRows, u"ppid"_s, u"asc"_s}, result, rows),
              KX_DATA::kServiceOk);
    return rows;
}

} // namespace contracts
