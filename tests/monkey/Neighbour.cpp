#include "tests/monkey/Neighbour.h"

#include "site/DataError.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/monkey/Faults.h"
#include "tests/roads/FolderChanges.h"
#include "tests/roads/SmallSite.h"

#include <QFile>

namespace monkey {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kTime = 1'700'000'000;

} // namespace

Neighbour::Neighbour(const QString& dataFolder) : m_data(dataFolder) {
    if (const QString fault = roads::OpenBeside(m_data); !fault.isEmpty()) {
        TellFault(fault);
    }
}

Neighbour::~Neighbour() {
    BringPhotosBack();
}

const std::vector<Neighbour::Row>& Neighbour::Table() {
    static const std::vector<Row> rows = {
        {u"deletes a photo"_s, &Neighbour::DeletePhoto},
        {u"deletes an issue"_s, &Neighbour::DeleteIssue},
        {u"files a photo"_s, &Neighbour::FilePhoto},
        {u"files a photo"_s, &Neighbour::FilePhoto},
        {u"renames a photo"_s, &Neighbour::RenamePhoto},
        {u"hides a photo"_s, &Neighbour::HidePhoto},
        {u"renames a floor"_s, &Neighbour::RenameFloor},
        {u"changes a mark"_s, &Neighbour::ChangeMark},
        {u"damages a file"_s, &Neighbour::DamageFile},
        {u"takes the photos away or brings them back"_s, &Neighbour::PhotosAway},
        {u"empties the bin"_s, &Neighbour::EmptyBin},
    };
    return rows;
}

QString Neighbour::Change(const Deed& deed) {
    if (!m_data.IsOpen()) {
        return u"isn't there"_s;
    }
    const Row& row = Table()[size_t(deed.Of(0, qsizetype(Table().size())))];
    try {
        // Nothing lasts that makes every reading fail.
        const bool bringBack = m_photosAway;
        BringPhotosBack();
        if (bringBack) {
            return u"brings the photos back"_s;
        }
        return row.name + u": "_s + (this->*row.change)(deed);
    } catch (const site::DataError& error) {
        return row.name + u": "_s + error.Text();
    }
}

QVariant Neighbour::OneOf(const QString& column, const QString& table, const Deed& deed) {
    const int count = m_data.Db().Value(u"SELECT count(*) FROM "_s + table).toInt();
    return m_data.Db().Value(u"SELECT %1 FROM %2 ORDER BY 1 LIMIT 1 OFFSET ?"_s.arg(column, table),
                             {deed.Of(1, count)});
}

QString Neighbour::DeletePhoto(const Deed& deed) {
    const qint32 photo = OneOf(u"id"_s, u"bim_photo"_s, deed).toInt();
    roads::DeletePhotos(m_data, {photo});
    return QString::number(photo);
}

QString Neighbour::DeleteIssue(const Deed& deed) {
    QString issue = OneOf(u"question_id"_s, u"issue"_s, deed).toString();
    site::Bin(m_data.Db(), m_data.Store())
        .DeleteIssues(roads::AllProjects(m_data), {issue}, roads::OtherPerson());
    return issue;
}

QString Neighbour::FilePhoto(const Deed& deed) {
    site::NewBimPhoto photo;
    photo.ppid = OneOf(u"ppid"_s, u"project"_s, deed).toInt();
    photo.fileName = u"邻居%1.jpg"_s.arg(deed.number);
    photo.positionKey =
        m_data.Db()
            .Value(u"SELECT position_key FROM position WHERE ppid = ? ORDER BY 1"_s, {photo.ppid})
            .toString();
    photo.markId = deed.Of(2, 5);
    photo.state = deed.Of(3, 5);
    photo.uploader = u"李娜"_s;
    photo.uploadTime = kTime + deed.number;
    site::SiteWriter writer(m_data);
    return QString::number(
        writer.FilePhoto(photo, {QString(), roads::JpegBytes(deed.dice[4] | 0xFF000000U)}));
}

QString Neighbour::RenamePhoto(const Deed& deed) {
    const qint32 photo = OneOf(u"id"_s, u"bim_photo"_s, deed).toInt();
    const QString& name = Texts()[deed.Of(2, Texts().size())];
    m_data.Db().Exec(u"UPDATE bim_photo SET name = ? WHERE id = ?"_s, {name + u".jpg"_s, photo});
    return QString::number(photo);
}

QString Neighbour::HidePhoto(const Deed& deed) {
    const qint32 photo = OneOf(u"id"_s, u"bim_photo"_s, deed).toInt();
    m_data.Db().Exec(u"UPDATE bim_photo SET status = 1 - status WHERE id = ?"_s, {photo});
    return QString::number(photo);
}

QString Neighbour::RenameFloor(const Deed& deed) {
    const qint32 ppid = OneOf(u"ppid"_s, u"project"_s, deed).toInt();
    const QString from =
        m_data.Db().Value(u"SELECT name FROM floor WHERE ppid = ? ORDER BY 1"_s, {ppid}).toString();
    QString to = u"层%1"_s.arg(deed.number);
    if (from.isEmpty()) {
        return u"none"_s;
    }
    roads::RenameFloor(m_data, ppid, from, to);
    return from;
}

QString Neighbour::ChangeMark(const Deed& deed) {
    const qint32 mark = deed.Of(1, 6);
    site::SiteWriter(m_data).AddMark(mark, u"标识%1"_s.arg(deed.number), qint32(deed.dice[2] >> 8));
    return QString::number(mark);
}

QString Neighbour::DamageFile(const Deed& deed) {
    const QString uuid = OneOf(u"uuid"_s, u"file"_s, deed).toString();
    const QString path = m_data.Store().PathOf(uuid);
    if (deed.Chance(2, 50)) {
        QFile::remove(path);
    } else {
        QFile::resize(path, deed.Of(3, 100));
    }
    return uuid;
}

QString Neighbour::PhotosAway(const Deed& deed) {
    Q_UNUSED(deed);
    roads::TakePhotosAway(m_data);
    m_photosAway = true;
    return u"away"_s;
}

void Neighbour::BringPhotosBack() {
    if (!m_photosAway) {
        return;
    }
    roads::BringPhotosBack(m_data);
    m_photosAway = false;
}

QString Neighbour::EmptyBin(const Deed& deed) {
    Q_UNUSED(deed);
    site::Bin bin(m_data.Db(), m_data.Store());
    std::vector<qint64> entries;
    for (const site::BinEntry& entry : bin.List()) {
        entries.push_back(entry.id);
    }
    bin.Purge(entries);
    return QString::number(entries.size());
}

} // namespace monkey
