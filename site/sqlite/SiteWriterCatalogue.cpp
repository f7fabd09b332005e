#include "site/sqlite/SiteWriter.h"

#include "site/FloorOrder.h"
#include "site/StoreName.h"
#include "site/sqlite/Components.h"
#include "site/sqlite/Drawings.h"
#include "site/sqlite/SiteWriterImpl.h"

namespace site {

qint32 SiteWriter::AddDrawing(qint32 ppid, const QString& name, const FileSource& source,
                              int pages) {
    const StoredFile file = m_impl->Put(source);
    return m_impl->Change([&] {
        RequireDrawingName(m_impl->db, ppid, name);
        const qint64 id = NextIdOf(m_impl->db, u"drawing"_s);
        m_impl->db.Exec(
            u"INSERT INTO drawing (id, ppid, name, file_uuid, pages) VALUES (?, ?, ?, ?, ?)"_s,
            {id, ppid, name, file.uuid, pages});
        m_impl->InsertFile(file, FileKind::Drawing, ppid, id);
        m_impl->Note(ChangeKind::Drawing, ppid, id);
        return static_cast<qint32>(id);
    });
}

qint32 SiteWriter::AddCheckpoint(qint32 ppid, const NewCheckpoint& checkpoint) {
    return m_impl->Change([&] {
        RequireKnown(m_impl->Find(u"SELECT ppid FROM drawing WHERE id = ?"_s,
                                  {checkpoint.drawingId}) == ppid,
                     u"图纸"_s);
        const qint32 id = InsertCheckpoint(m_impl->db, checkpoint);
        m_impl->Note(ChangeKind::Checkpoint, ppid, id);
        return id;
    });
}

qint32 SiteWriter::AddProject(const QString& name, qint32 major) {
    return m_impl->Change([&] {
        const qint32 known = FindProject(name);
        if (known != 0) {
            return known;
        }
        const qint64 ppid =
            m_impl->db.Insert(u"INSERT INTO project (name, major) VALUES (?, ?)"_s, {name, major});
        m_impl->Note(ChangeKind::Project, static_cast<qint32>(ppid), ppid);
        return static_cast<qint32>(ppid);
    });
}

qint32 SiteWriter::AddWorkset(const QString& name, const std::vector<qint32>& ppids) {
    return m_impl->Change([&] {
        m_impl->db.Exec(u"DELETE FROM workset WHERE name = ?"_s, {name});
        const qint64 id = m_impl->db.Insert(u"INSERT INTO workset (name) VALUES (?)"_s, {name});
        qint32 place = 0;
        for (const qint32 ppid : ppids) {
            m_impl->db.Exec(u"INSERT INTO workset_project (workset_id, ppid, place)"
                            " VALUES (?, ?, ?)"_s,
                            {id, ppid, place++});
        }
        m_impl->Note(ChangeKind::Project, 0, 0);
        return static_cast<qint32>(id);
    });
}

qint32 SiteWriter::AddUser(const QString& name, const std::vector<qint32>& rights) {
    return m_impl->Change([&] {
        qint64 id = FindUser(name);
        if (id == 0) {
            id = m_impl->db.Insert(u"INSERT INTO person (name) VALUES (?)"_s, {name});
        }
        m_impl->db.Exec(u"DELETE FROM person_right WHERE person_id = ?"_s, {id});
        for (const qint32 right : rights) {
            m_impl->db.Exec(u"INSERT INTO person_right (person_id, number) VALUES (?, ?)"_s,
                            {id, right});
        }
        m_impl->Note(ChangeKind::Person, 0, id);
        return static_cast<qint32>(id);
    });
}

void SiteWriter::AddMark(qint32 markId, const QString& name, qint32 color) {
    m_impl->Change([&] {
        m_impl->Note(ChangeKind::Mark, 0, markId);
        return m_impl->db.Exec(
            u"INSERT INTO mark (id, name, color, place) SELECT ?, ?, ?, 1 + coalesce(max(place), 0)"
            " FROM mark WHERE true ON CONFLICT (id)"
            " DO UPDATE SET name = excluded.name, color = excluded.color"_s,
            {markId, name, color});
    });
}

qint32 SiteWriter::AddLabel(const QString& name) {
    return m_impl->Change([&] {
        const qint32 known = m_impl->Find(u"SELECT id FROM label WHERE name = ?"_s, {name});
        if (known != 0) {
            return known;
        }
        const qint64 id = m_impl->db.Insert(u"INSERT INTO label (name) VALUES (?)"_s, {name});
        m_impl->Note(ChangeKind::Label, 0, id);
        return static_cast<qint32>(id);
    });
}

void SiteWriter::AddFloor(qint32 ppid, const QString& floor) {
    m_impl->Change([&] {
        m_impl->Note(ChangeKind::Place, ppid, 0);
        return m_impl->db.Exec(
            u"INSERT INTO floor (ppid, name, sort_key) VALUES (?, ?, ?) ON CONFLICT DO NOTHING"_s,
            {ppid, floor, FloorSortKey(floor)});
    });
}

QString SiteWriter::AddPosition(const NewPosition& position) {
    const QString key = position.positionKey.isEmpty() ? NewStoreName() : position.positionKey;
    return m_impl->Change([&] {
        AddFloor(position.ppid, position.floor);
        m_impl->db.Exec(u"INSERT INTO position (position_key, ppid, floor, axis_x, axis_y, valid)"
                        " VALUES (?, ?, ?, ?, ?, ?)"_s,
                        {key, position.ppid, position.floor, position.axisX, position.axisY,
                         position.valid ? 1 : 0});
        m_impl->Note(ChangeKind::Place, position.ppid, 0);
        return key;
    });
}

void SiteWriter::AddComponent(const Component& component) {
    m_impl->Change([&] {
        if (component.handle.isEmpty()) {
            throw DataError(Fault::Refused, u"构件没有编号，没有保存。"_s);
        }
        WriteComponent(m_impl->db, component);
        return true;
    });
}

void SiteWriter::SetSetting(const QString& key, const QString& value) {
    m_impl->Change([&] {
        return m_impl->db.Exec(
            u"INSERT INTO setting (key, value) VALUES (?, ?) ON CONFLICT (key) DO "
            u"UPDATE SET value ="
            " excluded.value"_s,
            {key, value});
    });
}

qint32 SiteWriter::FindProject(const QString& name) {
    return m_impl->Find(u"SELECT ppid FROM project WHERE name = ?"_s, {name});
}

qint32 SiteWriter::FindUser(const QString& name) {
    return m_impl->Find(u"SELECT id FROM person WHERE name = ?"_s, {name});
}

qint32 SiteWriter::FindMark(const QString& name) {
    return m_impl->Find(u"SELECT id FROM mark WHERE name = ?"_s, {name});
}

QString SiteWriter::FindPosition(qint32 ppid, const QString& floor, const QString& axisX,
                                 const QString& axisY) {
    return m_impl->db
        .Value(u"SELECT position_key FROM position WHERE ppid = ? AND floor = ? AND axis_x = ?"
               " AND axis_y = ?"_s,
               {ppid, floor, axisX, axisY})
        .toString();
}

qint32 SiteWriter::FindPhotoByMd5(qint32 ppid, const QString& md5) {
    return m_impl->FindPhoto(u"bim_photo"_s, FileKind::BimPhoto, ppid, md5);
}

qint32 SiteWriter::FindPdfPhotoByMd5(qint32 ppid, const QString& md5) {
    return m_impl->FindPhoto(u"pdf_photo"_s, FileKind::PdfPhoto, ppid, md5);
}

bool SiteWriter::IsEmpty() {
    return !m_impl->db.Value(u"SELECT 1 FROM project LIMIT 1"_s).isValid();
}

} // namespace site
