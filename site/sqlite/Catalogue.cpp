#include "site/sqlite/Catalogue.h"

#include "site/sqlite/Database.h"

#include <QDateTime>

namespace site {

using namespace Qt::StringLiterals;

std::vector<ProjectEntry> Catalogue::Projects() {
    std::vector<ProjectEntry> projects;
    m_database.ForEach(
        u"SELECT ppid, name, major, archived FROM project ORDER BY ppid"_s, {},
        [&](const Statement& row) {
            projects.push_back({row.Int(0), row.Text(1), row.Int(2), row.Int(3) != 0});
        });
    return projects;
}

ProjectEntry Catalogue::Project(qint32 ppid) {
    ProjectEntry project;
    m_database.ForEach(u"SELECT ppid, name, major, archived FROM project WHERE ppid = ?"_s, {ppid},
                       [&](const Statement& row) {
                           project = {row.Int(0), row.Text(1), row.Int(2), row.Int(3) != 0};
                       });
    return project;
}

std::vector<WorksetEntry> Catalogue::Worksets() {
    std::vector<WorksetEntry> worksets;
    m_database.ForEach(
        u"SELECT w.id, w.name, p.ppid, w.archived FROM workset w JOIN workset_project p"
        " ON p.workset_id = w.id ORDER BY w.id, p.place"_s,
        {}, [&](const Statement& row) {
            if (worksets.empty() || worksets.back().id != row.Int(0)) {
                worksets.push_back({row.Int(0), row.Text(1), {}, row.Int(3) != 0});
            }
            worksets.back().ppids.push_back(row.Int(2));
        });
    return worksets;
}

std::vector<QString> Catalogue::People() {
    std::vector<QString> people;
    m_database.ForEach(u"SELECT name FROM person WHERE active <> 0 ORDER BY id"_s, {},
                       [&](const Statement& row) { people.push_back(row.Text(0)); });
    return people;
}

std::vector<qint32> Catalogue::RightsOf(const QString& person) {
    std::vector<qint32> rights;
    m_database.ForEach(u"SELECT r.number FROM person_right r JOIN person p ON p.id = r.person_id"
                       " WHERE p.name = ? AND p.active <> 0 ORDER BY r.number"_s,
                       {person}, [&](const Statement& row) { rights.push_back(row.Int(0)); });
    return rights;
}

std::map<qint32, KX_DATA::MarkRecord> Catalogue::Marks() {
    std::map<qint32, KX_DATA::MarkRecord> marks;
    m_database.ForEach(u"SELECT id, name, color FROM mark"_s, {}, [&](const Statement& row) {
        marks[row.Int(0)] = {row.Text(1), row.Int(2)};
    });
    return marks;
}

std::vector<qint32> Catalogue::MarkOrder() {
    std::vector<qint32> ids;
    m_database.ForEach(u"SELECT id FROM mark ORDER BY place, id"_s, {},
                       [&](const Statement& row) { ids.push_back(row.Int(0)); });
    return ids;
}

std::vector<KX_DATA::LabelEntry> Catalogue::Labels() {
    std::vector<KX_DATA::LabelEntry> labels;
    m_database.ForEach(u"SELECT id, name FROM label ORDER BY id"_s, {}, [&](const Statement& row) {
        labels.push_back({row.Text(0), row.Text(1)});
    });
    return labels;
}

qint32 Catalogue::AddLabel(const QString& name) {
    if (name.isEmpty()) {
        return 0;
    }
    Transaction transaction(m_database);
    m_database.Exec(u"INSERT INTO label (name) VALUES (?) ON CONFLICT DO NOTHING"_s, {name});
    const qint32 id = m_database.Value(u"SELECT id FROM label WHERE name = ?"_s, {name}).toInt();
    m_database.Log().Note(ChangeKind::Label, 0, id);
    transaction.Commit();
    return id;
}

std::vector<QString> Catalogue::Floors(qint32 ppid) {
    std::vector<QString> floors;
    m_database.ForEach(u"SELECT name FROM floor WHERE ppid = ? ORDER BY sort_key"_s, {ppid},
                       [&](const Statement& row) { floors.push_back(row.Text(0)); });
    return floors;
}

std::vector<QString> Catalogue::AxesX(qint32 ppid, const QString& floor) {
    std::vector<QString> axes;
    m_database.ForEach(u"SELECT DISTINCT axis_x FROM position WHERE ppid = ? AND floor = ?"
                       " AND valid <> 0 ORDER BY length(axis_x), axis_x"_s,
                       {ppid, floor}, [&](const Statement& row) { axes.push_back(row.Text(0)); });
    return axes;
}

std::vector<KX_DATA::AxisYEntry> Catalogue::AxesY(qint32 ppid, const QString& floor,
                                                  const QString& axisX) {
    std::vector<KX_DATA::AxisYEntry> axes;
    m_database.ForEach(u"SELECT axis_y, position_key FROM position WHERE ppid = ? AND floor = ?"
                       " AND axis_x = ? AND valid <> 0 ORDER BY length(axis_y), axis_y"_s,
                       {ppid, floor, axisX},
                       [&](const Statement& row) { axes.emplace_back(row.Text(0), row.Text(1)); });
    return axes;
}

std::vector<KX_DATA::CurrentDrawing> Catalogue::Drawings(qint32 ppid) {
    std::vector<KX_DATA::CurrentDrawing> drawings;
    m_database.ForEach(u"SELECT id, name FROM drawing WHERE ppid = ? ORDER BY id"_s, {ppid},
                       [&](const Statement& row) {
                           drawings.push_back({row.Int(0), row.Text(1)});
                       });
    return drawings;
}

CheckpointPlace Catalogue::PlaceOfCheckpoint(const site::Projects& projects, qint32 checkpointId) {
    CheckpointPlace place;
    m_database.ForEach(u"SELECT d.name, c.number, d.ppid FROM checkpoint c JOIN drawing d"
                       " ON d.id = c.drawing_id WHERE c.id = ?"_s,
                       {checkpointId}, [&](const Statement& row) {
                           if (Has(projects, row.Int(2))) {
                               place = {row.Text(0), row.Int(1)};
                           }
                       });
    return place;
}

std::vector<QString> Catalogue::RecentSearches(const QString& person) {
    std::vector<QString> keywords;
    m_database.ForEach(u"SELECT keyword FROM recent_search WHERE person = ? ORDER BY place"_s,
                       {person}, [&](const Statement& row) { keywords.push_back(row.Text(0)); });
    return keywords;
}

void Catalogue::SaveRecentSearches(const QString& person, const std::vector<QString>& keywords) {
    Transaction transaction(m_database);
    m_database.Exec(u"DELETE FROM recent_search WHERE person = ?"_s, {person});
    qint32 place = 0;
    for (const QString& keyword : keywords) {
        m_database.Exec(u"INSERT INTO recent_search (person, place, keyword) VALUES (?, ?, ?)"_s,
                        {person, place++, keyword});
    }
    transaction.Commit();
}

void Catalogue::LogAction(const LoggedAction& action) {
    Transaction transaction(m_database);
    m_database.Exec(u"INSERT INTO action_log (at, person, ppid, action) VALUES (?, ?, ?, ?)"_s,
                    {action.at, action.person, action.ppid, action.action});
    transaction.Commit();
}

std::vector<LoggedAction> Catalogue::Actions(qint32 limit) {
    std::vector<LoggedAction> actions;
    m_database.ForEach(
        u"SELECT at, person, ppid, action FROM action_log ORDER BY id DESC LIMIT ?"_s, {limit},
        [&](const Statement& row) {
            actions.push_back({row.Int64(0), row.Text(1), row.Int(2), row.Text(3)});
        });
    return actions;
}

QString Catalogue::Setting(const QString& key) {
    return m_database.Value(u"SELECT value FROM setting WHERE key = ?"_s, {key}).toString();
}

void Catalogue::SetSetting(const QString& key, const QString& value) {
    Transaction transaction(m_database);
    m_database.Exec(u"INSERT INTO setting (key, value) VALUES (?, ?) ON CONFLICT (key)"
                    " DO UPDATE SET value = excluded.value"_s,
                    {key, value});
    transaction.Commit();
}

} // namespace site
