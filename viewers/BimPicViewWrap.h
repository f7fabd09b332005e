// The window of the BIM photo viewer.
#pragma once

#include "base/SingletonTmpl.h"
#include "report/ReportFlow.h"
#include "viewers/BimPicViewDlg.h"
#include "viewers/PicViewWrap.h"

/// Photos of one place in the model; a second opening shows another place in the same window.
///
/// Knows the place, not its photos. Its window exists from the first opening until the user closes
/// it. Thread: user interface. Exists once in a process.
class CBimPicViewWrap final : public CPicViewWrap,
                              public NRQUtility::SingletonTmpl<CBimPicViewWrap>,
                              public ITitleNotify {
public:
    CBimPicViewWrap();

    /// Shows a place. False: its photos can't be listed, or the window ended meanwhile.
    bool OpenView(const BimPlace& place, qint32 wantedPicId);

    [[nodiscard]] CBimPicViewDlg& Pane() { return static_cast<CBimPicViewDlg&>(PicView()); }

    void OnTitleChanged(const QString& title) override;
    void OnOutputReport() override;
    void OnTimer(int timerId) override;

protected:
    void OnCreated() override;
    void OnDestroyed() override;
    void OnClose() override;

private:
    BimPlace m_place;
    report::ReportFlow m_report{*this};
};
