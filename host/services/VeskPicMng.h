// The photo service.
#pragma once

#include "host/services/SiteService.h"
#include "services/IVeskPicMng.h"

namespace host {

/// Over the open site. Thread: user interface.
class VeskPicMng final : public KX_DATA::IVeskPicMng, private SiteService {
public:
    using SiteService::SiteService;

    void Reserved1() override {}
    void Reserved2() override {}
    qint32 QueryBimPics(const KX_DATA::PicQueryFilter& filter, const KX_DATA::PageRequest& request,
                        KX_DATA::PageResult& result,
                        std::vector<KX_DATA::BimPicRow>& rows) override;
    qint32 QueryPdfPics(const KX_DATA::PdfQueryFilter& filter, const KX_DATA::PageRequest& request,
                        KX_DATA::PageResult& result,
                        std::vector<KX_DATA::PdfPicRecord>& rows) override;
    void GetBimPicFilterGroups(qint64 from, qint64 to, quint8 flag,
                               KX_DATA::MarkFilterArg& filterArg,
                               std::vector<KX_DATA::PicFilterEntry>& entries) override;
    qint32 GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                               KX_DATA::MarkFilterArg& filterArg,
                               std::vector<qint32>& picIds) override;
    bool DeleteBimPics(const std::vector<qint32>& picIds) override;
    bool DeletePdfPics(qint32 ppid, const std::vector<qint32>& picIds) override;
    bool SetBimPicsShown(qint32 ppid, const std::vector<qint32>& picIds, bool hidden) override;
    bool SetPdfPicsShown(qint32 ppid, const std::vector<qint32>& picIds, bool hidden) override;
    qint32 GetBimPicDetail(qint32 ppid, qint32 picId, KX_DATA::BimPicDetail& detail) override;
    qint32 GetPdfPicDetail(qint32 ppid, qint32 picId, KX_DATA::PdfPicDetail& detail) override;
    qint32 GetProjectFloors(qint32 ppid, std::vector<QString>& floors) override;
    qint32 GetFloorAxesX(qint32 ppid, const QString& floor, std::vector<QString>& axes) override;
    qint32 GetFloorAxesY(qint32 ppid, const QString& floor, const QString& axisX,
                         std::vector<KX_DATA::AxisYEntry>& axes) override;
    bool UpdateBimPic(qint32 ppid, const KX_DATA::BimPicUpdate& update) override;
    bool UpdatePdfPic(qint32 ppid, const KX_DATA::PdfPicUpdate& update) override;
    qint32 GetPicFiles(const std::vector<qint32>& picIds,
                       std::vector<KX_DATA::PicFileEntry>& files) override;
    qint32 GetCheckpointPics(qint32 ppid, qint32 picId,
                             KX_DATA::CheckpointPicDetail& detail) override;
    void GetBimPicFilterValues(qint64 from, qint64 to, quint8 flag,
                               KX_DATA::MarkFilterArg& filterArg,
                               std::vector<KX_DATA::PicMarkGroup>& groups) override;
    qint32 DeleteCheckpointPic(qint32 drawingId, qint32 picId) override;
    qint32 GetPicFilesByPosition(qint32 ppid, const QString& positionKey, qint32 markId,
                                 std::vector<KX_DATA::PicFileEntry>& files) override;
    void Reserved3() override {}
    void Reserved4() override {}
    void Reserved5() override {}
    bool GetBimLabels(std::vector<KX_DATA::LabelEntry>& labels) override;
    bool GetPdfLabels(std::vector<KX_DATA::LabelEntry>& labels) override;
    bool GetUsedBimMarks(std::vector<qint32>& markIds) override;
    bool GetUsedPdfMarks(std::vector<qint32>& markIds) override;
    void GetStateNames(std::vector<QString>& names) override;

private:
    /// Guarded, in the results of this service.
    template <typename Work> [[nodiscard]] qint32 Status(const QString& what, Work work) const;
    /// The same for a page of a list.
    template <typename Work> [[nodiscard]] qint32 Page(const QString& what, Work work) const;
    template <typename Work> bool Done(const QString& what, Work work) const;
};

} // namespace host
