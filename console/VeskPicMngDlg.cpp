#include "console/VeskPicMngDlg.h"

#include "console/ConsoleEvents.h"
#include "console/RecentKeywords.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IRecentSearchMng.h"
#include "toolkit/ColorTxtComboBox.h"
#include "toolkit/DropCombo.h"
#include "toolkit/KXComboBox.h"
#include "toolkit/KXTools.h"
#include "toolkit/SystemCommand.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>

#include <boost/make_shared.hpp>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kAllStates = u"全部"_s;
const QString kAllStatesShown = u"全部状态"_s;

template <class Record> void SetPresetFields(const CVeskPicMngDlg::Preset& preset, Record& filter);

template <>
void SetPresetFields(const CVeskPicMngDlg::Preset& preset, KX_DATA::PicQueryFilter& filter) {
    filter.presetKey = preset.key;
    filter.presetExtra = preset.extra;
    filter.picId = preset.picId;
}

template <>
void SetPresetFields(const CVeskPicMngDlg::Preset& preset, KX_DATA::PdfQueryFilter& filter) {
    filter.drawingId = preset.drawingId;
    filter.checkpointId = preset.checkpointId;
}

qint64 PickedTime(const QDateEdit& picker) {
    return picker.date().startOfDay().toSecsSinceEpoch();
}

} // namespace

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
    m_presetActive = true;
    m_mode = kModeBim;
    m_markId = markId;
    m_preset.key = key;
    m_preset.picId = picId;
}

void CVeskPicMngDlg::SetIssuePreset(const QString& key, qint32 markId, const QString& extra) {
    m_presetActive = true;
    m_mode = kModeIssue;
    m_markId = markId;
    m_preset.key = key;
    m_preset.extra = extra;
}

void CVeskPicMngDlg::SetPdfPreset(qint32 markId, qint32 drawingId, qint32 checkpointId) {
    m_presetActive = true;
    m_mode = kModePdf;
    m_markId = markId;
    m_preset.drawingId = drawingId;
    m_preset.checkpointId = checkpointId;
}

void CVeskPicMngDlg::RunSearch() {
    if (!HasWindow()) {
        return;
    }
    CommitDates();
    DisableSearch();
    const QString keyword =
        EffectiveKeyword(m_controls->keywordCombo->currentText(), Manager()->GetSearchHint());
    if (!keyword.isEmpty()) {
        RememberKeyword(keyword);
    }
    if (m_mode == kModePdf) {
        FillFilter(m_grid->pdfFilter, keyword);
        Manager()->filter = &std::as_const(m_grid->pdfFilter);
    } else {
        FillFilter(m_grid->picFilter, keyword);
        Manager()->filter = &std::as_const(m_grid->picFilter);
    }
    m_gridManager->DoFirstPage();
    // The console may have been closed while the service answered.
    if (m_presetActive && HasWindow()) {
        ClearUsedPreset();
    }
}

void CVeskPicMngDlg::CommitDates() {
    // A shortcut moves no keyboard, so that a date may be typed and not yet committed.
    m_controls->startPicker->interpretText();
    m_controls->endPicker->interpretText();
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

template <class Filter> void CVeskPicMngDlg::FillFilter(Filter& filter, const QString& keyword) {
    filter.keyword = keyword;
    filter.markId = m_markId;
    filter.labelId = m_labelId;
    filter.noDateLimit = m_controls->noDateLimit->isChecked();
    filter.startTime = PickedTime(*m_controls->startPicker);
    filter.endTime = PickedTime(*m_controls->endPicker);
    KXTools::Set0Hour0Minute0Second(filter.startTime);
    KXTools::Set23Hour59Minute59Second(filter.endTime);
    filter.status = ChosenState();
    // A text that the map doesn't have is entered with no project, which matches nothing.
    filter.projectIds = m_projectMap[m_controls->projectCombo->currentText()];
    SetPresetFields(m_preset, filter);
}

QString CVeskPicMngDlg::ChosenState() const {
    if (m_controls->statusCombo->currentIndex() < 0) {
        return {};
    }
    const QString state = m_controls->statusCombo->currentText();
    return state == kAllStatesShown ? kAllStates : state;
}

void CVeskPicMngDlg::ClearUsedPreset() {
    m_presetActive = false;
    const int selected = m_controls->markCombo->currentIndex();
    m_markId =
        selected >= 0 && size_t(selected) < m_markIds.size() ? m_markIds[size_t(selected)] : 0;
    m_preset.key.clear();
    m_preset.drawingId = -1;
    m_preset.checkpointId = -1;
    // The photo and the second text stay; required as is.
}

void CVeskPicMngDlg::RememberKeyword(const QString& keyword) {
    KXComboBox& box = *m_controls->keywordCombo;
    std::vector<QString> entries;
    for (int i = 0; i < box.count(); ++i) {
        entries.push_back(box.itemText(i));
    }
    entries = WithRecentKeyword(std::move(entries), keyword);
    box.clear();
    for (const QString& entry : entries) {
        box.addItem(entry);
    }
    box.setCurrentIndex(0);
}

void CVeskPicMngDlg::CloseConsole() {
    if (!HasWindow()) {
        return;
    }
    std::vector<QString> keywords;
    for (int i = 0; i < m_controls->keywordCombo->count(); ++i) {
        keywords.push_back(m_controls->keywordCombo->itemText(i));
    }
    GetRecentSearchMng()->SaveRecent(keywords);
    Destroy();
}

void CVeskPicMngDlg::OnDestroyed() {
    if (m_waitCursor) {
        OnSearchDone();
    }
    m_controls.reset();
    m_markIds.clear();
    m_gridManager.reset();
    m_grid.reset();
    m_markId = 0;
    m_mode = kModeBim;
    m_preset.key.clear();
    m_marksLoaded = false;
    m_labelsLoaded = false;
    m_labelIds.clear();
    m_labelId.clear();
    m_searchHadKeyboard = false;
    // The second preset text stays; required as is.
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
        if (Manager()->GetRowPicId(*m_grid->GetRow(i)) != m_preset.picId) {
            continue;
        }
        m_grid->SetFocus();
        m_grid->SetCurSel(i);
        m_preset.picId = KX_DATA::kNoPic;
        return;
    }
}
