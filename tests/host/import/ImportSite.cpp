#include "tests/host/import/ImportSite.h"

#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/StoredFiles.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace importtest {

using namespace Qt::StringLiterals;

ImportSite::ImportSite() : folder(DataPath()) {
    const std::optional<site::OpenFault> fault = folder.Open();
    EXPECT_FALSE(fault.has_value());
    site::SiteWriter writer(folder);
    writer.BeginBatch();
    const qint32 ppid = writer.AddProject(u"滨江花园"_s);
    writer.AddProject(u"科技大厦"_s);
    writer.AddUser(u"张工"_s, {5, 21, 22, 38});
    writer.AddUser(u"李工"_s, {});
    writer.AddMark(1, u"质量"_s, 0x0000FF);
    writer.AddMark(2, u"安全"_s, 0x00FF00);
    writer.AddPosition({ppid, u"3"_s, u"1"_s, u"A"_s, u"key-1A"_s, true});
    writer.AddPosition({ppid, u"3"_s, u"2"_s, u"B"_s, u"key-2B"_s, true});
    writer.CommitBatch();
    QDir().mkpath(Pictures());
}

host::ImportRequest ImportSite::Request() const {
    host::ImportRequest request;
    request.roots = QStringList{Pictures()};
    request.ppid = 1;
    request.user = u"张工"_s;
    return request;
}

QString ImportSite::Put(const QString& name, const QByteArray& bytes) const {
    return temp.Write(u"pictures/"_s + name, bytes);
}

std::vector<FiledPhoto> ImportSite::Filed(qint32 ppid) const {
    std::vector<FiledPhoto> photos;
    folder.Db().ForEach(u"SELECT name, position_key, mark_id, uploader, uploaded, file_uuid"
                        " FROM bim_photo WHERE ppid = ? ORDER BY id"_s,
                        {ppid}, [&](const site::Statement& row) {
                            FiledPhoto photo{row.Text(0), row.Text(1),  row.Int(2),
                                             row.Text(3), row.Int64(4), {}};
                            QFile stored(folder.Store().PathOf(row.Text(5)));
                            if (stored.open(QIODevice::ReadOnly)) {
                                photo.bytes = stored.readAll();
                            }
                            photos.push_back(photo);
                        });
    return photos;
}

int ImportSite::StoredFiles() const {
    return support::CountStored(folder);
}

int ImportSite::KnownFiles() const {
    return folder.Db().Value(u"SELECT count(*) FROM file"_s).toInt();
}

} // namespace importtest
