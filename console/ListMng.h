// What the managers of all kinds share.
#pragma once

#include "console/PicMngBase.h"

/// A kind's manager, from what its `Traits` tell of the kind:
///
///     Record, Id                    the service's record of one row and what it is known by
///     kMode                         columns, status column and icons
///     kHint, kDeletionLog           texts: in the keyword box, in the action log
///     TellHost()                    the marks of this kind changed
///     Query(mng, request, result, page) asks the service; true if it succeeded
///     IdOf(record), KeyOf(record)   KeyOf names the item among all of its kind
///     SetShown(project, ids, hidden), Delete(project, ids), UsedMarks(ids)  the service's answers
///     DeleteQuestion(row)           asked before a row is deleted
///
/// What a kind does in its own way stands in the class derived from this one.
template <class Traits> class ListMng : public CPicMngBase {
public:
    using Record = typename Traits::Record;
    using Id = typename Traits::Id;
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
    [[nodiscard]] QString GetRowKey(const CGridRow& row) const override;

protected:
    [[nodiscard]] virtual bool StartsChecked(const Record& record) const {
        Q_UNUSED(record);
        return false;
    }
    /// What the row shows beside check box, running number, project and icons, which are there.
    virtual void FillCells(CGridRow& row, const Record& record) = 0;
    [[nodiscard]] static Record& RecordOf(const CGridRow& row) {
        return CPicMngBase::RecordOf<Record>(row);
    }
    /// From the last checked row to the first.
    [[nodiscard]] std::vector<Id> CheckedIds() const;
    /// Deletes and writes the action log.
    bool Delete(qint32 projectId, const std::vector<Id>& ids);

    std::vector<Record> records; ///< exactly the rows of the current page

private:
    void BuildRow(const toolkit::ImageList& rowImages, int place, Record& record);
};
