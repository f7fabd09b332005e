// How the console's window comes to be.
#include "console/VeskPicMngDlg.h"

#include "base/Guard.h"
#include "console/ConsoleEvents.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IKXGlobalData.h"
#include "services/IRecentSearchMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/Clock.h"
#include "toolkit/ColorTxtComboBox.h"
#include "toolkit/DropCombo.h"
#include "toolkit/KXComboBox.h"
#include "toolkit/Look.h"
#include "toolkit/SelectionChange.h"
#include "toolkit/WindowPlace.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDateTime>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kWeekSeconds = 604800;
constexpr int kFrames = 8; ///< left and right of a window together, as a rule
constexpr int kPagingBarWidth = 320;
/// Fills the place between the radio buttons' line and the status bar.
constexpr int kPagingBarHeight = 35;
const QString kWorkset = u"工作集"_s;

void ShowDate(QDateEdit& picker, qint64 time) {
    const QSignalBlocker quiet(picker);
    picker.setDate(QDateTime::fromSecsSinceEpoch(time).date());
}

} // namespace

void CVeskPicMngDlg::OnCreated() {
    QWidget* window = Widget();
    window->setObjectName(u"VeskPicMngDlg"_s);
    m_controls = std::make_unique<ConsoleControls>(window);
    if (!m_grid) {
        SetMode(m_mode == kModeNone ? kModeBim : m_mode);
    }
    MeasureControls();
    ZelvorNRQ_KXVeskPicture::Guarded(Id(), [this] {
        FillProjects();
        InitControls();
        FillStates();
    });
    // After a status the window opens all the same, and without its grid it couldn't search.
    if (!m_gridManager) {
        InitPaging();
    }
    window->setWindowTitle(m_mode == kModeIssue ? u"TN问题管理"_s : u"Vesk照片管理"_s);
    ConnectControls();
    UpdateLeastSize();
    window->resize(window->minimumSize());
    ApplyLayout();
    toolkit::CentreWindow(*Widget());
    toolkit::PostWindowEvent(Id(), WM_PIC_MNG_SELECT);
}

void CVeskPicMngDlg::FillProjects() {
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

void CVeskPicMngDlg::InitControls() {
    InitDates();
    InitKeywords();
    ShowAllowedControls();
    m_controls->markCombo->SetVeskStyle(1);
    ResetMarkBox();
    ResetLabelBox();
    InitPaging();
}

void CVeskPicMngDlg::MeasureControls() {
    for (size_t i = 0; i < kFilterControls; ++i) {
        m_filterSizes[i] = m_controls->Filters()[i]->size();
    }
    const QWidget& box = *m_controls->projectCombo;
    // The left edge stays a position on the screen; required as is.
    const int left = box.mapToGlobal(QPoint(0, 0)).x();
    m_filterSizes =
        FilterSizesFor(m_filterSizes, left, Widget()->screen()->availableSize().width() - kFrames);
    m_projectComboRect = QRect(QPoint(left, box.y()), m_filterSizes[kProjectBox]);
}

void CVeskPicMngDlg::InitDates() {
    m_controls->noDateLimit->setChecked(true);
    m_savedEnd = toolkit::Clock().NowSeconds();
    m_savedStart = m_savedEnd - kWeekSeconds;
    ShowDate(*m_controls->startPicker, m_savedStart);
    ShowDate(*m_controls->endPicker, m_savedEnd);
    m_controls->startPicker->setEnabled(false);
    m_controls->endPicker->setEnabled(false);
}

void CVeskPicMngDlg::InitKeywords() {
    KXComboBox& box = *m_controls->keywordCombo;
    box.SetTipInfo(Manager()->GetSearchHint());
    std::vector<QString> keywords;
    GetRecentSearchMng()->GetRecent(keywords);
    for (const QString& keyword : keywords) {
        box.addItem(keyword);
    }
    box.setCurrentIndex(-1);
    box.setEditText(QString());
}

void CVeskPicMngDlg::ShowAllowedControls() {
    const bool workset = GetKXGlobalData()->IsWorksetMode();
    const bool issues = m_mode == kModeIssue;
    const bool mayDelete = issues || GetKXAuthMng()->HasRight(KX_DATA::kRightDelete);
    const bool mayShowHide = issues || GetKXAuthMng()->HasRight(KX_DATA::kRightShowHide);
    m_controls->downloadButton->setVisible(!workset && !issues);
    m_controls->deleteButton->setVisible(!workset && mayDelete);
    m_controls->showButton->setVisible(!workset && mayShowHide);
    m_controls->hideButton->setVisible(!workset && mayShowHide);
    m_controls->labelCombo->setVisible(!issues);
    m_controls->bimRadio->setVisible(!issues);
    m_controls->pdfRadio->setVisible(!issues);
    if (!issues) {
        (m_mode == kModeBim ? m_controls->bimRadio : m_controls->pdfRadio)->setChecked(true);
    }
}

void CVeskPicMngDlg::InitPaging() {
    m_gridManager = std::make_unique<CMultiPageGridManager>();
    m_gridManager->SetGrid(m_grid.get());
    m_grid->SetManager(m_gridManager.get());
    m_gridManager->Create(Widget());
    m_gridManager->SetRect(QRect(0, 0, kPagingBarWidth, kPagingBarHeight));
    m_grid->Widget()->setObjectName(u"resultGrid"_s);
    m_gridManager->Widget()->setObjectName(u"pagingBar"_s);
    m_controls->PutBehindFilters(m_grid->Widget());
}

void CVeskPicMngDlg::FillStates() {
    std::vector<QString> names;
    GetVeskPicMng()->GetStateNames(names);
    DropCombo& box = *m_controls->statusCombo;
    for (const QString& name : names) {
        box.addItem(name == u"全部"_s ? u"全部状态"_s : name);
    }
}

void CVeskPicMngDlg::ConnectControls() {
    ConnectFilters();
    ConnectActions();
    AddShortcut(QKeySequence(Qt::Key_F5), &CVeskPicMngDlg::OnRefreshPage);
    AddShortcut(QKeySequence(Qt::ALT | Qt::Key_K), &CVeskPicMngDlg::FocusKeyword);
}

void CVeskPicMngDlg::ConnectFilters() {
    QWidget* window = Widget();
    const ConsoleControls& c = *m_controls;
    toolkit::ConnectSelectionChange(c.projectCombo, window, [this](int) {
        m_controls->projectCombo->setToolTip(
            toolkit::PlainTip(m_controls->projectCombo->currentText()));
        RunSearch();
    });
    QObject::connect(c.markCombo, &DropCombo::dropDown, window, [this] { FillMarkBox(); });
    toolkit::ConnectSelectionChange(c.markCombo, window,
                                    [this](int index) { OnMarkChosen(index); });
    QObject::connect(c.labelCombo, &DropCombo::dropDown, window, [this] { FillLabelBox(); });
    toolkit::ConnectSelectionChange(c.labelCombo, window,
                                    [this](int index) { OnLabelChosen(index); });
    toolkit::ConnectSelectionChange(c.statusCombo, window, [this](int) { RunSearch(); });
    QObject::connect(c.noDateLimit, &QCheckBox::clicked, window, [this] { OnNoLimitToggled(); });
    QObject::connect(c.startPicker, &QDateEdit::dateChanged, window,
                     [this] { OnDateChanged(true); });
    QObject::connect(c.endPicker, &QDateEdit::dateChanged, window,
                     [this] { OnDateChanged(false); });
}

void CVeskPicMngDlg::ConnectActions() {
    QWidget* window = Widget();
    const ConsoleControls& c = *m_controls;
    QObject::connect(c.searchButton, &QPushButton::clicked, window, [this] { RunSearch(); });
    QObject::connect(c.bimRadio, &QRadioButton::clicked, window, [this] { OnModeRadio(kModeBim); });
    QObject::connect(c.pdfRadio, &QRadioButton::clicked, window, [this] { OnModeRadio(kModePdf); });
    QObject::connect(c.showButton, &QPushButton::clicked, window, [this] { OnShowHide(true); });
    QObject::connect(c.hideButton, &QPushButton::clicked, window, [this] { OnShowHide(false); });
    QObject::connect(c.deleteButton, &QPushButton::clicked, window, [this] { OnDelete(); });
    QObject::connect(c.downloadButton, &QPushButton::clicked, window, [this] { OnDownload(); });
}

void CVeskPicMngDlg::AddShortcut(const QKeySequence& key, void (CVeskPicMngDlg::*action)()) {
    auto* shortcut = new QShortcut(key, Widget());
    QObject::connect(shortcut, &QShortcut::activated, Widget(),
                     [this, action] { (this->*action)(); });
}

void CVeskPicMngDlg::UpdateLeastSize() {
    toolkit::SetLeastSize(*Widget(), Manager()->GetMinTrackSize());
}

void CVeskPicMngDlg::OnResized() {
    if (m_grid && m_grid->HasWindow()) {
        ApplyLayout();
    }
}

void CVeskPicMngDlg::ApplyLayout() {
    if (!m_controls || !m_gridManager) {
        return;
    }
    const std::array<QWidget*, kFilterControls> filters = m_controls->Filters();
    ConsoleLayoutRequest request;
    request.client = Widget()->size();
    request.mode = m_mode;
    request.filters = m_filterSizes;
    request.projectBox = m_projectComboRect;
    request.radio = m_controls->bimRadio->size();
    request.action = m_controls->downloadButton->size();
    request.actionCounts = CountedActions(m_mode, GetKXAuthMng()->HasRight(KX_DATA::kRightDelete),
                                          GetKXAuthMng()->HasRight(KX_DATA::kRightShowHide));
    request.pagingBar = m_gridManager->GetRect().size();
    const ConsoleLayout layout = LayoutConsole(request);
    for (size_t i = 0; i < filters.size(); ++i) {
        if (!layout.filters[i].isNull()) {
            filters[i]->setGeometry(layout.filters[i]);
        }
    }
    m_controls->bimRadio->setGeometry(layout.bimRadio);
    m_controls->pdfRadio->setGeometry(layout.pdfRadio);
    for (size_t i = 0; i < kActionButtons; ++i) {
        if (!layout.actions[i].isNull()) {
            m_controls->Actions()[i]->setGeometry(layout.actions[i]);
        }
    }
    m_gridManager->SetRect(layout.pagingBar);
    m_gridManager->MoveGrid(layout.grid);
    m_controls->statusBar->setGeometry(layout.statusBar);
}
