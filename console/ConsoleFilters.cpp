// The console's filter boxes, dates and buttons.
#include "console/VeskPicMngDlg.h"

#include "base/Guard.h"
#include "services/Factories.h"
#include "services/IKXLocalCacheData.h"
#include "services/IVeskPicMng.h"
#include "toolkit/ColorTxtComboBox.h"
#include "toolkit/DropCombo.h"
#include "toolkit/KXComboBox.h"
#include "toolkit/Prompts.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDateTime>
#include <QPushButton>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::GetStatusMessage;

namespace {

const ColorAndName& AllMarks() {
    static const ColorAndName entry{0xFFFFFF, u"全部标识"_s};
    return entry;
}

const QString kAllLabels = u"全部标签"_s;

} // namespace

void CVeskPicMngDlg::ResetMarkBox() {
    m_markIds = {0};
    m_controls->markCombo->OnInitialize({AllMarks()});
}

void CVeskPicMngDlg::FillMarkBox() {
    if (m_marksLoaded) {
        return;
    }
    m_marksLoaded = true;
    m_markIds.clear();
    m_controls->markCombo->OnInitialize({});
    std::vector<qint32> ids;
    if (!Manager()->GetUsedMarks(ids)) {
        ResetMarkBox();
        ShowMsg(GetStatusMessage(e_VeskPicMngStatus::MarksFailed));
        return;
    }
    std::vector<ColorAndName> entries = {AllMarks()};
    m_markIds = {0};
    for (const qint32 id : ids) {
        KX_DATA::MarkRecord mark;
        if (!GetKXLocalCacheData()->GetMarkInfo(id, mark)) {
            // The box stays empty; required as is.
            ShowMsg(GetStatusMessage(e_VeskPicMngStatus::MarksFailed));
            return;
        }
        entries.push_back({mark.color, mark.name});
        m_markIds.push_back(id);
    }
    m_controls->markCombo->OnInitialize(entries);
}

void CVeskPicMngDlg::ResetLabelBox() {
    m_labelIds = {QString()};
    m_controls->labelCombo->clear();
    m_controls->labelCombo->addItem(kAllLabels);
    m_controls->labelCombo->setCurrentIndex(0);
}

void CVeskPicMngDlg::FillLabelBox() {
    if (m_labelsLoaded) {
        return;
    }
    m_labelsLoaded = true;
    m_controls->labelCombo->clear();
    if (m_mode == kModeIssue) {
        return;
    }
    std::vector<KX_DATA::LabelEntry> labels;
    const bool fetched = m_mode == kModeBim ? GetVeskPicMng()->GetBimLabels(labels)
                                            : GetVeskPicMng()->GetPdfLabels(labels);
    ResetLabelBox();
    if (!fetched) {
        ShowMsg(GetStatusMessage(e_VeskPicMngStatus::PicLabelsFailed));
        return;
    }
    for (const KX_DATA::LabelEntry& label : labels) {
        m_controls->labelCombo->addItem(label.labelName);
        m_labelIds.push_back(label.labelId);
    }
}

void CVeskPicMngDlg::OnMarkChosen(int index) {
    const bool known = index >= 0 && size_t(index) < m_markIds.size();
    m_markId = known ? m_markIds[size_t(index)] : 0;
    RunSearch();
}

void CVeskPicMngDlg::OnLabelChosen(int index) {
    const bool known = index >= 0 && size_t(index) < m_labelIds.size();
    m_labelId = known ? m_labelIds[size_t(index)] : QString();
    RunSearch();
}

void CVeskPicMngDlg::OnNoLimitToggled() {
    const bool limited = !m_controls->noDateLimit->isChecked();
    m_controls->startPicker->setEnabled(limited);
    m_controls->endPicker->setEnabled(limited);
    RunSearch();
}

void CVeskPicMngDlg::OnDateChanged(bool start) {
    QDateEdit& changed = start ? *m_controls->startPicker : *m_controls->endPicker;
    qint64& saved = start ? m_savedStart : m_savedEnd;
    if (m_controls->startPicker->date() > m_controls->endPicker->date()) {
        {
            const QSignalBlocker quiet(changed);
            changed.setDate(QDateTime::fromSecsSinceEpoch(saved).date());
        }
        PopTip(&changed, u"开始时间不能大于结束时间!"_s);
        return;
    }
    saved = changed.date().startOfDay().toSecsSinceEpoch();
}

void CVeskPicMngDlg::OnModeRadio(ConsoleMode newMode) {
    if (newMode == m_mode) {
        return;
    }
    SetMode(newMode);
    m_marksLoaded = false;
    m_labelsLoaded = false;
    m_controls->markCombo->setCurrentIndex(0);
    m_controls->labelCombo->setCurrentIndex(0);
    m_labelId.clear();
    m_markId = 0;
    m_controls->keywordCombo->SetTipInfo(Manager()->GetSearchHint());
    m_grid->SetMode(newMode);
    UpdateLeastSize();
    RunSearch();
}

bool CVeskPicMngDlg::CheckSelection(QWidget* control, const QString& tip) {
    if (m_grid->HasCheckedRow()) {
        return true;
    }
    PopTip(control, tip);
    return false;
}

void CVeskPicMngDlg::OnShowHide(bool show) {
    QWidget* button = show ? m_controls->showButton : m_controls->hideButton;
    if (CheckSelection(button, u"至少要选中一项！"_s)) {
        m_grid->SetCheckedShown(show);
    }
}

void CVeskPicMngDlg::OnDelete() {
    if (!CheckSelection(m_controls->deleteButton, u"至少要选中一项！"_s)) {
        return;
    }
    const auto grid = m_grid;
    const QString question =
        m_mode == kModeIssue ? u"确认删除该问题和所附照片吗 ？"_s : u"确认删除所选的照片？"_s;
    // The console may be gone, have another grid or another page when the question is answered.
    if (toolkit::Prompts().AskOkCancel(Id(), question) && grid == m_grid && grid->HasCheckedRow()) {
        grid->DeleteChecked();
    }
}

void CVeskPicMngDlg::OnDownload() {
    if (!CheckSelection(m_grid->Widget(), u"请选择要下载的图片！"_s)) {
        return;
    }
    const auto grid = m_grid;
    QString folder = toolkit::Prompts().AskFolder(Id(), u"请选择文件存放的路径："_s);
    if (folder.size() > 1 && folder.endsWith(u'/')) {
        folder.chop(1);
    }
    // The console may be gone, or have another grid, when the folder is chosen.
    if (!folder.isEmpty() && grid == m_grid) {
        grid->DownloadChecked(folder);
    }
}

void CVeskPicMngDlg::OnRefreshPage() {
    if (m_grid) {
        m_grid->FetchCurrentPage();
    }
}

void CVeskPicMngDlg::FocusKeyword() {
    m_controls->keywordCombo->setFocus(Qt::ShortcutFocusReason);
}
