#include "host/services/PDFDrawingMng.h"

#include "host/services/SiteService.h"
#include "services/IKXAuthMng.h"
#include "services/IVeskPicMng.h"
#include "site/IComments.h"
#include "site/IPdfPhotos.h"

#include <algorithm>
#include <iterator>

namespace host {

using namespace Qt::StringLiterals;

namespace {

KX_DATA::CheckpointComment RecordOf(const site::Comment& comment) {
    KX_DATA::CheckpointComment record;
    record.exists = 1;
    record.text = comment.text;
    record.commentId = comment.id;
    record.time = comment.at;
    return record;
}

} // namespace

qint32 PDFDrawingMng::AddComment(qint32 drawingId, const QString& text,
                                 KX_DATA::CheckpointComment& comment) {
    const QString what = u"发表评论"_s;
    const qint32 result = Guarded(what, 0, [&](HostSession& session) {
        const auto added = session.Site().Comments().Add(session.OpenPpids(), drawingId, text,
                                                         SignatureOf(session));
        RequireFound(added.has_value(), u"检查点"_s);
        comment = RecordOf(*added);
        return KX_DATA::kServiceOk;
    });
    LogIf(result == KX_DATA::kServiceOk, what);
    return result;
}

qint32 PDFDrawingMng::GetComments(qint32 drawingId, qint32 page, qint32 pageSize,
                                  std::vector<KX_DATA::CheckpointComment>& comments) {
    return GuardedQuestion(u"读取评论"_s, 0, [&](HostSession& session) {
        const auto found =
            session.Site().Comments().PageOf(session.OpenPpids(), drawingId, page, pageSize);
        RequireFound(found.has_value(), u"检查点"_s);
        comments.clear();
        std::transform(found->begin(), found->end(), std::back_inserter(comments), RecordOf);
        return KX_DATA::kServiceOk;
    });
}

bool PDFDrawingMng::DeleteComment(qint32 drawingId, qint64 commentId) {
    const QString what = u"删除评论"_s;
    const bool isGone = Guarded(what, false, [&](HostSession& session) {
        const auto whose = session.HasRight(KX_DATA::kRightDelete) ? site::CommentsOf::Anyone
                                                                   : site::CommentsOf::Author;
        const site::Removed removed = session.Site().Comments().Remove(
            session.OpenPpids(), drawingId, commentId, SignatureOf(session), whose);
        if (removed == site::Removed::NotTheirs) {
            throw site::DataError(site::Fault::Refused,
                                  u"这条评论是他人发表的，您没有删除他人评论的权限。"_s);
        }
        RequireFound(removed == site::Removed::Yes, u"评论"_s);
        return true;
    });
    LogIf(isGone, what);
    return isGone;
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
