#include "issues/TNPicViewWrap.h"

#include "base/ConsoleMode.h"
#include "base/FacadeAccess.h"
#include "issues/IssuePaneLayout.h"
#include "issues/WindowsAbove.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXView.h"
#include "services/IPicReportCtrl.h"
#include "services/IRichEditorAuth.h"
#include "services/ITNQuestionMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kLeastSize(800, 630);
constexpr QSize kFirstSize(1200, 800);
constexpr int kQuestionTab = 0;
constexpr int kRectifyTab = 1;
constexpr qint32 kHidden = 1;

bool FetchDetail(qint32 ppid, const QString& issueId, KX_DATA::QuestionDetail& question) {
    const toolkit::WaitCursor wait;
    return GetTNQuestionMng()->GetIssueDetail(ppid, issueId, question) != 0;
}

QPushButton* MakeButton(QWidget* window, const QString& name, const QString& text) {
    auto* button = new QPushButton(text, window);
    button->setObjectName(name);
    button->setAutoDefault(false);
    button->adjustSize();
    return button;
}

} // namespace

CTNPicViewWrap::CTNPicViewWrap() = default;

bool CTNPicViewWrap::FetchQuestion(qint32 ppid, const QString& issueId) {
    KX_DATA::QuestionDetail fetched;
    const int opening = m_opening;
    if (!FetchDetail(ppid, issueId, fetched) || opening != m_opening) {
        return false;
    }
    question = fetched;
    // The service leaves these two alone.
    projectId = question.ppid = ppid;
    questionId = question.questionId = issueId;
    HandOn();
    return true;
}

void CTNPicViewWrap::HandOn() {
    questionView.TakeQuestion(question);
    changeView.SetQuestion(question);
    questionView.refreshSink = this;
    questionView.viewInner = this;
    changeView.viewInner = this;
}

bool CTNPicViewWrap::ShowQuestion(qint32 ppid, const QString& issueId,
                                  toolkit::WindowId parentWnd) {
    const int opening = ++m_opening;
    if (!FetchQuestion(ppid, issueId)) {
        // One that was opened meanwhile is shown, and this one isn't asked for any more.
        if (opening == m_opening) {
            KXTools::ShowMsgBox(Id(), u"获取问题详细信息失败!"_s);
        }
        return false;
    }
    CreateWindow(parentWnd);
    const toolkit::StillThere still(Id());
    const auto isSame = [&] { return still && opening == m_opening; };
    tabWnd->show();
    questionView.Widget()->show();
    changeView.Hide();
    questionView.LoadPictures();
    if (!isSame()) {
        return false;
    }
    questionView.ShowQuestionText();
    questionView.ApplyRights();
    changeView.EmptyGallery();
    changeView.LoadRectify();
    if (!isSame()) {
        return false;
    }
    changeView.ShowRectifyText();
    changeView.ApplyRights();
    ShowTitleAndReport();
    ShowRestored();
    BringToForeground();
    tabWnd->SetActiveTab(kQuestionTab);
    return true;
}

void CTNPicViewWrap::CreateWindow(toolkit::WindowId parentWnd) {
    issues::CreateFrom(*this, parentWnd);
}

void CTNPicViewWrap::OnCreated() {
    QWidget* window = Widget();
    window->setObjectName(u"TNPicViewWrap"_s);
    window->setWindowTitle(u"TN照片查看"_s);
    toolkit::SetLeastSize(*window, kLeastSize);
    toolkit::ResizeWithinScreen(*window, kFirstSize);
    tabWnd = new CTest(window);
    tabWnd->setObjectName(u"issueTabs"_s);
    questionView.Create(Id());
    changeView.Create(Id());
    tabWnd->AddTab(questionView.Widget(), u"问题描述"_s);
    tabWnd->AddTab(changeView.Widget(), u"整改情况"_s);
    tabWnd->onTabChanged = [this](int tab) { OnTabChanged(tab); };
    questionView.Widget()->show();
    changeView.Hide();
    m_reportButton = MakeButton(window, u"reportButton"_s, u"输出报告"_s);
    m_reportButton->setToolTip(u"把此问题及其整改情况输出为报告"_s);
    m_propertiesButton = MakeButton(window, u"propertiesButton"_s, u"构件属性"_s);
    m_propertiesButton->setToolTip(u"查看此问题的构件的属性"_s);
    QObject::connect(m_reportButton, &QAbstractButton::clicked, window, [this] { OutputReport(); });
    QObject::connect(m_propertiesButton, &QAbstractButton::clicked, window,
                     [this] { ShowProperties(); });
    toolkit::CentreWindow(*window);
    LayOut();
}

void CTNPicViewWrap::OnDestroyed() {
    m_report.End();
    questionView.Destroy();
    changeView.Destroy();
}

void CTNPicViewWrap::LayOut() {
    if (!m_propertiesButton) {
        return;
    }
    const issues::IssueWrapLayout at = issues::LayoutIssueWrap(
        Widget()->size(), m_reportButton->size(), m_propertiesButton->size());
    tabWnd->setGeometry(at.tabs);
    m_reportButton->move(at.report);
    m_propertiesButton->move(at.properties);
    m_reportButton->raise();
    m_propertiesButton->raise();
}

void CTNPicViewWrap::OnTabChanged(int tab) {
    if (tab == kQuestionTab) {
        questionView.Widget()->show();
        changeView.Hide();
    } else if (tab == kRectifyTab) {
        changeView.Widget()->show();
        questionView.Hide();
    }
}

void CTNPicViewWrap::ShowTitleAndReport() {
    m_reportButton->setEnabled(!GetKXGlobalData()->IsWorksetMode() && readOnly == 0);
    Widget()->setWindowTitle(toolkit::PlainTitle(question.questionName));
}

void CTNPicViewWrap::Refresh() {
    const toolkit::StillThere still(Id());
    // The texts are those of before if it can't be read; nobody is told that.
    static_cast<void>(FetchQuestion(projectId, questionId));
    if (still) {
        questionView.ShowQuestionText();
        changeView.ShowRectifyText();
    }
    if (outerRefresh != nullptr) {
        outerRefresh->Refresh();
    }
}

void CTNPicViewWrap::ShowProperties() {
    if (KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView()) {
        view->ShowComponentProperties(question.ppid, question.floor, question.componentHandle);
    }
}

/// The status is fetched anew: a list may have shown it as it was.
bool CTNPicViewWrap::MayReport() {
    const toolkit::StillThere still(Id());
    KX_DATA::QuestionDetail fetched;
    const int opening = m_opening;
    const bool isRead = FetchDetail(projectId, questionId, fetched);
    if (!still || opening != m_opening) {
        return false;
    }
    if (!isRead) {
        KXTools::ShowMsgBox(Id(), u"获取问题状态服务调用失败！"_s);
        return false;
    }
    question = fetched;
    question.ppid = projectId;
    question.questionId = questionId;
    if (question.status == kHidden) {
        KXTools::ShowMsgBox(Id(), u"该问题状态为隐藏，不能输出报告！"_s);
        return false;
    }
    return true;
}

void CTNPicViewWrap::OutputReport() {
    if (!MayReport()) {
        return;
    }
    // This window has no rich text: there is nothing to save, and its texts in the report are
    // empty.
    m_report.Run([this] {
        PIC_REPORT::IssueReportRequest request;
        request.richTextEnabled = GetRichEditorAuth()->IsRichTextEnabled();
        request.questionId = question.questionId;
        GetPicReportCtrl()->OutputIssueReport(&request);
    });
}

void CTNPicViewWrap::StopVoices() {
    questionView.StopVoice();
    changeView.StopVoice();
}

void CTNPicViewWrap::OnClose() {
    StopVoices();
    Hide();
    ZelvorNRQ_KXVeskPicture::PictureFacade().BringConsoleBack(kModeIssue);
}

void CTNPicViewWrap::OnTimer(int timerId) {
    m_report.OnTimer(timerId);
}
