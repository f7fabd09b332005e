// How the console's window comes to be.
#include "console/VeskPicMngDlg.h"

#include "base/Guard.h"
#include "console/ConsoleEvents.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IKXGlobalData.h"
#include "toolkit/controls/DropCombo.h"
#include "toolkit/windows/WindowPlace.h"

#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFrames = 8; ///< left and right of a window together, as a rule
constexpr int kPagingBarWidth = 320;
/// Fills the place between the radio buttons' line and the status bar.
constexpr int kPagingBarHeight = 35;

} // namespace

void CVeskPicMngDlg::OnCreated() {
    QWidget* window = Widget();
    window->setObjectName(u"VeskPicMngDlg"_s);
    m_controls = std::make_unique<ConsoleControls>(window);
    if (!m_grid) {
        SetMode(m_mode == kModeNone ? kModeBim : m_mode);
    }
    m_filters.Attach(*m_controls, m_mode, Manager()->GetSearchHint());
    MeasureControls();
    ZelvorNRQ_KXVeskPicture::Guarded(Id(), [this] {
        m_filters.FillProjects();
        m_filters.Init();
        ShowAllowedControls();
        InitPaging();
        m_filters.FillStates();
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

void CVeskPicMngDlg::ConnectControls() {
    m_filters.Connect();
    ConnectActions();
    AddShortcut(QKeySequence(Qt::Key_F5), [this] { OnRefreshPage(); });
    AddShortcut(QKeySequence(Qt::ALT | Qt::Key_K), [this] { m_filters.FocusKeyword(); });
}

void CVeskPicMngDlg::ConnectActions() {
    QWidget* window = Widget();
    const ConsoleControls& c = *m_controls;
    QObject::connect(c.searchButton, &QPushButton::clicked, window, [this] { RunSearch(); });
    QObject::connect(c.bimRadio, &QRadioButton::clicked, window, [this] { OnModeRadio(kModeBim); });
    QObject::connect(c.pdfRadio, &QRadioButton::clicked, window, [this] { OnModeRadio(kModePdf); });
    const auto tipAt = [this](QWidget* control) {
        return [this, control](const QString& text) { PopTip(control, text); };
    };
    QObject::connect(
        c.showButton, &QPushButton::clicked, window,
        [this, tip = tipAt(c.showButton)] { m_grid->Actions().SetCheckedShown(true, tip); });
    QObject::connect(
        c.hideButton, &QPushButton::clicked, window,
        [this, tip = tipAt(c.hideButton)] { m_grid->Actions().SetCheckedShown(false, tip); });
    QObject::connect(c.deleteButton, &QPushButton::clicked, window,
                     [this, tip = tipAt(c.deleteButton)] { m_grid->Actions().AskAndDelete(tip); });
    // The grid may be another one by then.
    QObject::connect(c.downloadButton, &QPushButton::clicked, window,
                     [this, tipAt] { m_grid->Actions().AskAndDownload(tipAt(m_grid->Widget())); });
}

void CVeskPicMngDlg::AddShortcut(const QKeySequence& key, const std::function<void()>& action) {
    auto* shortcut = new QShortcut(key, Widget());
    QObject::connect(shortcut, &QShortcut::activated, Widget(), action);
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
