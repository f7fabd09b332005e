// The console's issues.
#pragma once

#include "console/ListMng.h"
#include "services/IssueRecords.h"

/// Issues are known by UUID, so every list of ids here is one of texts.
struct Issues {
    using Record = KX_DATA::IssueRow;
    using Id = QString;
    static constexpr ConsoleMode kMode = kModeIssue;
    static constexpr QStringView kHint = u"输入问题主题、相关人账号、描述等关键字";
    static constexpr QStringView kDeletionLog = u"删除TN问题";

    static void TellHost();
    static bool Query(const CPicMngBase& mng, const KX_DATA::PageRequest& request,
                      KX_DATA::PageResult& result, std::vector<Record>& page);
    static Id IdOf(const Record& record) { return record.questionId; }
    static QString KeyOf(const Record& record) { return record.questionId; }
    static bool SetShown(qint32 projectId, const std::vector<Id>& ids, bool hidden);
    static bool Delete(qint32 projectId, const std::vector<Id>& ids);
    static QString DeleteQuestion(const CGridRow& row);
    static bool UsedMarks(std::vector<qint32>& markIds);
};

/// The dialogs of issues are modeless.
class CTNPicMng final : public ListMng<Issues> {
public:
    using ListMng::ListMng;

    [[nodiscard]] QSize GetMinTrackSize() const override { return {1025, 820}; }
    bool EditRow(CGridRow& row) override;
    void LocateRow(CGridRow& row) override;
    void PreviewRow(CGridRow& row) override;

    /// Never reached; keeps the order of the operations.
    virtual bool DeleteIds(qint32 projectId, const std::vector<qint32>& ids);
    virtual void FillRowCells(CGridRow& row, const KX_DATA::IssueRow& record);

protected:
    void FillCells(CGridRow& row, const KX_DATA::IssueRow& record) override {
        FillRowCells(row, record);
    }
};
