#include "viewers/ReportViewWrap.h"

#include "base/FacadeAccess.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IRichEditorAuth.h"
#include "toolkit/Look.h"
#include "toolkit/windows/StillThere.h"

#include <utility>

CReportViewWrap::CReportViewWrap(std::unique_ptr<CPicViewDlg> pane, ViewerTerms terms)
    : CPicViewWrap(std::move(pane)), m_terms(std::move(terms)) {}

void CReportViewWrap::OnCreated() {
    CPicViewWrap::OnCreated();
    if (!HasWindow()) {
        return;
    }
    Widget()->setObjectName(m_terms.name);
    Widget()->setWindowTitle(m_terms.caption);
}

CPicViewWrap::Lower CReportViewWrap::LowerPane() {
    return GetRichEditorAuth()->IsRichTextEnabled() ? Lower{&richEditor, m_terms.recordHeight}
                                                    : Lower{};
}

void CReportViewWrap::ShowRecord(RichContext context) {
    if (!richEditor.HasWindow()) {
        return;
    }
    const bool isReadOnly =
        GetRichEditorAuth()->IsRichTextReadOnly() || GetKXGlobalData()->IsWorksetMode();
    context.readOnly = isReadOnly ? 1 : 0;
    richEditor.GoTo(context);
}

void CReportViewWrap::ShowTitle(const QString& title) {
    if (!HasWindow()) {
        return;
    }
    Widget()->setWindowTitle(toolkit::PlainTitle(title));
    LayoutWrap();
}

void CReportViewWrap::OutputReport() {
    const toolkit::StillThere still(Id());
    ReportTexts texts = TextsForReport();
    // An editor that couldn't write says so, and meanwhile the window may be closed.
    if (!still) {
        return;
    }
    m_report.Run([&] {
        texts.isEnabled = GetRichEditorAuth()->IsRichTextEnabled();
        AskForReport(texts);
    });
}

CReportViewWrap::ReportTexts CReportViewWrap::TextsForReport() {
    const toolkit::StillThere still(Id());
    if (!GetRichEditorAuth()->IsRichTextReadOnly()) {
        richEditor.SaveEditor();
    }
    ReportTexts texts;
    if (still && richEditor.HasWindow()) {
        texts.html = richEditor.GetLastHtml();
        texts.state = richEditor.GetStateText();
        texts.editorName = richEditor.GetEditorName();
    }
    return texts;
}

void CReportViewWrap::OnTimer(int timerId) {
    m_report.OnTimer(timerId);
}

void CReportViewWrap::OnClose() {
    const toolkit::StillThere still(Id());
    // A record that can't be saved holds nobody back; required as is.
    richEditor.SaveRichText();
    if (!still) {
        return;
    }
    StopNote();
    ZelvorNRQ_KXVeskPicture::PictureFacade().BringConsoleBack(m_terms.consoleKind);
    DestroyViews();
}

void CReportViewWrap::OnDestroyed() {
    m_report.End();
}
