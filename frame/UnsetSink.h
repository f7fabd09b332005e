// Stands in for the host's sinks while the host has set none.
#pragma once

#include "include/IKXVeskPictureSink.h"

/// Writes a line to the log for each notification that nobody hears.
class UnsetSink final : public ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink,
                        public ZelvorNRQ_KXVeskPicture::IKXIssueEditSink {
public:
    void RefreshBimMarks() override;
    void RefreshTNMarks() override;
    void RefreshPdfMarks() override;
    void Reserved1() override {}
    void Reserved2() override {}
    void SelectCheckpoint(qint32 drawingId) override;
    void SelectPictureMark(const QString& floor, qint32 markId, qint32 picId) override;
    void OnIssueEditVisible(qint32 visible) override;
};
