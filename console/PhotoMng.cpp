#include "console/PhotoMng.h"

#include "base/OpenProject.h"
#include "base/StoredFile.h"
#include "console/BimPicMng.h"
#include "console/ColumnTable.h"
#include "console/PDFPicMng.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "viewers/VeskPicViewWrap.h"

#include <utility>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::CurrentProject;
using ZelvorNRQ_KXVeskPicture::kPictureEnding;
using ZelvorNRQ_KXVeskPicture::StoredFilePath;

template <class Record> QString PhotoTraits<Record>::DeleteQuestion(const CGridRow& row) {
    return u"确认删除照片 "_s + row.GetItem(kNameColumn)->GetText() + u" ？"_s;
}

template <class Traits> qint32 PhotoMng<Traits>::GetRowPicId(const CGridRow& row) const {
    return this->RecordOf(row).picId;
}

template <class Traits>
DownloadSource PhotoMng<Traits>::GetDownloadSource(const CGridRow& row) const {
    const Record& record = this->RecordOf(row);
    // The folder is that of the open project, not of the row's.
    const QString folder = Traits::Folder(CurrentProject().value_or(KX_DATA::ProjectRecord()));
    const QString uuid = Traits::Uuid(record);
    return {uuid, record.fileName, StoredFilePath(folder, uuid, kPictureEnding)};
}

template <class Traits> void PhotoMng<Traits>::PreviewRow(CGridRow& row) {
    VeskPicPage page;
    BuildPreviewList(page.items);
    page.kind = Traits::kPageKind;
    page.page = this->currentPage;
    page.index = int(&this->RecordOf(row) - this->records.data());
    CVeskPicViewWrap viewer;
    viewer.SetPage(std::move(page));
    viewer.DoModal(this->grid->ParentId());
}

template <class Traits>
bool PhotoMng<Traits>::DeleteIds(qint32 projectId, const std::vector<qint32>& picIds) {
    return this->Delete(projectId, picIds);
}

template <class Traits>
bool PhotoMng<Traits>::CollectCheckedIds(std::vector<qint32>& picIds) const {
    const std::vector<qint32> checked = this->CheckedIds();
    picIds.insert(picIds.end(), checked.begin(), checked.end());
    return true;
}

template <class Traits>
void PhotoMng<Traits>::FillBasicCells(CGridRow& row, const Record& record,
                                      const QString& position) const {
    row.SetText(kNameColumn, record.fileName);
    row.SetText(Traits::kPeople + kPositionAfter, position);
    row.SetText(Traits::kPeople + kTextAfter, record.description);
    row.SetText(this->GetStatusColumn(), StatusText(record.status));
}

template <class Traits>
void PhotoMng<Traits>::FillFurtherCells(CGridRow& row, const Record& record) const {
    this->PutMark(row, record.markId);
    row.SetText(Traits::kPeople, PairText(record.uploaderName, record.updaterName));
    row.SetText(Traits::kPeople + kTimesAfter, PairText(record.uploadTime, record.updateTime));
    row.SetText(Traits::kPeople + kLabelsAfter, LabelText(Traits::Labels(record)));
    row.SetText(Traits::kPeople + kRectifyAfter, record.rectifyText);
}

template <class Traits>
void PhotoMng<Traits>::BuildPreviewList(std::vector<KX_DATA::PicViewItem>& items) const {
    for (int i = 0; i < this->grid->GetRowCount(); ++i) {
        const CGridRow& row = *this->grid->GetRow(i);
        const Record& record = this->records[size_t(i)];
        KX_DATA::PicViewItem item;
        item.picId = record.picId;
        item.ppid = record.ppid;
        item.uuid = Traits::Uuid(record);
        item.fileText = Traits::FileText(record);
        item.picName = record.fileName;
        Traits::PutPlace(item, record, row);
        item.markId = record.markId;
        item.uploader = record.uploaderName;
        item.uploadTime = record.uploadTime;
        item.updater = record.updaterName;
        item.updateTime = record.updateTime;
        item.labelText = row.GetItem(Traits::kPeople + kLabelsAfter)->GetText();
        item.description = record.description;
        item.rectifyText = record.rectifyText;
        items.push_back(std::move(item));
    }
}

template struct PhotoTraits<KX_DATA::BimPicRow>;
template struct PhotoTraits<KX_DATA::PdfPicRecord>;
template class PhotoMng<BimPics>;
template class PhotoMng<PdfPics>;
