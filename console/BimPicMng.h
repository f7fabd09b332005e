// The console's BIM photos.
#pragma once

#include "console/PhotoMng.h"

/// Photos filed against a place of the model.
class CBimPicMng final : public PhotoMng<KX_DATA::BimPicRow> {
public:
    using PhotoMng::PhotoMng;

    [[nodiscard]] QString GetSearchHint() const override;
    bool InitColumns(std::map<int, bool>& sortable) override;
    void NotifyChanged() override;
    bool QueryPage(const toolkit::ImageList& rowImages, const KX_DATA::PageRequest& request,
                   KX_DATA::PageResult& result) override;
    [[nodiscard]] int GetStatusColumn() const override;
    bool GetUsedMarks(std::vector<qint32>& markIds) override;
    bool EditRow(CGridRow& row) override;
    void LocateRow(CGridRow& row) override;
    [[nodiscard]] DownloadSource GetDownloadSource(const CGridRow& row) const override;

    bool DeleteIds(qint32 projectId, const std::vector<qint32>& picIds) override;
    void BuildPreviewList(std::vector<KX_DATA::PicViewItem>& items) const override;
    /// False if a checked photo's position is invalid; nobody looks at it.
    bool CollectCheckedIds(std::vector<qint32>& picIds) const override;

protected:
    bool SetShown(qint32 projectId, const std::vector<qint32>& picIds, bool hidden) override;

private:
    void BuildRow(const toolkit::ImageList& rowImages, int place, KX_DATA::BimPicRow& record);
};
