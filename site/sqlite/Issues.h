// Issues and their rectifications in the database.
#pragma once

#include "site/IIssues.h"
#include "site/sqlite/IssueEdits.h"
#include "site/sqlite/IssuePics.h"

namespace site {

class ListQuery;

class Issues final : public IIssues {
public:
    Issues(Database& owner, ListQuery& pages, FileStore& files, Bin& bin)
        : m_database(owner), m_lists(pages), m_edits(owner), m_pics(owner, files, bin) {}

    [[nodiscard]] Page<KX_DATA::IssueRow> PageOf(const ListFilter& filter,
                                                 const PageAsked& asked) override;
    [[nodiscard]] std::optional<Revision> Detail(qint32 ppid, const QString& questionId,
                                                 KX_DATA::QuestionDetail& detail) override;
    [[nodiscard]] bool Pics(qint32 ppid, const QString& questionId,
                            std::vector<KX_DATA::QuestionPicRecord>& pics) override;
    [[nodiscard]] bool Rectification(const Projects& projects, const QString& questionId,
                                     KX_DATA::RectifyRecord& record) override;
    [[nodiscard]] std::vector<IssueChange> History(qint32 ppid, const QString& questionId) override;
    [[nodiscard]] std::optional<IssueRef> FindByQrCode(const Projects& projects,
                                                       const QString& text) override;
    int SetStatus(qint32 ppid, const std::vector<QString>& questionIds, qint32 status,
                  const Signature& by, std::vector<NamedIssue>* changed) override {
        return m_edits.SetStatus(ppid, questionIds, status, by, changed);
    }
    [[nodiscard]] Saved Update(qint32 ppid, const KX_DATA::IssueUpdate& update, const Signature& by,
                               std::optional<Revision> seen) override {
        return m_edits.Update(ppid, update, by, seen);
    }
    [[nodiscard]] bool DeletePics(const Projects& projects, const std::vector<QString>& picIds,
                                  const Signature& by, std::vector<BinEntry>* made) override {
        return m_pics.DeletePics(projects, picIds, by, made);
    }
    [[nodiscard]] bool SaveRectification(const Projects& projects,
                                         const KX_DATA::RectifySave& record,
                                         const Signature& by) override {
        return m_edits.SaveRectification(projects, record, by);
    }
    [[nodiscard]] bool AddRectifyPics(const Projects& projects, const QString& questionId,
                                      const std::vector<KX_DATA::QuestionPicRecord>& pics,
                                      const Signature& by) override {
        return m_pics.AddRectifyPics(projects, questionId, pics, by);
    }
    [[nodiscard]] bool DeleteRectifyPics(const Projects& projects, const QString& questionId,
                                         const std::vector<QString>& picIds, const Signature& by,
                                         std::vector<BinEntry>* made) override {
        return m_pics.DeleteRectifyPics(projects, questionId, picIds, by, made);
    }
    [[nodiscard]] std::vector<qint32> UsedMarks() override;

private:
    [[nodiscard]] std::vector<KX_DATA::IssueRow> Rows(const std::vector<qint64>& ids);
    void AddPics(qint64 issueId, bool rectification, std::vector<KX_DATA::QuestionPicRecord>& pics);

    Database& m_database;
    ListQuery& m_lists;
    IssueEdits m_edits;
    IssuePics m_pics;
};

} // namespace site
