// The drawing service: checkpoints and their comments.
#pragma once

#include "services/DrawingRecords.h"

namespace KX_DATA {

/// Comments come in pages of this size.
inline constexpr qint32 kCommentPageSize = 50;

/// PDF drawings. Thread: user interface.
class IPDFDrawingMng {
public:
    virtual ~IPDFDrawingMng() = default;

    virtual void Reserved1() = 0;
    virtual void Reserved2() = 0;
    virtual void Reserved3() = 0;
    virtual void Reserved4() = 0;
    virtual void Reserved5() = 0;
    virtual void Reserved6() = 0;
    /// 101 on success, here and below where the result is a number. The text is kept as it comes:
    /// callers put the user's name before it. One of blanks alone is refused. `comment` tells id
    /// and time, and `exists` that it was saved.
    virtual qint32 AddComment(qint32 drawingId, const QString& text,
                              CheckpointComment& comment) = 0;
    /// In the order of writing. `page` counts from 0; past the end it is empty.
    virtual qint32 GetComments(qint32 drawingId, qint32 page, qint32 pageSize,
                               std::vector<CheckpointComment>& comments) = 0;
    /// One's own; those of others too for who may delete photos.
    virtual bool DeleteComment(qint32 drawingId, qint64 commentId) = 0;
    /// `drawingId` is that of PdfPicRecord: the id of the checkpoint point.
    virtual qint32 GetDrawing(qint32 drawingId, DrawingRecord& record) = 0;
    /// Who saves last wins: nothing says which state was seen. Labels are ids here, and a mark of 0
    /// leaves the mark as it is.
    virtual qint32 UpdateCheckpoint(const CheckpointEdit& edit, qint32& value) = 0;
};

} // namespace KX_DATA
