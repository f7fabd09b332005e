#include "site/sqlite/SetupWriter.h"

#include "site/sqlite/Database.h"
#include "site/sqlite/SetupUses.h"

#include <algorithm>

namespace site {

using namespace Qt::StringLiterals;

namespace {

template <typename Entry> qint32 IdOf(const Entry& entry) {
    return entry.id;
}

qint32 IdOf(const SetupProject& project) {
    return project.ppid;
}

/// Null for one that isn't there, or has no id yet.
template <typename Entry> const Entry* Find(const std::vector<Entry>& entries, qint32 id) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
        return id != 0 && IdOf(entry) == id;
    });
    return found == entries.end() ? nullptr : &*found;
}

template <typename Entry>
std::vector<Entry> Missing(const std::vector<Entry>& seen, const std::vector<Entry>& wanted) {
    std::vector<Entry> missing;
    for (const Entry& entry : seen) {
        if (Find(wanted, IdOf(entry)) == nullptr) {
            missing.push_back(entry);
        }
    }
    return missing;
}

/// Frees the names that entries are to give to each other.
template <typename Entry>
void FreeNames(Database& database, const QString& table, const QString& id,
               const std::vector<Entry>& seen, const std::vector<Entry>& wanted) {
    for (const Entry& entry : wanted) {
        const Entry* before = Find(seen, IdOf(entry));
        if (before != nullptr && before->name != entry.name) {
            database.Exec(u"UPDATE %1 SET name = char(1) || %2 WHERE %2 = ?"_s.arg(table, id),
                          {IdOf(entry)});
        }
    }
}

} // namespace

void SetupWriter::RefuseUsed(SetupList list, const QString& name, const QString& uses,
                             const QString& instead) {
    m_refusals.push_back(
        u"%1“%2”正在使用（%3），不能删除。%4"_s.arg(NameOf(list), name, uses, instead));
}

qint32 SetupWriter::PpidOf(const QString& project) {
    return m_database.Value(u"SELECT ppid FROM project WHERE name = ?"_s, {project}).toInt();
}

void SetupWriter::Projects(const std::vector<SetupProject>& seen,
                           const std::vector<SetupProject>& wanted) {
    for (const SetupProject& gone : Missing(seen, wanted)) {
        const QString uses = UsesOfProject(m_database, gone.ppid);
        if (!uses.isEmpty()) {
            RefuseUsed(SetupList::Project, gone.name, uses, u"可以改为归档。"_s);
            continue;
        }
        for (const QString& table :
             {u"component"_s, u"position"_s, u"floor"_s, u"workset_project"_s, u"project"_s}) {
            m_database.Exec(u"DELETE FROM %1 WHERE ppid = ?"_s.arg(table), {gone.ppid});
        }
        m_database.Log().Note(ChangeKind::Project, gone.ppid, gone.ppid, m_by.person);
    }
    FreeNames(m_database, u"project"_s, u"ppid"_s, seen, wanted);
    for (const SetupProject& project : wanted) {
        const SetupProject* before = Find(seen, project.ppid);
        if (before != nullptr && *before == project) {
            continue;
        }
        qint64 ppid = project.ppid;
        if (before != nullptr) {
            m_database.Exec(
                u"UPDATE project SET name = ?, major = ?, archived = ? WHERE ppid = ?"_s,
                {project.name, project.major, project.archived ? 1 : 0, ppid});
        } else {
            ppid =
                m_database.Insert(u"INSERT INTO project (name, major, archived) VALUES (?, ?, ?)"_s,
                                  {project.name, project.major, project.archived ? 1 : 0});
        }
        m_database.Log().Note(ChangeKind::Project, static_cast<qint32>(ppid), ppid, m_by.person);
    }
}

void SetupWriter::Worksets(const std::vector<SetupWorkset>& seen,
                           const std::vector<SetupWorkset>& wanted) {
    if (seen == wanted) {
        return;
    }
    for (const SetupWorkset& gone : Missing(seen, wanted)) {
        m_database.Exec(u"DELETE FROM workset WHERE id = ?"_s, {gone.id});
    }
    FreeNames(m_database, u"workset"_s, u"id"_s, seen, wanted);
    for (const SetupWorkset& workset : wanted) {
        qint64 id = workset.id;
        if (Find(seen, workset.id) != nullptr) {
            m_database.Exec(u"UPDATE workset SET name = ?, archived = ? WHERE id = ?"_s,
                            {workset.name, workset.archived ? 1 : 0, id});
            m_database.Exec(u"DELETE FROM workset_project WHERE workset_id = ?"_s, {id});
        } else {
            id = m_database.Insert(u"INSERT INTO workset (name, archived) VALUES (?, ?)"_s,
                                   {workset.name, workset.archived ? 1 : 0});
        }
        qint32 place = 0;
        for (const QString& project : workset.projects) {
            m_database.Exec(u"INSERT INTO workset_project (workset_id, ppid, place)"
                            " VALUES (?, ?, ?)"_s,
                            {id, PpidOf(project), place++});
        }
    }
    m_database.Log().Note(ChangeKind::Project, 0, 0, m_by.person);
}

void SetupWriter::WriteRights(qint64 personId, const std::vector<qint32>& rights) {
    m_database.Exec(u"DELETE FROM person_right WHERE person_id = ?"_s, {personId});
    for (const qint32 right : rights) {
        m_database.Exec(u"INSERT INTO person_right (person_id, number) VALUES (?, ?)"
                        " ON CONFLICT DO NOTHING"_s,
                        {personId, right});
    }
}

void SetupWriter::People(const std::vector<SetupPerson>& seen,
                         const std::vector<SetupPerson>& wanted) {
    for (const SetupPerson& gone : Missing(seen, wanted)) {
        const QString uses = UsesOfPerson(m_database, gone.id);
        if (!uses.isEmpty()) {
            RefuseUsed(SetupList::Person, gone.name, uses, u"可以改为停用。"_s);
            continue;
        }
        m_database.Exec(u"DELETE FROM person WHERE id = ?"_s, {gone.id});
        m_database.Log().Note(ChangeKind::Person, 0, gone.id, m_by.person);
    }
    for (const SetupPerson& person : wanted) {
        const SetupPerson* before = Find(seen, person.id);
        if (before != nullptr && *before == person) {
            continue;
        }
        if (before != nullptr && before->name != person.name) {
            m_refusals.push_back(
                u"人员“%1”不能改名：已有的记录以这个姓名署名。请停用后新建。"_s.arg(before->name));
            continue;
        }
        qint64 id = person.id;
        if (before != nullptr) {
            m_database.Exec(u"UPDATE person SET active = ? WHERE id = ?"_s,
                            {person.active ? 1 : 0, id});
        } else {
            id = m_database.Insert(u"INSERT INTO person (name, active) VALUES (?, ?)"_s,
                                   {person.name, person.active ? 1 : 0});
        }
        WriteRights(id, person.rights);
        m_database.Log().Note(ChangeKind::Person, 0, id, m_by.person);
    }
}

void SetupWriter::Marks(const std::vector<SetupMark>& seen, const std::vector<SetupMark>& wanted) {
    if (seen == wanted) {
        return;
    }
    for (const SetupMark& gone : Missing(seen, wanted)) {
        const QString uses = UsesOfMark(m_database, gone.id);
        if (!uses.isEmpty()) {
            RefuseUsed(SetupList::Mark, gone.name, uses, {});
            continue;
        }
        m_database.Exec(u"DELETE FROM mark WHERE id = ?"_s, {gone.id});
    }
    qint32 place = 0;
    for (const SetupMark& mark : wanted) {
        ++place;
        if (mark.id != 0) {
            m_database.Exec(u"INSERT INTO mark (id, name, color, place) VALUES (?, ?, ?, ?) ON"
                            " CONFLICT (id) DO UPDATE SET name = excluded.name, color ="
                            " excluded.color, place = excluded.place"_s,
                            {mark.id, mark.name, mark.color, place});
        } else {
            // Above every number that a photo bears: one of a mark that is gone mustn't come back
            // as another.
            m_database.Exec(
                u"INSERT INTO mark (id, name, color, place) SELECT 1 + max(coalesce((SELECT"
                " max(id) FROM mark), 0), coalesce((SELECT max(mark_id) FROM bim_tally),"
                " 0), coalesce((SELECT max(mark_id) FROM pdf_tally), 0), coalesce((SELECT"
                " max(mark_id) FROM issue_tally), 0), coalesce((SELECT max(mark_id) FROM"
                " checkpoint), 0)), ?, ?, ?"_s,
                {mark.name, mark.color, place});
        }
    }
    m_database.Log().Note(ChangeKind::Mark, 0, 0, m_by.person);
}

void SetupWriter::Labels(const std::vector<SetupLabel>& seen,
                         const std::vector<SetupLabel>& wanted) {
    if (seen == wanted) {
        return;
    }
    for (const SetupLabel& gone : Missing(seen, wanted)) {
        const QString uses = UsesOfLabel(m_database, gone.id);
        if (!uses.isEmpty()) {
            RefuseUsed(SetupList::Label, gone.name, uses, {});
            continue;
        }
        m_database.Exec(u"DELETE FROM label WHERE id = ?"_s, {gone.id});
    }
    FreeNames(m_database, u"label"_s, u"id"_s, seen, wanted);
    for (const SetupLabel& label : wanted) {
        if (Find(seen, label.id) != nullptr) {
            m_database.Exec(u"UPDATE label SET name = ? WHERE id = ?"_s, {label.name, label.id});
        } else {
            m_database.Exec(u"INSERT INTO label (name) VALUES (?)"_s, {label.name});
        }
    }
    m_database.Log().Note(ChangeKind::Label, 0, 0, m_by.person);
}

} // namespace site
