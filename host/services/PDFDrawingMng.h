// The drawing service.
#pragma once

#include "host/services/SiteService.h"
#include "services/IPDFDrawingMng.h"

namespace host {

/// Checkpoints of the open site and their comments. Thread: user interface.
class PDFDrawingMng final : public KX_DATA::IPDFDrawingMng, private SiteService {
public:
    using SiteService::SiteService;

    void Reserved1() override {}
    void Reserved2() override {}
    void Reserved3() override {}
    void Reserved4() override {}
    void Reserved5() override {}
    void Reserved6() override {}
    qint32 AddComment(qint32 drawingId, const QString& text,
                      KX_DATA::CheckpointComment& comment) override;
    qint32 GetComments(qint32 drawingId, qint32 page, qint32 pageSize,
                       std::vector<KX_DATA::CheckpointComment>& comments) override;
    bool DeleteComment(qint32 drawingId, qint64 commentId) override;
    qint32 GetDrawing(qint32 drawingId, KX_DATA::DrawingRecord& record) override;
    qint32 UpdateCheckpoint(const KX_DATA::CheckpointEdit& edit, qint32& value) override;
};

} // namespace host
