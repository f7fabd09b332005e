#include "host/services/PDFDrawingMng.h"

#include "host/services/SiteService.h"
#include "services/IVeskPicMng.h"
#include "site/IPdfPhotos.h"

namespace host {

using namespace Qt::StringLiterals;

qint32 PDFDrawingMng::AddComment(qint32 /*drawingId*/, const QString& /*text*/,
                                 KX_DATA::CheckpointComment& /*comment*/) {
    return Unimplemented("IPDFDrawingMng::AddComment", 0);
}

qint32 PDFDrawingMng::GetComments(qint32 /*drawingId*/, qint32 /*page*/, qint32 /*pageSize*/,
                                  std::vector<KX_DATA::CheckpointComment>& /*comments*/) {
    return Unimplemented("IPDFDrawingMng::GetComments", 0);
}

bool PDFDrawingMng::DeleteComment(qint32 /*drawingId*/, qint64 /*commentId*/) {
    return Unimplemented("IPDFDrawingMng::DeleteComment", false);
}

qint32 PDFDrawingMng::GetDrawing(qint32 drawingId, KX_DATA::DrawingRecord& record) {
    return Guarded(u"读取检查点"_s, 0, [&](HostSession& session) {
        site::IPdfPhotos& photos = session.Site().PdfPhotos();
        RequireFound(photos.Checkpoint(session.OpenPpids(), drawingId, record).has_value(),
                     u"检查点"_s);
        return KX_DATA::kServiceOk;
    });
}

qint32 PDFDrawingMng::UpdateCheckpoint(const KX_DATA::CheckpointEdit& edit, qint32& value) {
    value = 0;
    return Guarded(u"修改检查点"_s, 0, [&](HostSession& session) {
        RequireFound(IsSaved(session.Site().PdfPhotos().UpdateCheckpoint(session.OpenPpids(), edit,
                                                                         SignatureOf(session))),
                     u"检查点"_s);
        return KX_DATA::kServiceOk;
    });
}

} // namespace host
