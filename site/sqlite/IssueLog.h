// What every change of an issue does besides: it signs the issue and writes a line of its history.
#pragma once

#include "site/IssueHistory.h"
#include "site/Records.h"

#include <optional>
#include <vector>

namespace site {

class Database;

/// An issue in the database.
struct IssueKey {
    qint64 id = 0;
    qint32 ppid = 0;
};

/// Nothing for an issue of none of the projects.
[[nodiscard]] std::optional<IssueKey> KeyOf(Database& database, const Projects& projects,
                                            const QString& questionId);

/// Inside of a transaction, as all that follows: before a row is changed, and after.
void BeginIssueEdit(Database& database, const IssueKey& issue);
void EndIssueEdit(Database& database, const IssueKey& issue, const Signature& by);

/// Writes the line; nothing where the texts are the same and no pictures are counted.
void NoteDeed(Database& database, qint64 issueId, const Signature& by, const IssueChange& line);
/// The lines that were written, latest first.
[[nodiscard]] std::vector<IssueChange> DeedsOf(Database& database, qint64 issueId);

} // namespace site
