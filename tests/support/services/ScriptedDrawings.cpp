#include "tests/support/services/ScriptedDrawings.h"

#include "services/IVeskPicMng.h"
#include "tests/support/ArgText.h"
#include "tests/support/services/ScriptedVeskPicMng.h"

#include <algorithm>

namespace support {

namespace {

constexpr qint32 kNoMarkColor = 0xFAFAFA; ///< of a mark that the table doesn't have

} // namespace

KX_DATA::DrawingRecord* ScriptedPDFDrawingMng::Find(qint32 pointId) {
    const auto found = drawings.find(pointId);
    const auto project = projects.find(pointId);
    const bool isOpen =
        pics == nullptr || project == projects.end() || pics->IsOpen(project->second);
    return found != drawings.end() && isOpen ? &found->second : nullptr;
}

qint32 ScriptedPDFDrawingMng::AddComment(qint32 drawingId, const QString& text,
                                         KX_DATA::CheckpointComment& comment) {
    if (!m_script.Call("AddComment", {Arg("drawing", drawingId), Arg("text", text)})) {
        return 0;
    }
    comment.exists = 1;
    comment.text = text;
    comment.commentId = qint64(comments.size()) + 1;
    comments.push_back(comment);
    return KX_DATA::kServiceOk;
}

qint32 ScriptedPDFDrawingMng::GetComments(qint32 drawingId, qint32 page, qint32 pageSize,
                                          std::vector<KX_DATA::CheckpointComment>& list) {
    if (!m_script.Call("GetComments",
                       {Arg("drawing", drawingId), Arg("page", page), Arg("size", pageSize)})) {
        return 0;
    }
    const auto first = std::min(comments.size(), std::size_t(page) * std::size_t(pageSize));
    const auto last = std::min(comments.size(), first + std::size_t(pageSize));
    list.assign(comments.begin() + std::ptrdiff_t(first), comments.begin() + std::ptrdiff_t(last));
    return KX_DATA::kServiceOk;
}

bool ScriptedPDFDrawingMng::DeleteComment(qint32 drawingId, qint64 commentId) {
    if (!m_script.Call("DeleteComment", {Arg("drawing", drawingId), Arg("id", commentId)})) {
        return false;
    }
    std::erase_if(comments, [&](const KX_DATA::CheckpointComment& comment) {
        return comment.commentId == commentId;
    });
    return true;
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
        const auto mark = pics->markTable.find(edit.markId);
        record.markName = mark != pics->markTable.end() ? mark->second.name : QString();
        record.markColor = mark != pics->markTable.end() ? mark->second.color : kNoMarkColor;
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

bool ScriptedRichTextMsgMng::GetRichText(const KX_DATA::RichTextKey& key,
                                         KX_DATA::RichTextMsg& target,
                                         std::vector<KX_DATA::RichAttachment>& attachments) {
    if (!m_script.Call("GetRichText", {Arg("id", key.objectId)})) {
        return false;
    }
    target = message;
    attachments = message.attachments;
    return true;
}

bool ScriptedRichTextMsgMng::SaveRichText(const QString& stateText,
                                          const KX_DATA::RichTextMsg& saved,
                                          const KX_DATA::RichTextKey& key,
                                          const std::vector<QString>& removedUuids,
                                          const std::vector<KX_DATA::RichAttachment>& added) {
    lastSaved = saved;
    return m_script.Call("SaveRichText",
                         {Arg("id", key.objectId), Arg("state", stateText),
                          Arg("removed", removedUuids), Arg("added", qint32(added.size()))});
}

} // namespace support
