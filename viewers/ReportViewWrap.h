// The window around a viewer's pane that has a report, and a way back to the console.
#pragma once

#include "report/ReportFlow.h"
#include "viewers/PicViewWrap.h"

/// What one of these windows is called, and whom it belongs to.
struct ViewerTerms {
    QString name;           ///< of the widget
    QString caption;        ///< until the pane has a title
    qint32 consoleKind = 0; ///< of the console that a closing viewer brings back
};

/// Takes the pane's titles, blocks the client for its report, and ends with all that is in it.
/// Thread: user interface.
class CReportViewWrap : public CPicViewWrap {
public:
    /// Becomes the caption, and the window lays out again. Nothing without a window.
    void ShowTitle(const QString& title);
    /// The report button was pressed.
    void OutputReport();
    void OnTimer(int timerId) override;

protected:
    CReportViewWrap(std::unique_ptr<CPicViewDlg> pane, ViewerTerms terms);
    /// A note that plays stops.
    virtual void StopNote() = 0;

    void OnCreated() override;
    void OnDestroyed() override;
    void OnClose() override;

private:
    const ViewerTerms m_terms;
    report::ReportFlow m_report{*this};
};
