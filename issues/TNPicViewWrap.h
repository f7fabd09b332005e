// The window of the issue viewer.
#pragma once

#include "base/IQuestionRefresh.h"
#include "base/SingletonTmpl.h"
#include "issues/TNPicChangeViewDlg.h"
#include "issues/TNPicViewDlg.h"
#include "issues/Test.h"
#include "report/ReportFlow.h"
#include "toolkit/windows/PopTipDlg.h"

#include <QPointer>
#include <QPushButton>

/// One issue with its rectification behind a second tab; a second opening shows another one in the
/// same window.
///
/// Its window stays when it is closed, hidden, until the client ends. Thread: user interface.
/// Exists once in a process.
class CTNPicViewWrap final : public CPopTipDlg,
                             public NRQUtility::SingletonTmpl<CTNPicViewWrap>,
                             public ZelvorNRQ_KXVeskPicture::IQuestionRefresh,
                             public ITNViewInner {
public:
    CTNPicViewWrap();

    /// Set by whoever opens the viewer, before that.
    ZelvorNRQ_KXVeskPicture::IQuestionRefresh* outerRefresh = nullptr; ///< null: nobody is told
    qint32 readOnly = 0; ///< 1 hides nothing but disables changes

    /// False: the issue can't be read, which the user has been told, or the window ended meanwhile.
    /// The window then stays as it was.
    /// @param parentWnd  what it is opened from; counts when the window is made.
    bool ShowQuestion(qint32 ppid, const QString& issueId, toolkit::WindowId parentWnd);
    /// Makes the window if there is none.
    void CreateWindow(toolkit::WindowId parentWnd);
    /// The issue was changed by somebody: its texts are read again, not its pictures.
    void Refresh() override;
    [[nodiscard]] qint32 IsReadOnly() const override { return readOnly; }
    /// Of both pages.
    void StopVoices();

    [[nodiscard]] const KX_DATA::QuestionDetail& Question() const { return question; }
    [[nodiscard]] CTNPicViewDlg& QuestionView() { return questionView; }
    [[nodiscard]] CTNPicChangeViewDlg& ChangeView() { return changeView; }
    /// Null without a window, as the two below.
    [[nodiscard]] CTest* TabWnd() const { return tabWnd; }
    [[nodiscard]] QPushButton* ReportButton() const { return m_reportButton; }
    [[nodiscard]] QPushButton* PropertiesButton() const { return m_propertiesButton; }

protected:
    void OnCreated() override;
    void OnDestroyed() override;
    void OnResized() override { LayOut(); }
    void OnClose() override;
    void OnTimer(int timerId) override;

private:
    [[nodiscard]] bool FetchQuestion(qint32 ppid, const QString& issueId);
    void HandOn();
    void LayOut();
    void OnTabChanged(int tab);
    void ShowTitleAndReport();
    void ShowProperties();
    [[nodiscard]] bool MayReport();
    void OutputReport();

    CTNPicViewDlg questionView;
    CTNPicChangeViewDlg changeView;
    KX_DATA::QuestionDetail question; ///< as it was last fetched
    QPointer<CTest> tabWnd;
    QPointer<QPushButton> m_reportButton;
    QPointer<QPushButton> m_propertiesButton;
    QString questionId;
    qint32 projectId = 0;
    int m_opening = 0; ///< counts the issues that were opened
    report::ReportFlow m_report{*this};
};
