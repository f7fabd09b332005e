// What the managers of BIM and of drawing photos share.
#pragma once

#include "console/ListMng.h"
#include "services/EnvRecords.h"
#include "services/PicRecords.h"

/// What the `Traits` of a kind of photo have in common: known by number, asked about by name.
template <class PhotoRecord> struct PhotoTraits {
    using Record = PhotoRecord;
    using Id = qint32;
    static Id IdOf(const Record& record) { return record.picId; }
    static QString KeyOf(const Record& record) { return QString::number(record.picId); }
    static QString DeleteQuestion(const CGridRow& row);
};

/// Photos can be downloaded, and are previewed in one viewer. The `Traits` also tell:
///
///     kPeople                     the column from which on people, times, position, labels, state
///                                 of rectification and description follow each other
///     kPageKind                   in the viewer
///     Labels(record)              as the cell shows them
///     Uuid(record), FileText(record) names of what is stored
///     Folder(project)             where the pictures of a project lie
///     PutPlace(item, record, row) where the photo belongs, in the list for the viewer
template <class Traits> class PhotoMng : public ListMng<Traits> {
public:
    using Record = typename Traits::Record;
    using ListMng<Traits>::ListMng;

    [[nodiscard]] qint32 GetRowPicId(const CGridRow& row) const override;
    [[nodiscard]] DownloadSource GetDownloadSource(const CGridRow& row) const override;
    void PreviewRow(CGridRow& row) override;

    virtual bool DeleteIds(qint32 projectId, const std::vector<qint32>& picIds);
    /// One element for each row, in row order.
    virtual void BuildPreviewList(std::vector<KX_DATA::PicViewItem>& items) const;
    /// Ids of the checked rows, from the last row to the first.
    virtual bool CollectCheckedIds(std::vector<qint32>& picIds) const;

protected:
    /// Columns of photos, counted from `Traits::kPeople`.
    enum PhotoColumn { kTimesAfter = 1, kPositionAfter, kLabelsAfter, kRectifyAfter, kTextAfter };

    void FillBasicCells(CGridRow& row, const Record& record, const QString& position) const;
    /// Mark, people, times, labels, state of rectification.
    void FillFurtherCells(CGridRow& row, const Record& record) const;
};
