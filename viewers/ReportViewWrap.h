// The window around a viewer's pane: its report, the record below, the way back to the console.
#pragma once

#include "report/ReportFlow.h"
#include "richtext/RichEditorDlg.h"
#include "viewers/PicViewWrap.h"

/// What one of these windows is called, and whom it belongs to.
struct ViewerTerms {
    QString name;           ///< of the widget
    QString caption;        ///< until the pane has a title
    qint32 consoleKind = 0; ///< of the console that a closing viewer brings back
    int recordHeight = 0;   ///< of the record below the pane, to begin with
};

/// Takes the pane's titles, blocks the client for its report, saves the record of what it shows
/// when it goes on, and ends with all that is in it. Thread: user interface.
class CReportViewWrap : public CPicViewWrap {
public:
    /// Becomes the caption, and the window lays out again. Nothing without a window.
    void ShowTitle(const QString& title);
    /// The report button was pressed.
    void OutputReport();
    void OnTimer(int timerId) override;

    /// The record below the pane; without a window for people who have no rich text.
    [[nodiscard]] CRichEditorDlg& RichEditor() { return richEditor; }

protected:
    CReportViewWrap(std::unique_ptr<CPicViewDlg> pane, ViewerTerms terms);
    /// What every report is told of the record below the pane.
    struct ReportTexts {
        QString html; ///< of the page, with what has been typed
        bool isEnabled = false;
        QString state;
        QString editorName;
    };
    /// Hands the request for what the window shows to whoever makes reports.
    virtual void AskForReport(const ReportTexts& texts) = 0;
    /// A note that plays stops.
    virtual void StopNote() = 0;
    /// Goes to another record, once the present one is saved. Nothing without the pane of rich
    /// texts. Who may write is found out here.
    void ShowRecord(RichContext context);

    Lower LowerPane() override;
    void OnCreated() override;
    void OnDestroyed() override;
    void OnClose() override;

private:
    /// All empty without the pane of rich texts.
    [[nodiscard]] ReportTexts TextsForReport();

    const ViewerTerms m_terms;
    report::ReportFlow m_report{*this};
    CRichEditorDlg richEditor;
};
