// The issue service on records in memory.
#pragma once

#include "services/ITNQuestionMng.h"
#include "tests/support/Reserved.h"
#include "tests/support/Script.h"
#include "tests/support/services/Paging.h"
#include "tests/support/services/RowPanel.h"

#include <QByteArray>

#include <map>

namespace support {

class ScriptedVeskPicMng;

/// As the photo service's double: pages of the records, changes in the records.
class ScriptedTNQuestionMng final : public WithReserved5<KX_DATA::ITNQuestionMng> {
public:
    explicit ScriptedTNQuestionMng(Script& script) : m_script(script) {}

    bool judges = false;                        ///< as the photo service's
    bool searches = false;                      ///< as the photo service's
    const ScriptedVeskPicMng* photos = nullptr; ///< knows the site's projects, marks and states
    std::vector<KX_DATA::IssueRow> issues;
    std::map<QString, std::vector<KX_DATA::QuestionPicRecord>> pics; ///< by questionId
    std::map<QString, KX_DATA::RectifyRecord> rectifications;        ///< by questionId
    /// What a detail has beyond its row, by questionId.
    std::map<QString, KX_DATA::QuestionDetail> details;
    /// Where one that judges finds the component of an update.
    std::vector<KX_DATA::PickedComponent> components;
    /// With which one that judges takes pictures; null: any.
    const std::map<QString, QByteArray>* stored = nullptr;
    std::vector<qint32> usedMarks;
    std::vector<KX_DATA::IssueMarkGroup> markGroups;
    std::vector<KX_DATA::IssueFilterSource> filterEntries;

    /// What the last question about marks came with, to be compared by its address.
    const KX_DATA::MarkFilterArg* lastFilterArg = nullptr;
    QueryScript query;
    KX_DATA::PicQueryFilter lastFilter;
    KX_DATA::IssueUpdate lastUpdate;
    KX_DATA::RectifySave lastRectifySave;
    std::vector<KX_DATA::QuestionPicRecord> lastAddedPics;

    bool DeletePics(qint32 kind, const std::vector<QString>& picIds) override;
    qint32 QueryIssues(const KX_DATA::PicQueryFilter& filter, const KX_DATA::PageRequest& request,
                       KX_DATA::PageResult& result, std::vector<KX_DATA::IssueRow>& rows) override;
    void GetIssueGroups(quint8 flag, const qint64* from, const qint64* to,
                        KX_DATA::MarkFilterArg& filterArg,
                        std::vector<KX_DATA::IssueMarkGroup>& groups) override;
    void GetIssueFilterList(quint8 flag, const qint64* from, const qint64* to,
                            KX_DATA::MarkFilterArg& filterArg,
                            std::vector<KX_DATA::IssueFilterSource>& entries) override;
    bool DeleteIssues(const std::vector<QString>& questionIds) override;
    bool SetIssuesShown(qint32 ppid, const std::vector<QString>& questionIds, bool hidden) override;
    qint32 GetIssueDetail(const qint32& ppid, const QString& questionId,
                          KX_DATA::QuestionDetail& detail) override;
    bool UpdateIssue(qint32 ppid, const KX_DATA::IssueUpdate& update) override;
    qint32 GetIssuePics(const qint32& ppid, const QString& questionId, qint32 kind,
                        std::vector<KX_DATA::QuestionPicRecord>& list) override;
    bool GetRectification(const QString& questionId, KX_DATA::RectifyRecord& record) override;
    bool SaveRectification(const KX_DATA::RectifySave& record) override;
    bool DeleteRectifyPics(qint32 kind, const KX_DATA::RectifyRecord& record,
                           const std::vector<QString>& picIds) override;
    bool AddRectifyPics(qint32 kind, const KX_DATA::RectifyRecord& record,
                        const std::vector<KX_DATA::QuestionPicRecord>& list) override;
    bool GetUsedMarks(qint32 kind, std::vector<qint32>& markIds) override;

private:
    [[nodiscard]] bool IsOpen(qint32 ppid) const;
    [[nodiscard]] PanelScope ScopeOf(quint8 flag, const qint64* from, const qint64* to,
                                     const KX_DATA::MarkFilterArg& filterArg) const;
    [[nodiscard]] const KX_DATA::IssueRow* Find(qint32 ppid, const QString& questionId) const;
    /// Of an open project; null where there is none.
    [[nodiscard]] KX_DATA::IssueRow* OpenRow(const QString& questionId);
    void Sign(const QString& questionId, bool rectification);
    [[nodiscard]] bool MoveTo(KX_DATA::IssueRow& row, const KX_DATA::IssueUpdate& update);
    [[nodiscard]] bool MayAdd(const KX_DATA::QuestionPicRecord& pic) const;

    Script& m_script;
};

} // namespace support
