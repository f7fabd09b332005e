// The issue service.
#pragma once

#include "services/IssueRecords.h"
#include "services/MarkGroups.h"
#include "services/PageQuery.h"

namespace KX_DATA {

/// The kind of marks that GetUsedMarks is asked for.
inline constexpr qint32 kIssueMarkKind = 9;
/// The kinds of pictures that are removed and added.
inline constexpr qint32 kIssuePicKind = 1;
inline constexpr qint32 kRectifyPicKind = 0;

/// Issues of all projects. Changes are all or nothing; false, with nothing changed, for an issue or
/// a picture that is gone. Thread: user interface, save where said.
class ITNQuestionMng {
public:
    virtual ~ITNQuestionMng() = default;

    virtual void Reserved1() = 0;
    /// Removes pictures from an issue; `kind` is kIssuePicKind.
    virtual bool DeletePics(qint32 kind, const std::vector<QString>& picIds) = 0;
    /// One page of issues; 101 on success.
    virtual qint32 QueryIssues(const PicQueryFilter& filter, const PageRequest& request,
                               PageResult& result, std::vector<IssueRow>& rows) = 0;
    /// Tree of the mark panel.
    virtual void GetIssueGroups(quint8 flag, const qint64* from, const qint64* to,
                                MarkFilterArg& filterArg, std::vector<IssueMarkGroup>& groups) = 0;
    virtual void Reserved2() = 0;
    /// Filter list of the mark panel.
    virtual void GetIssueFilterList(quint8 flag, const qint64* from, const qint64* to,
                                    MarkFilterArg& filterArg,
                                    std::vector<IssueFilterSource>& entries) = 0;
    virtual void Reserved3() = 0;
    virtual bool DeleteIssues(const std::vector<QString>& questionIds) = 0;
    virtual bool SetIssuesShown(qint32 ppid, const std::vector<QString>& questionIds,
                                bool hidden) = 0;
    /// Non-zero on success; questionId and ppid of the record are left to the caller.
    virtual qint32 GetIssueDetail(const qint32& ppid, const QString& questionId,
                                  QuestionDetail& detail) = 0;
    /// An empty component handle leaves the issue's component as it is, an empty code its QR code.
    virtual bool UpdateIssue(qint32 ppid, const IssueUpdate& update) = 0;
    /// Non-zero on success; `kind` is 0.
    virtual qint32 GetIssuePics(const qint32& ppid, const QString& questionId, qint32 kind,
                                std::vector<QuestionPicRecord>& pics) = 0;
    virtual void Reserved4() = 0;
    virtual void Reserved5() = 0;
    virtual bool GetRectification(const QString& questionId, RectifyRecord& record) = 0;
    /// Whoever changes a rectification is its rectifier, here and below.
    virtual bool SaveRectification(const RectifySave& record) = 0;
    /// `kind` is kRectifyPicKind, here and below; of the record questionId alone counts.
    virtual bool DeleteRectifyPics(qint32 kind, const RectifyRecord& record,
                                   const std::vector<QString>& picIds) = 0;
    /// The files of the pictures were uploaded before. Thread: any.
    virtual bool AddRectifyPics(qint32 kind, const RectifyRecord& record,
                                const std::vector<QuestionPicRecord>& pics) = 0;
    /// Marks in use on issues; `kind` is kIssueMarkKind.
    virtual bool GetUsedMarks(qint32 kind, std::vector<qint32>& markIds) = 0;
};

} // namespace KX_DATA
