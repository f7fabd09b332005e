#include "console/ListMng.h"

#include "console/BimPicMng.h"
#include "console/ColumnTable.h"
#include "console/PDFPicMng.h"
#include "console/TNPicMng.h"
#include "console/VeskPicMngGrid.h"
#include "toolkit/windows/Prompts.h"

#include <QVariant>

template <class Traits> QString ListMng<Traits>::GetSearchHint() const {
    return Traits::kHint.toString();
}

template <class Traits> bool ListMng<Traits>::InitColumns(std::map<int, bool>& sortable) {
    InsertColumns(Traits::kMode, sortable);
    return true;
}

template <class Traits> void ListMng<Traits>::NotifyChanged() {
    Traits::TellHost();
}

template <class Traits>
bool ListMng<Traits>::QueryPage(const toolkit::ImageList& rowImages,
                                const KX_DATA::PageRequest& request, KX_DATA::PageResult& result) {
    records.clear();
    const int filling = grid->Filling();
    std::vector<Record> page;
    if (!Traits::Query(*this, request, result, page) || grid->Filling() != filling) {
        return false;
    }
    records = std::move(page);
    for (size_t i = 0; i < records.size(); ++i) {
        BuildRow(rowImages, int(i), records[i]);
    }
    return true;
}

template <class Traits>
void ListMng<Traits>::BuildRow(const toolkit::ImageList& rowImages, int place, Record& record) {
    auto row = StartRow(place, StartsChecked(record));
    row->SetText(kProjectColumn, ProjectName(record.ppid));
    PutIcons(*row, FirstIconColumn(Traits::kMode), rowImages);
    FillCells(*row, record);
    row->SetData(&record);
    row->SetKey(QVariant(Traits::IdOf(record)).toString());
    grid->AddRow(std::move(row));
}

template <class Traits> void ListMng<Traits>::SetRowStatus(CGridRow& row, qint32 value) {
    RecordOf(row).status = value;
}

template <class Traits>
CheckedResult ListMng<Traits>::SetCheckedStatus(qint32 projectId, bool hidden) {
    const std::vector<Id> ids = CheckedIds();
    if (ids.empty()) {
        return CheckedResult::NothingChecked;
    }
    return Traits::SetShown(projectId, ids, hidden) ? CheckedResult::Done : CheckedResult::Refused;
}

template <class Traits> int ListMng<Traits>::GetStatusColumn() const {
    return StatusColumn(Traits::kMode);
}

template <class Traits> bool ListMng<Traits>::DeleteChecked(qint32 projectId) {
    return Delete(projectId, CheckedIds());
}

template <class Traits> DeleteResult ListMng<Traits>::DeleteRow(qint32 projectId, CGridRow& row) {
    // The page may be another one when the question is answered, so the row isn't read after it.
    const Id id = Traits::IdOf(RecordOf(row));
    if (!toolkit::Prompts().AskOkCancel(grid->ParentId(), Traits::DeleteQuestion(row))) {
        return DeleteResult::Cancelled;
    }
    return Delete(projectId, {id}) ? DeleteResult::Deleted : DeleteResult::Refused;
}

template <class Traits> bool ListMng<Traits>::GetUsedMarks(std::vector<qint32>& markIds) {
    return Traits::UsedMarks(markIds);
}

template <class Traits> QString ListMng<Traits>::GetRowKey(const CGridRow& row) const {
    return Traits::KeyOf(RecordOf(row));
}

template <class Traits>
std::vector<typename ListMng<Traits>::Id> ListMng<Traits>::CheckedIds() const {
    std::vector<Id> ids;
    for (const CGridRow* row : CheckedRows()) {
        ids.push_back(Traits::IdOf(RecordOf(*row)));
    }
    return ids;
}

template <class Traits> bool ListMng<Traits>::Delete(qint32 projectId, const std::vector<Id>& ids) {
    if (!Traits::Delete(projectId, ids)) {
        return false;
    }
    WriteAction(Traits::kDeletionLog.toString());
    return true;
}

template class ListMng<BimPics>;
template class ListMng<PdfPics>;
template class ListMng<Issues>;
