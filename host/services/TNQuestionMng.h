// The issue service.
#pragma once

#include "host/services/SiteService.h"
#include "services/ITNQuestionMng.h"

namespace host {

/// Over the session's site. Thread: user interface; AddRectifyPics: any.
class TNQuestionMng final : public KX_DATA::ITNQuestionMng, private SiteService {
public:
    using SiteService::SiteService;

    void Reserved1() override {}
    bool DeletePics(qint32 kind, const std::vector<QString>& picIds) override;
    qint32 QueryIssues(const KX_DATA::PicQueryFilter& filter, const KX_DATA::PageRequest& request,
                       KX_DATA::PageResult& result, std::vector<KX_DATA::IssueRow>& rows) override;
    void GetIssueGroups(quint8 flag, const qint64* from, const qint64* to,
                        KX_DATA::MarkFilterArg& filterArg,
                        std::vector<KX_DATA::IssueMarkGroup>& groups) override;
    void Reserved2() override {}
    void GetIssueFilterList(quint8 flag, const qint64* from, const qint64* to,
                            KX_DATA::MarkFilterArg& filterArg,
                            std::vector<KX_DATA::IssueFilterSource>& entries) override;
    void Reserved3() override {}
    bool DeleteIssues(const std::vector<QString>& questionIds) override;
    bool SetIssuesShown(qint32 ppid, const std::vector<QString>& questionIds, bool hidden) override;
    qint32 GetIssueDetail(const qint32& ppid, const QString& questionId,
                          KX_DATA::QuestionDetail& detail) override;
    bool UpdateIssue(qint32 ppid, const KX_DATA::IssueUpdate& update) override;
    qint32 GetIssuePics(const qint32& ppid, const QString& questionId, qint32 kind,
                        std::vector<KX_DATA::QuestionPicRecord>& pics) override;
    void Reserved4() override {}
    void Reserved5() override {}
    bool GetRectification(const QString& questionId, KX_DATA::RectifyRecord& record) override;
    bool SaveRectification(const KX_DATA::RectifySave& record) override;
    bool DeleteRectifyPics(qint32 kind, const KX_DATA::RectifyRecord& record,
                           const std::vector<QString>& picIds) override;
    bool AddRectifyPics(qint32 kind, const KX_DATA::RectifyRecord& record,
                        const std::vector<KX_DATA::QuestionPicRecord>& pics) override;
    bool GetUsedMarks(qint32 kind, std::vector<qint32>& markIds) override;
};

} // namespace host
