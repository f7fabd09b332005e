#include "tests/host/services/ServiceSite.h"

#include "services/Factories.h"
#include "tests/support/EngineFolder.h"

namespace hosttest {

using namespace Qt::StringLiterals;

ServiceSite::ServiceSite() {
    session.Desk()->SetMessageSink(
        [this](host::MessageLevel, const QString& text) { messages.push_back(text); });
    const auto fault = session.Open(dir.filePath(u"site"_s), {500, true});
    EXPECT_FALSE(fault.has_value());
    writer = std::make_unique<site::SiteWriter>(support::FolderOf(session));
    first = writer->AddProject(u"一号楼"_s, 2);
    second = writer->AddProject(u"二号楼"_s);
    workset = writer->AddWorkset(u"全部"_s, {first, second});
    writer->AddUser(u"li"_s, {5, 21, 22, 38});
    writer->AddUser(u"guest"_s, {});
    writer->AddMark(1, u"质量"_s, 0x0000ff);
    writer->AddMark(2, u"安全"_s, 0x00ff00);
    EXPECT_TRUE(session.SignIn(u"li"_s));
    EXPECT_TRUE(session.OpenProject(first));
}

site::NewBimPhoto ServiceSite::UsualPhoto() const {
    site::NewBimPhoto photo;
    photo.ppid = first;
    photo.fileName = u"a.jpg"_s;
    photo.markId = 1;
    photo.uploader = u"zhang"_s;
    photo.uploadTime = 1700000000;
    return photo;
}

site::NewIssue ServiceSite::UsualIssue() const {
    site::NewIssue issue;
    issue.ppid = first;
    issue.theme = u"裂缝"_s;
    issue.floor = u"1"_s;
    issue.markId = 1;
    issue.creator = u"zhang"_s;
    issue.createTime = 1700000000;
    return issue;
}

KX_DATA::PicQueryFilter ServiceSite::Filter() const {
    KX_DATA::PicQueryFilter filter;
    filter.projectIds = {first};
    return filter;
}

std::vector<KX_DATA::BimPicRow> ServiceSite::Photos(const KX_DATA::PicQueryFilter& filter,
                                                    const QString& sort, const QString& order) {
    KX_DATA::PageRequest request{1, 30, sort, order};
    std::vector<KX_DATA::BimPicRow> all;
    while (true) {
        KX_DATA::PageResult result;
        std::vector<KX_DATA::BimPicRow> rows;
        EXPECT_EQ(GetVeskPicMng()->QueryBimPics(filter, request, result, rows),
                  KX_DATA::kServiceOk);
        all.insert(all.end(), rows.begin(), rows.end());
        if (request.page++ >= result.pageCount) {
            EXPECT_EQ(result.totalCount, static_cast<qint32>(all.size()));
            EXPECT_EQ(result.pageCount, (result.totalCount + 29) / 30);
            return all;
        }
    }
}

std::vector<qint32> ServiceSite::PhotoIds(const KX_DATA::PicQueryFilter& filter,
                                          const QString& sort, const QString& order) {
    std::vector<qint32> ids;
    for (const KX_DATA::BimPicRow& row : Photos(filter, sort, order)) {
        ids.push_back(row.picId);
    }
    return ids;
}

} // namespace hosttest
