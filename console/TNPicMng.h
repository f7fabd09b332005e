// The console's issues.
#pragma once

#include "console/PicMngBase.h"
#include "services/IssueRecords.h"

/// Issues are known by UUID, so every list of ids here is one of texts; their dialogs are modeless.
class CTNPicMng final : public CPicMngBase {
public:
    using CPicMngBase::CPicMngBase;

    [[nodiscard]] QString GetSearchHint() const override;
    bool InitColumns(std::map<int, bool>& sortable) override;
    void NotifyChanged() override;
    bool QueryPage(const toolkit::ImageList& rowImages, const KX_DATA::PageRequest& request,
                   KX_DATA::PageResult& result) override;
    void SetRowStatus(CGridRow& row, qint32 value) override;
    CheckedResult SetCheckedStatus(qint32 projectId, bool hidden) override;
    [[nodiscard]] int GetStatusColumn() const override;
    bool DeleteChecked(qint32 projectId) override;
    DeleteResult DeleteRow(qint32 projectId, CGridRow& row) override;
    bool GetUsedMarks(std::vector<qint32>& markIds) override;
    [[nodiscard]] QSize GetMinTrackSize() const override { return {1025, 820}; }
    [[nodiscard]] QString GetRowKey(const CGridRow& row) const override;
    bool EditRow(CGridRow& row) override;
    void LocateRow(CGridRow& row) override;
    void PreviewRow(CGridRow& row) override;

    /// Never reached; keeps the order of the operations.
    virtual bool DeleteIds(qint32 projectId, const std::vector<qint32>& ids);
    virtual void FillRowCells(CGridRow& row, const KX_DATA::IssueRow& record);

private:
    void BuildRow(const toolkit::ImageList& rowImages, int place, KX_DATA::IssueRow& record);
    void CollectCheckedUuids(std::vector<QString>& questionIds) const;
    bool DeleteIssueList(std::vector<QString> questionIds);

    std::vector<KX_DATA::IssueRow> records; ///< exactly the rows of the current page
};
