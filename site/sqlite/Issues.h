// Issues and their rectifications in the database.
#pragma once

#include "services/IssueRecords.h"

#include <QString>

#include <vector>

namespace site {

class Database;

/// Operations throw DataError; changes are one transaction each. Thread: the database's.
class Issues final {
public:
    explicit Issues(Database& owner) : database(owner) {}

    /// In the order of the ids; ids without an issue are left out. Issues that were never changed
    /// have an empty updater and their time of creation twice.
    [[nodiscard]] std::vector<KX_DATA::IssueRow> Rows(const std::vector<qint64>& ids);
    /// False for an unknown issue of the project, here and below. Leaves the record's questionId
    /// and ppid alone.
    [[nodiscard]] bool Detail(qint32 ppid, const QString& questionId,
                              KX_DATA::QuestionDetail& detail);
    [[nodiscard]] bool Pics(qint32 ppid, const QString& questionId,
                            std::vector<KX_DATA::QuestionPicRecord>& pics);
    /// An issue that nobody has worked on has an empty text and rectifier.
    [[nodiscard]] bool Rectification(const QString& questionId, KX_DATA::RectifyRecord& record);
    /// Counts as a change by nobody: people and times stay. Returns how many there were.
    int SetStatus(qint32 ppid, const std::vector<QString>& questionIds, qint32 status);
    /// Marks in use on any issue that the mark table knows.
    [[nodiscard]] std::vector<qint32> UsedMarks();

private:
    void AddPics(qint64 issueId, bool rectification, std::vector<KX_DATA::QuestionPicRecord>& pics);

    Database& database;
};

} // namespace site
