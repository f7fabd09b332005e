#include "site/sqlite/SetupRead.h"

#include "site/sqlite/Database.h"

namespace site {

using namespace Qt::StringLiterals;

std::vector<SetupProject> ReadSetupProjects(Database& database) {
    std::vector<SetupProject> projects;
    database.ForEach(u"SELECT ppid, name, major, archived FROM project ORDER BY ppid"_s, {},
                     [&](const Statement& row) {
                         projects.push_back({row.Int(0), row.Text(1), row.Int(2), row.Int(3) != 0});
                     });
    return projects;
}

std::vector<SetupWorkset> ReadSetupWorksets(Database& database) {
    std::vector<SetupWorkset> worksets;
    database.ForEach(u"SELECT w.id, w.name, w.archived, p.name FROM workset w LEFT JOIN"
                     " workset_project wp ON wp.workset_id = w.id LEFT JOIN project p ON p.ppid ="
                     " wp.ppid ORDER BY w.id, wp.place"_s,
                     {}, [&](const Statement& row) {
                         if (worksets.empty() || worksets.back().id != row.Int(0)) {
                             worksets.push_back({row.Int(0), row.Text(1), {}, row.Int(2) != 0});
                         }
                         if (!row.Text(3).isEmpty()) {
                             worksets.back().projects.push_back(row.Text(3));
                         }
                     });
    return worksets;
}

std::vector<SetupPerson> ReadSetupPeople(Database& database) {
    std::vector<SetupPerson> people;
    database.ForEach(u"SELECT p.id, p.name, p.active, r.number FROM person p LEFT JOIN"
                     " person_right r ON r.person_id = p.id ORDER BY p.id, r.number"_s,
                     {}, [&](const Statement& row) {
                         if (people.empty() || people.back().id != row.Int(0)) {
                             people.push_back({row.Int(0), row.Text(1), {}, row.Int(2) != 0});
                         }
                         if (!row.Query().isNull(3)) {
                             people.back().rights.push_back(row.Int(3));
                         }
                     });
    return people;
}

std::vector<SetupMark> ReadSetupMarks(Database& database) {
    std::vector<SetupMark> marks;
    database.ForEach(u"SELECT id, name, color FROM mark ORDER BY place, id"_s, {},
                     [&](const Statement& row) {
                         marks.push_back({row.Int(0), row.Text(1), row.Int(2)});
                     });
    return marks;
}

std::vector<SetupLabel> ReadSetupLabels(Database& database) {
    std::vector<SetupLabel> labels;
    database.ForEach(u"SELECT id, name FROM label ORDER BY id"_s, {}, [&](const Statement& row) {
        labels.push_back({row.Int(0), row.Text(1)});
    });
    return labels;
}

SetupGrid ReadSetupGrid(Database& database, const SetupProject& project) {
    SetupGrid grid;
    grid.project = project.name;
    database.ForEach(u"SELECT name FROM floor WHERE ppid = ? ORDER BY sort_key"_s, {project.ppid},
                     [&](const Statement& row) {
                         grid.floors.push_back({row.Text(0), row.Text(0)});
                     });
    database.ForEach(
        u"SELECT p.position_key, p.floor, p.axis_x, p.axis_y, p.valid FROM position p JOIN floor f"
        " ON f.ppid = p.ppid AND f.name = p.floor WHERE p.ppid = ? ORDER BY f.sort_key,"
        " length(p.axis_x), p.axis_x, length(p.axis_y), p.axis_y"_s,
        {project.ppid}, [&](const Statement& row) {
            grid.crossings.push_back(
                {row.Text(0), row.Text(1), row.Text(2), row.Text(3), row.Int(4) != 0});
        });
    return grid;
}

} // namespace site
