// What the host hands in, so that the module can tell it of changes.
#pragma once

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

/// Told when marks of the view must be drawn anew. Thread: user interface.
class IKXVeskPictureSink {
public:
    virtual void RefreshBimMarks() = 0;
    virtual void RefreshTNMarks() = 0;
    virtual void RefreshPdfMarks() = 0;
    virtual void Reserved1() = 0;
    virtual void Reserved2() = 0;
    /// Bring up a drawing.
    virtual void SelectCheckpoint(qint32 drawingId) = 0;
    /// Show the photo of a reminder in the model.
    virtual void SelectPictureMark(const QString& floor, qint32 markId, qint32 picId) = 0;

protected:
    ~IKXVeskPictureSink() = default;
};

/// Told when the issue editor hides itself so that the user can pick in the model.
class IKXIssueEditSink {
public:
    virtual void Reserved1() = 0;
    virtual void Reserved2() = 0;
    virtual void OnIssueEditVisible(qint32 visible) = 0;

protected:
    ~IKXIssueEditSink() = default;
};

} // namespace ZelvorNRQ_KXVeskPicture
