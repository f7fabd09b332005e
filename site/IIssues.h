// Issues and their rectifications.
#pragma once

#include "services/IssueRecords.h"
#include "site/ListFilter.h"
#include "site/Records.h"

namespace site {

/// Operations throw DataError; changes are one transaction each. Thread: the site's.
class IIssues {
public:
    virtual ~IIssues() = default;

    /// Issues that were never changed have an empty updater and their time of creation twice.
    [[nodiscard]] virtual Page<KX_DATA::IssueRow> PageOf(const ListFilter& filter,
                                                         const PageAsked& asked) = 0;
    /// False for an unknown issue of the project, here and below. Leaves the record's questionId
    /// and ppid alone.
    [[nodiscard]] virtual bool Detail(qint32 ppid, const QString& questionId,
                                      KX_DATA::QuestionDetail& detail) = 0;
    [[nodiscard]] virtual bool Pics(qint32 ppid, const QString& questionId,
                                    std::vector<KX_DATA::QuestionPicRecord>& pics) = 0;
    /// An issue that nobody has worked on has an empty text and rectifier.
    [[nodiscard]] virtual bool Rectification(const Projects& projects, const QString& questionId,
                                             KX_DATA::RectifyRecord& record) = 0;
    /// Counts as a change by nobody: people and times stay. Returns how many there were.
    virtual int SetStatus(qint32 ppid, const std::vector<QString>& questionIds, qint32 status) = 0;
    /// Of the whole site: marks in use on any issue that the mark table knows.
    [[nodiscard]] virtual std::vector<qint32> UsedMarks() = 0;
};

} // namespace site
