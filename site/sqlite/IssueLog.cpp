#include "site/sqlite/IssueLog.h"

#include "site/LastChange.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SearchIndex.h"

namespace site {

using namespace Qt::StringLiterals;

std::optional<IssueKey> KeyOf(Database& database, const Projects& projects,
                              const QString& questionId) {
    std::optional<IssueKey> key;
    database.ForEach(u"SELECT id, ppid FROM issue WHERE question_id = ?"_s, {questionId},
                     [&](const Statement& read) {
                         if (Has(projects, read.Int(1))) {
                             key = IssueKey{read.Int64(0), read.Int(1)};
                         }
                     });
    return key;
}

void BeginIssueEdit(Database& database, const IssueKey& issue) {
    RemoveSearchRowForEdit(database, ListKind::Issues, issue.id);
}

void EndIssueEdit(Database& database, const IssueKey& issue, const Signature& by) {
    const LastChange last({}, by.at, by.person, by.at);
    database.Exec(u"UPDATE issue SET updater = ?, updated = ?, modifier = CASE WHEN ? = ''"
                  " THEN creator ELSE ? END, modified = ? WHERE id = ?"_s,
                  {by.person, by.at, last.person, last.person, last.time, issue.id});
    AddSearchRow(database, ListKind::Issues, issue.id);
    database.Log().Note(ChangeKind::Issue, issue.ppid, issue.id, by.person);
}

void NoteDeed(Database& database, qint64 issueId, const Signature& by, const IssueChange& line) {
    if (line.oldText == line.newText && line.count == 0) {
        return;
    }
    database.Insert(u"INSERT INTO issue_history (issue_id, at, person, deed, old_text, new_text, n)"
                    " VALUES (?, ?, ?, ?, ?, ?, ?)"_s,
                    {issueId, by.at, by.person, static_cast<int>(line.deed), line.oldText,
                     line.newText, line.count});
}

std::vector<IssueChange> DeedsOf(Database& database, qint64 issueId) {
    std::vector<IssueChange> lines;
    database.ForEach(u"SELECT at, person, deed, old_text, new_text, n FROM issue_history"
                     " WHERE issue_id = ? ORDER BY id DESC"_s,
                     {issueId}, [&](const Statement& read) {
                         lines.push_back({read.Int64(0), read.Text(1),
                                          static_cast<IssueDeed>(read.Int(2)), read.Text(3),
                                          read.Text(4), read.Int(5)});
                     });
    return lines;
}

} // namespace site
