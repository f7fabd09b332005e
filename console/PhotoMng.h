// What the managers of BIM and of drawing photos share.
#pragma once

#include "console/PicMngBase.h"
#include "services/PicRecords.h"

/// Photos are known by number, asked about by name, and previewed in the same viewer.
/// `Record` is the service's record of one photo.
template <class Record> class PhotoMng : public CPicMngBase {
public:
    using CPicMngBase::CPicMngBase;

    void SetRowStatus(CGridRow& row, qint32 value) override {
        RecordOf<Record>(row).status = value;
    }
    [[nodiscard]] qint32 GetRowPicId(const CGridRow& row) const override {
        return RecordOf<Record>(row).picId;
    }
    CheckedResult SetCheckedStatus(qint32 projectId, bool hidden) override;
    bool DeleteChecked(qint32 projectId) override;
    DeleteResult DeleteRow(qint32 projectId, CGridRow& row) override;
    void PreviewRow(CGridRow& row) override;

    virtual bool DeleteIds(qint32 projectId, const std::vector<qint32>& picIds) = 0;
    /// One element for each row, in row order.
    virtual void BuildPreviewList(std::vector<KX_DATA::PicViewItem>& items) const = 0;
    /// Ids of the checked rows, from the last row to the first.
    virtual bool CollectCheckedIds(std::vector<qint32>& picIds) const;

protected:
    virtual bool SetShown(qint32 projectId, const std::vector<qint32>& picIds, bool hidden) = 0;

    std::vector<Record> records; ///< exactly the rows of the current page
};
