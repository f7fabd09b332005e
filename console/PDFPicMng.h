// The console's drawing photos.
#pragma once

#include "console/PhotoMng.h"

/// Photos filed against a checkpoint of a PDF drawing.
class CPDFPicMng final : public PhotoMng<KX_DATA::PdfPicRecord> {
public:
    using PhotoMng::PhotoMng;

    [[nodiscard]] QString GetSearchHint() const override;
    bool InitColumns(std::map<int, bool>& sortable) override;
    void NotifyChanged() override;
    /// Success is any answer of the service but 0.
    bool QueryPage(const toolkit::ImageList& rowImages, const KX_DATA::PageRequest& request,
                   KX_DATA::PageResult& result) override;
    [[nodiscard]] int GetStatusColumn() const override;
    /// A checked row lies on the open drawing, judged by its name alone.
    [[nodiscard]] bool IsViewAffected() override;
    [[nodiscard]] bool IsRowInView(const CGridRow& row) override;
    bool GetUsedMarks(std::vector<qint32>& markIds) override;
    bool EditRow(CGridRow& row) override;
    void LocateRow(CGridRow& row) override;
    [[nodiscard]] DownloadSource GetDownloadSource(const CGridRow& row) const override;

    bool DeleteIds(qint32 projectId, const std::vector<qint32>& picIds) override;
    void BuildPreviewList(std::vector<KX_DATA::PicViewItem>& items) const override;

protected:
    bool SetShown(qint32 projectId, const std::vector<qint32>& picIds, bool hidden) override;

private:
    void BuildRow(const toolkit::ImageList& rowImages, int place, KX_DATA::PdfPicRecord& record);
    void FillPdfBasicCells(CGridRow& row, const KX_DATA::PdfPicRecord& record) const;
};
