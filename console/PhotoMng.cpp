#include "console/PhotoMng.h"

#include "base/MissingDialogs.h"
#include "console/ColumnTable.h"
#include "console/VeskPicMngGrid.h"
#include "toolkit/Prompts.h"

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::AnswerAsCancelled;
using ZelvorNRQ_KXVeskPicture::MissingDialog;

template <class Record>
CheckedResult PhotoMng<Record>::SetCheckedStatus(qint32 projectId, bool hidden) {
    std::vector<qint32> picIds;
    CollectCheckedIds(picIds);
    if (picIds.empty()) {
        return CheckedResult::NothingChecked;
    }
    return SetShown(projectId, picIds, hidden) ? CheckedResult::Done : CheckedResult::Refused;
}

template <class Record> bool PhotoMng<Record>::DeleteChecked(qint32 projectId) {
    std::vector<qint32> picIds;
    CollectCheckedIds(picIds);
    return DeleteIds(projectId, picIds);
}

template <class Record> DeleteResult PhotoMng<Record>::DeleteRow(qint32 projectId, CGridRow& row) {
    const QString name = row.GetItem(kNameColumn)->GetText();
    // The page may be another one when the question is answered, so the row isn't read after it.
    const qint32 picId = GetRowPicId(row);
    if (!toolkit::Prompts().AskOkCancel(grid->ParentId(), u"确认删除照片 "_s + name + u" ？"_s)) {
        return DeleteResult::Cancelled;
    }
    return DeleteIds(projectId, {picId}) ? DeleteResult::Deleted : DeleteResult::Refused;
}

template <class Record> void PhotoMng<Record>::PreviewRow(CGridRow& row) {
    Q_UNUSED(row);
    std::vector<KX_DATA::PicViewItem> items;
    BuildPreviewList(items);
    AnswerAsCancelled(MissingDialog::ConsolePicViewer);
}

template <class Record>
bool PhotoMng<Record>::CollectCheckedIds(std::vector<qint32>& picIds) const {
    for (const CGridRow* row : CheckedRows()) {
        picIds.push_back(GetRowPicId(*row));
    }
    return true;
}

template class PhotoMng<KX_DATA::BimPicRow>;
template class PhotoMng<KX_DATA::PdfPicRecord>;
