// The window of the drawing photo viewer.
#pragma once

#include "base/SingletonTmpl.h"
#include "viewers/PdfPicViewDlg.h"
#include "viewers/ReportViewWrap.h"

/// One checkpoint on a drawing; a second opening shows another one in the same window.
///
/// Knows the checkpoint, not its pictures. Its window exists from the first opening until the user
/// closes it. Thread: user interface. Exists once in a process.
class CPdfPicViewWrap final : public CReportViewWrap,
                              public NRQUtility::SingletonTmpl<CPdfPicViewWrap> {
public:
    CPdfPicViewWrap();

    /// Shows the checkpoint named below. False: it can't be read, or the window ended meanwhile.
    bool OpenView(qint32 wantedPicId);

    [[nodiscard]] CPdfPicViewDlg& Pane() { return static_cast<CPdfPicViewDlg&>(PicView()); }

    /// Set before the opening.
    qint32 drawingId = 0; ///< of the checkpoint's point
    QString drawingName;
    qint32 ppid = 0;

protected:
    void AskForReport(const ReportTexts& texts) override;
    void StopNote() override { Pane().Note().StopIfPlaying(); }
};
