#include "tests/support/services/ScriptedDrawings.h"

#include "services/IKXAuthMng.h"
#include "services/IVeskPicMng.h"
#include "tests/support/ArgText.h"
#include "tests/support/services/ScriptedVeskPicMng.h"

#include <algorithm>

namespace support {

namespace {

constexpr qint32 kNoMarkColor = 0xFAFAFA; ///< of a mark that the table doesn't have
constexpr qsizetype kMostText = 4000;     ///< of a comment, UTF-16 units

} // namespace

KX_DATA::DrawingRecord* ScriptedPDFDrawingMng::Find(qint32 pointId) {
    const auto found = drawings.find(pointId);
    const auto project = projects.find(pointId);
    const bool isOpen =
        pics == nullptr || project == projects.end() || pics->IsOpen(project->second);
    return found != drawings.end() && isOpen ? &found->second : nullptr;
}

bool ScriptedPDFDrawingMng::Judges() const {
    return pics != nullptr && pics->judges;
}

bool ScriptedPDFDrawingMng::Takes(qint32 pointId, const QString& text) {
    return !Judges() ||
           (Find(pointId) != nullptr && !text.trimmed().isEmpty() && text.size() <= kMostText);
}

bool ScriptedPDFDrawingMng::IsOf(const KX_DATA::CheckpointComment& comment, qint32 pointId) const {
    const auto found = written.find(comment.commentId);
    return found == written.end() || found->second.pointId == pointId;
}

bool ScriptedPDFDrawingMng::MayDelete(qint64 commentId) const {
    const auto found = written.find(commentId);
    return rights == nullptr || rights->contains(KX_DATA::kRightDelete) ||
           (found != written.end() && pics != nullptr && found->second.person == pics->changer);
}

qint32 ScriptedPDFDrawingMng::AddComment(qint32 drawingId, const QString& text,
                                         KX_DATA::CheckpointComment& comment) {
    const bool succeeds =
        m_script.Call("AddComment", {Arg("drawing", drawingId), Arg("text", text)});
    if (!succeeds || !Takes(drawingId, text)) {
        return 0;
    }
    for (const KX_DATA::CheckpointComment& known : comments) {
        m_lastComment = std::max(m_lastComment, known.commentId);
    }
    comment = {};
    if (!makesComments) {
        return KX_DATA::kServiceOk;
    }
    comment.exists = 1;
    comment.text = text;
    comment.commentId = ++m_lastComment;
    comment.time = commentTime;
    comments.push_back(comment);
    written[comment.commentId] = {drawingId, pics != nullptr ? pics->changer : QString()};
    return KX_DATA::kServiceOk;
}

qint32 ScriptedPDFDrawingMng::GetComments(qint32 drawingId, qint32 page, qint32 pageSize,
                                          std::vector<KX_DATA::CheckpointComment>& list) {
    const bool succeeds = m_script.Call(
        "GetComments", {Arg("drawing", drawingId), Arg("page", page), Arg("size", pageSize)});
    if (!succeeds || (Judges() && Find(drawingId) == nullptr)) {
        return 0;
    }
    list.clear();
    qint64 place = 0;
    for (const KX_DATA::CheckpointComment& comment : comments) {
        if (IsOf(comment, drawingId) && place++ / pageSize == page) {
            list.push_back(comment);
        }
    }
    return KX_DATA::kServiceOk;
}

bool ScriptedPDFDrawingMng::DeleteComment(qint32 drawingId, qint64 commentId) {
    const bool succeeds =
        m_script.Call("DeleteComment", {Arg("drawing", drawingId), Arg("id", commentId)});
    if (!succeeds || (Judges() && (Find(drawingId) == nullptr || !MayDelete(commentId)))) {
        return false;
    }
    const auto gone = std::erase_if(comments, [&](const KX_DATA::CheckpointComment& comment) {
        return comment.commentId == commentId && IsOf(comment, drawingId);
    });
    return gone > 0 || !Judges();
}

qint32 ScriptedPDFDrawingMng::GetDrawing(qint32 drawingId, KX_DATA::DrawingRecord& record) {
    const bool succeeds = m_script.Call("GetDrawing", {Arg("drawing", drawingId)});
    const KX_DATA::DrawingRecord* found = Find(drawingId);
    if (!succeeds || found == nullptr) {
        return 0;
    }
    record = *found;
    if (record.pics.empty() && pics != nullptr) {
        record.pics = pics->ShownPicsOf(drawingId);
    }
    return KX_DATA::kServiceOk;
}

qint32 ScriptedPDFDrawingMng::UpdateCheckpoint(const KX_DATA::CheckpointEdit& edit, qint32& value) {
    lastEdit = edit;
    value = 0;
    const bool succeeds = m_script.Call("UpdateCheckpoint", {Arg("id", edit.checkpointId)});
    KX_DATA::DrawingRecord* found = Find(edit.checkpointId);
    if (!succeeds || found == nullptr) {
        return 0;
    }
    // What is sent as names are ids; one that isn't known is refused with nothing changed.
    std::vector<KX_DATA::LabelEntry> labels;
    if (pics != nullptr && !pics->FindLabels(edit.labelNames, labels)) {
        return 0;
    }
    KX_DATA::DrawingRecord& record = *found;
    record.description = edit.description;
    record.remark = edit.remark;
    record.position = {edit.position1, edit.position2};
    record.labels.clear();
    for (const KX_DATA::LabelEntry& label : labels) {
        record.labels.emplace_back(label.labelId, label.labelName);
    }
    if (pics != nullptr) {
        if (edit.markId > 0) {
            const auto mark = pics->markTable.find(edit.markId);
            record.markName = mark != pics->markTable.end() ? mark->second.name : QString();
            record.markColor = mark != pics->markTable.end() ? mark->second.color : kNoMarkColor;
        }
        pics->ChangeCheckpoint(edit.checkpointId, edit.markId, labels);
    }
    return KX_DATA::kServiceOk;
}

qint32 ScriptedTNQRCodeMng::CreateQRCode(const KX_DATA::QRCodeQuery& query, QString& text) {
    lastQuery = query;
    if (!m_script.Call("CreateQRCode", {Arg("handle", query.componentHandle)})) {
        return 0;
    }
    text = code;
    return 1;
}

} // namespace support
