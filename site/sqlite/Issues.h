// Issues and their rectifications in the database.
#pragma once

#include "site/IIssues.h"

namespace site {

class Database;
class ListQuery;

class Issues final : public IIssues {
public:
    Issues(Database& owner, ListQuery& pages) : m_database(owner), m_lists(pages) {}

    [[nodiscard]] Page<KX_DATA::IssueRow> PageOf(const ListFilter& filter,
                                                 const PageAsked& asked) override;
    [[nodiscard]] bool Detail(qint32 ppid, const QString& questionId,
                              KX_DATA::QuestionDetail& detail) override;
    [[nodiscard]] bool Pics(qint32 ppid, const QString& questionId,
                            std::vector<KX_DATA::QuestionPicRecord>& pics) override;
    [[nodiscard]] bool Rectification(const Projects& projects, const QString& questionId,
                                     KX_DATA::RectifyRecord& record) override;
    int SetStatus(qint32 ppid, const std::vector<QString>& questionIds, qint32 status) override;
    [[nodiscard]] std::vector<qint32> UsedMarks() override;

private:
    [[nodiscard]] std::vector<KX_DATA::IssueRow> Rows(const std::vector<qint64>& ids);
    void AddPics(qint64 issueId, bool rectification, std::vector<KX_DATA::QuestionPicRecord>& pics);

    Database& m_database;
    ListQuery& m_lists;
};

} // namespace site
