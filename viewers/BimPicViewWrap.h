// The window of the BIM photo viewer.
#pragma once

#include "base/SingletonTmpl.h"
#include "viewers/BimPicViewDlg.h"
#include "viewers/ReportViewWrap.h"

/// Photos of one place in the model; a second opening shows another place in the same window.
///
/// Knows the place, not its photos. Its window exists from the first opening until the user closes
/// it. Thread: user interface. Exists once in a process.
class CBimPicViewWrap final : public CReportViewWrap,
                              public NRQUtility::SingletonTmpl<CBimPicViewWrap>,
                              public ITitleNotify {
public:
    CBimPicViewWrap();

    /// Shows a place. False: its photos can't be listed, or the window ended meanwhile.
    bool OpenView(const BimPlace& place, qint32 wantedPicId);

    [[nodiscard]] CBimPicViewDlg& Pane() { return static_cast<CBimPicViewDlg&>(PicView()); }

    void OnTitleChanged(const QString& title) override { ShowTitle(title); }
    void OnOutputReport() override { OutputReport(); }

protected:
    void OnCreated() override;
    void AskForReport(const ReportTexts& texts) override;
    void StopNote() override { Pane().Note().StopIfPlaying(); }

private:
    BimPlace m_place;
};
