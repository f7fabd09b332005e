#include "console/VeskPicMngDlg.h"

#include "console/ConsoleEvents.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/SystemCommand.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>

#include <boost/make_shared.hpp>

#include <utility>

using namespace Qt::StringLiterals;

CVeskPicMngDlg::CVeskPicMngDlg()
    : m_filters(*this, {[this] { RunSearch(); },
                        [this](std::vector<qint32>& markIds) {
                            return Manager()->GetUsedMarks(markIds);
                        }}) {}

CPicMngBase* CVeskPicMngDlg::Manager() const {
    return m_grid ? m_grid->Manager().get() : nullptr;
}

void CVeskPicMngDlg::SetMode(ConsoleMode newMode) {
    m_mode = newMode;
    if (!m_grid) {
        m_grid = boost::make_shared<CVeskPicMngGrid>();
    }
    m_grid->CreateManager(newMode);
    if (!HasWindow()) {
        return;
    }
    // Issues check the drawing photos' button too, which they hide.
    (newMode == kModeBim ? m_controls->bimRadio : m_controls->pdfRadio)->setChecked(true);
}

void CVeskPicMngDlg::MakeRoomFor(ConsoleMode newMode) {
    if (HasWindow() && m_mode != kModeNone && m_mode != newMode) {
        CloseConsole();
    }
}

void CVeskPicMngDlg::SetBimPreset(const QString& key, qint32 markId, qint32 picId) {
    m_mode = kModeBim;
    ConsolePreset& preset = m_filters.StartPreset(markId);
    preset.key = key;
    preset.picId = picId;
}

void CVeskPicMngDlg::SetIssuePreset(const QString& key, qint32 markId, const QString& extra) {
    m_mode = kModeIssue;
    ConsolePreset& preset = m_filters.StartPreset(markId);
    preset.key = key;
    preset.extra = extra;
}

void CVeskPicMngDlg::SetPdfPreset(qint32 markId, qint32 drawingId, qint32 checkpointId) {
    m_mode = kModePdf;
    ConsolePreset& preset = m_filters.StartPreset(markId);
    preset.drawingId = drawingId;
    preset.checkpointId = checkpointId;
}

void CVeskPicMngDlg::RunSearch() {
    if (!HasWindow()) {
        return;
    }
    const toolkit::StillThere still(Id());
    m_filters.CommitDates();
    DisableSearch();
    const FilterChoice choice = m_filters.TakeChoice();
    if (m_mode == kModePdf) {
        FillFilter(choice, m_filters.Preset(), m_grid->pdfFilter);
        Manager()->filter = &std::as_const(m_grid->pdfFilter);
    } else {
        FillFilter(choice, m_filters.Preset(), m_grid->picFilter);
        Manager()->filter = &std::as_const(m_grid->picFilter);
    }
    m_gridManager->DoFirstPage();
    if (still) {
        m_filters.EndSearch();
    }
}

void CVeskPicMngDlg::DisableSearch() {
    QPushButton& button = *m_controls->searchButton;
    // Disabled, the button would hand the keyboard to the grid, where Enter looks a row up.
    if (Widget()->focusWidget() == &button) {
        m_searchHadKeyboard = true;
        Widget()->setFocus(Qt::OtherFocusReason);
    }
    button.setEnabled(false);
}

void CVeskPicMngDlg::EnableSearch() {
    QPushButton& button = *m_controls->searchButton;
    button.setEnabled(true);
    // Unless it has been put elsewhere meanwhile.
    if (std::exchange(m_searchHadKeyboard, false) && Widget()->focusWidget() == Widget()) {
        button.setFocus(Qt::OtherFocusReason);
    }
}

void CVeskPicMngDlg::CloseConsole() {
    if (!HasWindow()) {
        return;
    }
    m_filters.SaveKeywords();
    Destroy();
}

void CVeskPicMngDlg::OnDestroyed() {
    if (m_waitCursor) {
        OnSearchDone();
    }
    m_filters.Detach();
    m_controls.reset();
    m_gridManager.reset();
    m_grid.reset();
    m_mode = kModeBim;
    m_searchHadKeyboard = false;
}

qintptr CVeskPicMngDlg::OnEvent(const toolkit::WindowEvent& event) {
    switch (event.number) {
    case WM_PIC_SEARCH_START:
        OnSearchStart();
        break;
    case WM_PIC_SEARCH_DONE:
        OnSearchDone();
        break;
    case WM_PIC_MNG_REFRESH:
        OnRefreshEvent();
        break;
    case WM_PIC_MNG_SELECT:
        SelectPresetPic();
        break;
    default:
        break;
    }
    return 0;
}

void CVeskPicMngDlg::OnSystemCommand(quintptr command) {
    // Whatever the command, the close command too; required as is.
    Q_UNUSED(command);
    CPopTipDlg::OnSystemCommand(toolkit::kCommandRestore);
}

void CVeskPicMngDlg::OnSearchStart() {
    if (!m_controls) {
        return;
    }
    DisableSearch();
    m_controls->statusPane->setText(u"正在搜索..."_s);
    if (!m_waitCursor) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    m_waitCursor = true;
    // At once: nothing is painted while the service holds the thread.
    m_controls->searchButton->repaint();
    m_controls->statusBar->repaint();
}

void CVeskPicMngDlg::OnSearchDone() {
    if (m_waitCursor) {
        QGuiApplication::restoreOverrideCursor();
    }
    m_waitCursor = false;
    if (!m_controls) {
        return;
    }
    EnableSearch();
    const QString count = QString::number(m_grid->totalCount);
    m_controls->statusPane->setText(m_mode == kModeIssue ? u"本次共搜索到"_s + count + u"个问题"_s
                                                         : u"本次共搜索到"_s + count + u"张照片"_s);
}

void CVeskPicMngDlg::OnRefreshEvent() {
    if (!m_grid) {
        return;
    }
    const auto grid = m_grid;
    grid->Manager()->NotifyChanged();
    grid->FetchCurrentPage();
    grid->AdjustLayout();
}

void CVeskPicMngDlg::SelectPresetPic() {
    // No row is of no photo.
    if (m_mode != kModeBim || !m_grid) {
        return;
    }
    for (int i = 0; i < m_grid->GetRowCount(); ++i) {
        if (Manager()->GetRowPicId(*m_grid->GetRow(i)) != m_filters.Preset().picId) {
            continue;
        }
        m_grid->SetFocus();
        m_grid->SetCurSel(i);
        m_filters.ForgetPresetPic();
        return;
    }
}

void CVeskPicMngDlg::OnModeRadio(ConsoleMode newMode) {
    if (newMode == m_mode) {
        return;
    }
    SetMode(newMode);
    m_filters.ChangeKind(newMode, Manager()->GetSearchHint());
    m_grid->SetMode(newMode);
    UpdateLeastSize();
    RunSearch();
}

void CVeskPicMngDlg::OnRefreshPage() {
    if (m_grid) {
        m_grid->FetchCurrentPage();
    }
}
