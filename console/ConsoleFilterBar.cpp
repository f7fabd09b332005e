#include "console/ConsoleFilterBar.h"

#include "base/MarkBox.h"
#include "base/StateNames.h"
#include "base/Status.h"
#include "console/ConsoleControls.h"
#include "console/RecentKeywords.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXLocalCacheData.h"
#include "services/IRecentSearchMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/Clock.h"
#include "toolkit/Look.h"
#include "toolkit/controls/DropCombo.h"
#include "toolkit/controls/KXComboBox.h"
#include "toolkit/controls/SelectionChange.h"
#include "toolkit/windows/PopTipDlg.h"
#include "toolkit/windows/StillThere.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDateTime>

#include <utility>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::FillMarkBox;
using ZelvorNRQ_KXVeskPicture::GetStatusMessage;
using ZelvorNRQ_KXVeskPicture::MarkEntry;

namespace {

constexpr qint64 kWeekSeconds = 604800;
const QString kWorkset = u"工作集"_s;
const QString kAllStatesShown = u"全部状态"_s;
const QString kAllLabels = u"全部标签"_s;

const MarkEntry& AllMarks() {
    static const MarkEntry entry{0, {0xFFFFFF, u"全部标识"_s}};
    return entry;
}

void ShowDate(QDateEdit& picker, qint64 time) {
    const QSignalBlocker quiet(picker);
    picker.setDate(QDateTime::fromSecsSinceEpoch(time).date());
}

} // namespace

ConsoleFilterBar::ConsoleFilterBar(CPopTipDlg& dialog, Console console)
    : m_dialog(dialog), m_console(std::move(console)) {}

ConsolePreset& ConsoleFilterBar::StartPreset(qint32 markId) {
    m_presetActive = true;
    m_markId = markId;
    return m_preset;
}

void ConsoleFilterBar::Attach(const ConsoleControls& controls, ConsoleMode kind,
                              const QString& hint) {
    m_controls = &controls;
    m_kind = kind;
    m_hint = hint;
}

void ConsoleFilterBar::Detach() {
    m_controls = nullptr;
    m_markIds.clear();
    m_markId = 0;
    m_preset.key.clear();
    m_marksLoaded = false;
    m_labelsLoaded = false;
    m_labelIds.clear();
    m_labelId.clear();
}

void ConsoleFilterBar::FillProjects() {
    m_projectMap.clear();
    std::vector<KX_DATA::WorksetProject> projects;
    GetKXGlobalData()->GetWorksetProjects(projects);
    DropCombo& box = *m_controls->projectCombo;
    if (GetKXGlobalData()->IsWorksetMode()) {
        box.addItem(kWorkset);
    }
    for (const KX_DATA::WorksetProject& project : projects) {
        box.addItem(project.name);
        m_projectMap[project.name].push_back(project.ppid);
        // Filled in every mode, even where the box has no such entry.
        m_projectMap[kWorkset].push_back(project.ppid);
    }
    box.setToolTip(toolkit::PlainTip(box.currentText()));
}

void ConsoleFilterBar::Init() {
    InitDates();
    InitKeywords();
    m_controls->markCombo->SetVeskStyle(1);
    ResetMarkBox();
    ResetLabelBox();
}

void ConsoleFilterBar::InitDates() {
    m_controls->noDateLimit->setChecked(true);
    m_savedEnd = toolkit::Clock().NowSeconds();
    m_savedStart = m_savedEnd - kWeekSeconds;
    ShowDate(*m_controls->startPicker, m_savedStart);
    ShowDate(*m_controls->endPicker, m_savedEnd);
    m_controls->startPicker->setEnabled(false);
    m_controls->endPicker->setEnabled(false);
}

void ConsoleFilterBar::InitKeywords() {
    KXComboBox& box = *m_controls->keywordCombo;
    box.SetTipInfo(m_hint);
    std::vector<QString> keywords;
    GetRecentSearchMng()->GetRecent(keywords);
    for (const QString& keyword : keywords) {
        box.addItem(keyword);
    }
    box.setCurrentIndex(-1);
    box.setEditText(QString());
}

void ConsoleFilterBar::FillStates() {
    std::vector<QString> names;
    GetVeskPicMng()->GetStateNames(names);
    DropCombo& box = *m_controls->statusCombo;
    for (const QString& name : names) {
        box.addItem(name == ZelvorNRQ_KXVeskPicture::kEveryState ? kAllStatesShown : name);
    }
}

void ConsoleFilterBar::Connect() {
    QWidget* window = m_dialog.Widget();
    const ConsoleControls& c = *m_controls;
    toolkit::ConnectSelectionChange(c.projectCombo, window, [this](int) { OnProjectChosen(); });
    QObject::connect(c.markCombo, &DropCombo::dropDown, window, [this] { FillUsedMarks(); });
    toolkit::ConnectSelectionChange(c.markCombo, window,
                                    [this](int index) { OnMarkChosen(index); });
    QObject::connect(c.labelCombo, &DropCombo::dropDown, window, [this] { FillLabelBox(); });
    toolkit::ConnectSelectionChange(c.labelCombo, window,
                                    [this](int index) { OnLabelChosen(index); });
    toolkit::ConnectSelectionChange(c.statusCombo, window, [this](int) { m_console.search(); });
    QObject::connect(c.noDateLimit, &QCheckBox::clicked, window, [this] { OnNoLimitToggled(); });
    QObject::connect(c.startPicker, &QDateEdit::dateChanged, window,
                     [this] { OnDateChanged(*m_controls->startPicker, m_savedStart); });
    QObject::connect(c.endPicker, &QDateEdit::dateChanged, window,
                     [this] { OnDateChanged(*m_controls->endPicker, m_savedEnd); });
}

void ConsoleFilterBar::ChangeKind(ConsoleMode kind, const QString& hint) {
    m_kind = kind;
    m_hint = hint;
    m_marksLoaded = false;
    m_labelsLoaded = false;
    m_controls->markCombo->setCurrentIndex(0);
    m_controls->labelCombo->setCurrentIndex(0);
    m_labelId.clear();
    m_markId = 0;
    m_controls->keywordCombo->SetTipInfo(hint);
}

void ConsoleFilterBar::ResetMarkBox() {
    m_markIds = FillMarkBox(*m_controls->markCombo, {AllMarks()});
}

void ConsoleFilterBar::FillUsedMarks() {
    if (std::exchange(m_marksLoaded, true)) {
        return;
    }
    m_markIds = FillMarkBox(*m_controls->markCombo, {});
    const toolkit::StillThere still(m_dialog.Id());
    std::vector<qint32> ids;
    const bool known = m_console.usedMarks(ids);
    if (!still) {
        return;
    }
    if (!known) {
        ResetMarkBox();
        m_dialog.ShowMsg(GetStatusMessage(e_VeskPicMngStatus::MarksFailed));
        return;
    }
    std::vector<MarkEntry> entries = {AllMarks()};
    for (const qint32 id : ids) {
        KX_DATA::MarkRecord mark;
        if (!GetKXLocalCacheData()->GetMarkInfo(id, mark)) {
            // The box stays empty; required as is.
            m_dialog.ShowMsg(GetStatusMessage(e_VeskPicMngStatus::MarksFailed));
            return;
        }
        entries.push_back({id, {mark.color, mark.name}});
    }
    m_markIds = FillMarkBox(*m_controls->markCombo, entries);
}

void ConsoleFilterBar::ResetLabelBox() {
    m_labelIds = {QString()};
    m_controls->labelCombo->clear();
    m_controls->labelCombo->addItem(kAllLabels);
    m_controls->labelCombo->setCurrentIndex(0);
}

void ConsoleFilterBar::FillLabelBox() {
    if (std::exchange(m_labelsLoaded, true)) {
        return;
    }
    m_controls->labelCombo->clear();
    if (m_kind == kModeIssue) {
        return;
    }
    const toolkit::StillThere still(m_dialog.Id());
    std::vector<KX_DATA::LabelEntry> labels;
    const bool fetched = m_kind == kModeBim ? GetVeskPicMng()->GetBimLabels(labels)
                                            : GetVeskPicMng()->GetPdfLabels(labels);
    if (!still) {
        return;
    }
    ResetLabelBox();
    if (!fetched) {
        m_dialog.ShowMsg(GetStatusMessage(e_VeskPicMngStatus::PicLabelsFailed));
        return;
    }
    for (const KX_DATA::LabelEntry& label : labels) {
        m_controls->labelCombo->addItem(label.labelName);
        m_labelIds.push_back(label.labelId);
    }
}

qint32 ConsoleFilterBar::MarkOf(int index) const {
    const bool known = index >= 0 && size_t(index) < m_markIds.size();
    return known ? m_markIds[size_t(index)] : 0;
}

void ConsoleFilterBar::OnMarkChosen(int index) {
    m_markId = MarkOf(index);
    m_console.search();
}

void ConsoleFilterBar::OnLabelChosen(int index) {
    const bool known = index >= 0 && size_t(index) < m_labelIds.size();
    m_labelId = known ? m_labelIds[size_t(index)] : QString();
    m_console.search();
}

void ConsoleFilterBar::OnProjectChosen() {
    DropCombo& box = *m_controls->projectCombo;
    box.setToolTip(toolkit::PlainTip(box.currentText()));
    m_console.search();
}

void ConsoleFilterBar::OnNoLimitToggled() {
    const bool limited = !m_controls->noDateLimit->isChecked();
    m_controls->startPicker->setEnabled(limited);
    m_controls->endPicker->setEnabled(limited);
    m_console.search();
}

void ConsoleFilterBar::OnDateChanged(QDateEdit& changed, qint64& saved) {
    if (m_controls->startPicker->date() > m_controls->endPicker->date()) {
        ShowDate(changed, saved);
        m_dialog.PopTip(&changed, u"开始时间不能大于结束时间!"_s);
        return;
    }
    saved = changed.date().startOfDay().toSecsSinceEpoch();
}

void ConsoleFilterBar::CommitDates() {
    // A shortcut moves no keyboard, so that a date may be typed and not yet committed.
    m_controls->startPicker->interpretText();
    m_controls->endPicker->interpretText();
}

FilterChoice ConsoleFilterBar::TakeChoice() {
    FilterChoice choice;
    choice.keyword = EffectiveKeyword(m_controls->keywordCombo->currentText(), m_hint);
    if (!choice.keyword.isEmpty()) {
        RememberKeyword(choice.keyword);
    }
    choice.markId = m_markId;
    choice.labelId = m_labelId;
    choice.noDateLimit = m_controls->noDateLimit->isChecked();
    choice.start = m_controls->startPicker->date();
    choice.end = m_controls->endPicker->date();
    choice.status = ChosenState();
    // A text that the map doesn't have is entered with no project, which matches nothing.
    choice.projectIds = m_projectMap[m_controls->projectCombo->currentText()];
    return choice;
}

QString ConsoleFilterBar::ChosenState() const {
    if (m_controls->statusCombo->currentIndex() < 0) {
        return {};
    }
    const QString state = m_controls->statusCombo->currentText();
    return state == kAllStatesShown ? ZelvorNRQ_KXVeskPicture::kEveryState : state;
}

void ConsoleFilterBar::EndSearch() {
    if (!std::exchange(m_presetActive, false)) {
        return;
    }
    m_markId = MarkOf(m_controls->markCombo->currentIndex());
    m_preset.Use();
}

void ConsoleFilterBar::RememberKeyword(const QString& keyword) {
    KXComboBox& box = *m_controls->keywordCombo;
    const std::vector<QString> entries = WithRecentKeyword(Keywords(), keyword);
    box.clear();
    for (const QString& entry : entries) {
        box.addItem(entry);
    }
    box.setCurrentIndex(0);
}

std::vector<QString> ConsoleFilterBar::Keywords() const {
    std::vector<QString> keywords;
    for (int i = 0; i < m_controls->keywordCombo->count(); ++i) {
        keywords.push_back(m_controls->keywordCombo->itemText(i));
    }
    return keywords;
}

void ConsoleFilterBar::SaveKeywords() const {
    GetRecentSearchMng()->SaveRecent(Keywords());
}

void ConsoleFilterBar::FocusKeyword() const {
    m_controls->keywordCombo->setFocus(Qt::ShortcutFocusReason);
}
