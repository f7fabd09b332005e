// What the module tells the client: marks must be drawn anew, a drawing or a mark is wanted.
#pragma once

#include "include/IKXVeskPictureSink.h"

#include <QObject>

namespace host {

/// Turns the module's calls into signals. Thread: user interface. Outlives the module.
class PictureSink final : public QObject,
                          public ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink,
                          public ZelvorNRQ_KXVeskPicture::IKXIssueEditSink {
    Q_OBJECT

public:
    void RefreshBimMarks() override { emit BimMarksChanged(); }
    void RefreshTNMarks() override { emit IssueMarksChanged(); }
    void RefreshPdfMarks() override { emit PdfMarksChanged(); }
    void Reserved1() override {}
    void Reserved2() override {}
    void SelectCheckpoint(qint32 drawingId) override { emit DrawingWanted(drawingId); }
    void SelectPictureMark(const QString& floor, qint32 markId, qint32 picId) override {
        emit MarkWanted(floor, markId, picId);
    }
    void OnIssueEditVisible(qint32 visible) override { emit IssueEditVisible(visible != 0); }

signals:
    void BimMarksChanged();
    void IssueMarksChanged();
    void PdfMarksChanged();
    void DrawingWanted(qint32 drawingId);
    void MarkWanted(const QString& floor, qint32 markId, qint32 picId);
    void IssueEditVisible(bool visible);
};

} // namespace host
