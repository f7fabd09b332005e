#include "tests/sample/PhoneSite.h"

#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/StoredFiles.h"

#include <QFile>

namespace sampletest {

using namespace Qt::StringLiterals;

site::DataFolder& PhoneSite::Opened() {
    const auto fault = folder.Open({20, true, [this] {
                                        if (onNow) {
                                            onNow();
                                        }
                                        return kPhoneTime;
                                    }});
    EXPECT_FALSE(fault.has_value());
    return folder;
}

PhoneSite::PhoneSite() {
    site::SiteWriter writer(folder);
    writer.BeginBatch();
    const qint32 ppid = writer.AddProject(u"滨江花园"_s);
    writer.AddProject(u"空地"_s);
    for (const QString& person : {u"王工"_s, u"李工"_s, u"刘监理"_s}) {
        writer.AddUser(person, {5, 21});
    }
    writer.AddUser(u"赵总"_s, {});
    writer.AddMark(1, u"质量"_s, 0x0000FF);
    writer.AddMark(7, u"机电"_s, 0x00FF00);
    writer.AddLabel(u"防水工程"_s);
    writer.AddLabel(u"需复查"_s);
    for (const QString& floor : {u"-1"_s, u"3"_s}) {
        writer.AddPosition({ppid, floor, u"1"_s, u"A"_s, u"key-1A"_s + floor, true});
        writer.AddPosition({ppid, floor, u"2"_s, u"B"_s, u"key-2B"_s + floor, true});
        writer.AddPosition({ppid, floor, u"9"_s, u"Z"_s, u"gone"_s + floor, false});
    }
    writer.CommitBatch();
}

QStringList PhoneSite::Texts(const QString& query) const {
    QStringList texts;
    folder.Db().ForEach(query, {}, [&](const site::Statement& row) { texts << row.Text(0); });
    return texts;
}

QByteArray PhoneSite::Bytes(const QString& uuid) const {
    QFile file(folder.Store().PathOf(uuid));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int PhoneSite::StoredFiles() const {
    return support::CountStored(folder);
}

void PhoneSite::ExpectWhole() const {
    EXPECT_EQ(folder.Db().Value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
    EXPECT_EQ(StoredFiles(), Count(u"file"_s));
    EXPECT_EQ(Texts(u"SELECT i.question_id FROM issue i WHERE NOT EXISTS (SELECT 1 FROM issue_pic"
                    " p WHERE p.issue_id = i.id)"_s),
              QStringList());
    for (const QString& uuid :
         Texts(u"SELECT file_uuid FROM bim_photo UNION SELECT file_uuid FROM issue_pic"_s)) {
        EXPECT_FALSE(Bytes(uuid).isEmpty()) << uuid.toStdString();
    }
}

} // namespace sampletest
