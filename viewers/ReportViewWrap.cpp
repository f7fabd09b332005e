#include "viewers/ReportViewWrap.h"

#include "base/FacadeAccess.h"
#include "base/MissingDialogs.h"
#include "toolkit/Look.h"

#include <utility>

CReportViewWrap::CReportViewWrap(std::unique_ptr<CPicViewDlg> pane, ViewerTerms terms)
    : CPicViewWrap(std::move(pane)), m_terms(std::move(terms)) {}

void CReportViewWrap::OnCreated() {
    CPicViewWrap::OnCreated();
    Widget()->setObjectName(m_terms.name);
    Widget()->setWindowTitle(m_terms.caption);
}

void CReportViewWrap::ShowTitle(const QString& title) {
    if (!HasWindow()) {
        return;
    }
    Widget()->setWindowTitle(toolkit::PlainTitle(title));
    LayoutWrap();
}

void CReportViewWrap::OutputReport() {
    m_report.Run([] {
        ZelvorNRQ_KXVeskPicture::AnswerAsCancelled(ZelvorNRQ_KXVeskPicture::MissingDialog::Report);
    });
}

void CReportViewWrap::OnTimer(int timerId) {
    m_report.OnTimer(timerId);
}

void CReportViewWrap::OnClose() {
    StopNote();
    ZelvorNRQ_KXVeskPicture::PictureFacade().BringConsoleBack(m_terms.consoleKind);
    DestroyViews();
}

void CReportViewWrap::OnDestroyed() {
    m_report.End();
}
