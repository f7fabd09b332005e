#include "host/ui/MainWindow.h"

#include "host/ui/ActionLogDock.h"
#include "host/ui/LocalPaths.h"
#include "host/ui/MessageBar.h"
#include "host/ui/WindowKeys.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "host/ui/drawing/DrawingPane.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/photo/PhotoDock.h"
#include "host/ui/pick/ComponentDock.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "host/ui/statistics/StatisticsDock.h"
#include "include/KXEvents.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WindowPlace.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// A visible window beside this one and those; null: none.
QWidget* OtherWindow(const QWidget* own, const QList<QPointer<QWidget>>& except) {
    const QList<QWidget*> all = QApplication::topLevelWidgets();
    const auto found = std::find_if(all.begin(), all.end(), [&](QWidget* other) {
        return other != own && other->isVisible() && !except.contains(other);
    });
    return found == all.end() ? nullptr : *found;
}

} // namespace

MainWindow::MainWindow() {
    setObjectName(u"mainWindow"_s);
    setWindowTitle(QApplication::applicationDisplayName());
    setWindowIcon(toolkit::Icon(u"console"_s));
    setAcceptDrops(true);
    MakeCentre();
    MakeMenus();
    MakeToolbar();
    MakeStatusBar();
    toolkit::ResizeWithinScreen(*this, QSize(1280, 820));
    m_id = toolkit::RegisterWindow(
        this, [this](const toolkit::WindowEvent& event) { return OnNumberedEvent(event); });
    toolkit::SetMainWindow(m_id);
}

MainWindow::~MainWindow() {
    toolkit::UnregisterWindow(m_id);
}

void MainWindow::MakeCentre() {
    auto* centre = new QWidget(this);
    auto* lines = new QVBoxLayout(centre);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    m_messages = new MessageBar(centre);
    m_faces = new QTabWidget(centre);
    m_faces->setObjectName(u"faces"_s);
    m_faces->setDocumentMode(true);
    m_plan = new FloorPlanPane(m_faces);
    m_drawing = new DrawingPane(m_faces);
    m_faces->addTab(m_plan, toolkit::Icon(u"plan"_s), u"平面图"_s);
    m_faces->addTab(m_drawing, toolkit::Icon(u"drawing"_s), u"图纸"_s);
    connect(m_faces, &QTabWidget::currentChanged, this,
            [this] { emit FaceChanged(IsDrawingInFront()); });
    lines->addWidget(m_messages);
    lines->addWidget(m_faces, 1);
    setCentralWidget(centre);
    m_actionLog = new ActionLogDock(this);
    addDockWidget(Qt::BottomDockWidgetArea, m_actionLog);
    resizeDocks({m_actionLog}, {150}, Qt::Vertical);
    // Beside the log rather than above it: the panel has the longer list, the screen may be low.
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    m_marks = new MarkPanelDock(this);
    addDockWidget(Qt::RightDockWidgetArea, m_marks);
    m_catchUp = new CatchUpDock(this);
    addDockWidget(Qt::RightDockWidgetArea, m_catchUp);
    tabifyDockWidget(m_marks, m_catchUp);
    m_properties = new ComponentDock(this);
    addDockWidget(Qt::RightDockWidgetArea, m_properties);
    tabifyDockWidget(m_marks, m_properties);
    m_properties->hide();
    m_photoFacts = new PhotoDock(this);
    addDockWidget(Qt::RightDockWidgetArea, m_photoFacts);
    tabifyDockWidget(m_marks, m_photoFacts);
    m_photoFacts->hide();
    m_statistics = new StatisticsDock(this);
    addDockWidget(Qt::RightDockWidgetArea, m_statistics);
    tabifyDockWidget(m_marks, m_statistics);
    m_statistics->hide();
    m_marks->raise();
    resizeDocks({m_marks}, {268}, Qt::Horizontal);
}

bool MainWindow::IsDrawingInFront() const {
    return m_faces->currentWidget() == m_drawing;
}

void MainWindow::ShowDrawingFace(bool drawing) {
    m_faces->setCurrentWidget(drawing ? static_cast<QWidget*>(m_drawing) : m_plan);
}

QMenu* MainWindow::MenuNamed(const QString& title) {
    QMenu*& menu = m_menus[title];
    if (menu == nullptr) {
        menu = menuBar()->addMenu(title);
        menu->setToolTipsVisible(true);
    }
    return menu;
}

void MainWindow::MakeMenus() {
    for (const CommandRow& row : CommandTable()) {
        QMenu* menu = MenuNamed(row.menu);
        if (row.afterLine && !menu->isEmpty()) {
            menu->addSeparator();
        }
        auto* action = new QAction(row.text, this);
        if (!row.icon.isEmpty()) {
            action->setIcon(toolkit::Icon(row.icon));
        }
        action->setShortcut(row.key);
        // A viewer or console in front is part of the client too.
        if (row.command == Command::Quit) {
            action->setShortcutContext(Qt::ApplicationShortcut);
        }
        action->setToolTip(TipWithKey(row));
        connect(action, &QAction::triggered, this,
                [this, command = row.command] { emit CommandGiven(command); });
        menu->addAction(action);
        m_actions[row.command] = action;
    }
    m_drawings = new QActionGroup(this);
    m_drawingMenu = new QMenu(u"当前图纸"_s, this);
    m_drawingMenu->setObjectName(u"drawingMenu"_s);
    MenuNamed(u"控制台(&C)"_s)->addMenu(m_drawingMenu);
    connect(m_drawings, &QActionGroup::triggered, this,
            [this](const QAction* action) { emit DrawingChosen(action->data().toInt()); });
    SetDrawings({}, -1);

    AddPanelsToMenu();
    AddRemindersToMenu();
}

void MainWindow::AddRemindersToMenu() {
    QMenu* menu = MenuNamed(u"提醒(&R)"_s);
    menu->addSeparator();
    const auto add = [&](const QString& text, const QString& tip, const QString& name) {
        QAction* action = menu->addAction(text);
        action->setObjectName(name);
        action->setCheckable(true);
        action->setChecked(true);
        action->setToolTip(tip);
        return action;
    };
    m_photoReminders =
        add(u"弹出照片提醒"_s, u"其他人上传照片时在屏幕右下角弹出提醒"_s, u"photoReminders"_s);
    m_issueReminders =
        add(u"弹出TN问题提醒"_s, u"其他人提出问题时在屏幕右下角弹出提醒"_s, u"issueReminders"_s);
}

void MainWindow::AddPanelsToMenu() {
    QMenu* view = MenuNamed(u"视图(&V)"_s);
    view->addSeparator();
    for (const MarkKind kind : {MarkKind::Photos, MarkKind::Issues}) {
        view->addAction(m_marks->Page(kind).ShownAction());
    }
    view->addSeparator();
    QAction* showMarks = m_marks->toggleViewAction();
    showMarks->setIcon(toolkit::Icon(u"flag"_s));
    showMarks->setShortcut(Qt::CTRL | Qt::Key_K);
    showMarks->setToolTip(u"显示或隐藏标识面板（Ctrl+K）"_s);
    view->addAction(showMarks);
    QAction* showProperties = m_properties->toggleViewAction();
    showProperties->setIcon(toolkit::Icon(u"info"_s));
    showProperties->setToolTip(u"显示或隐藏构件属性"_s);
    view->addAction(showProperties);
    QAction* showPhotoFacts = m_photoFacts->toggleViewAction();
    showPhotoFacts->setIcon(toolkit::Icon(u"photo"_s));
    showPhotoFacts->setToolTip(u"显示或隐藏照片的拍摄时间、相机、位置和原始文件"_s);
    view->addAction(showPhotoFacts);
    QAction* showStatistics = m_statistics->toggleViewAction();
    showStatistics->setIcon(toolkit::Icon(u"chart"_s));
    showStatistics->setToolTip(u"显示或隐藏照片和问题的统计"_s);
    // They come up behind the other panels otherwise.
    connect(showPhotoFacts, &QAction::triggered, m_photoFacts, &QWidget::raise);
    connect(showStatistics, &QAction::triggered, m_statistics, &QWidget::raise);
    view->addAction(showStatistics);
    QAction* showLog = m_actionLog->toggleViewAction();
    showLog->setIcon(toolkit::Icon(u"log"_s));
    showLog->setShortcut(Qt::CTRL | Qt::Key_L);
    showLog->setToolTip(u"显示或隐藏操作记录（Ctrl+L）"_s);
    view->addAction(showLog);
}

void MainWindow::MakeToolbar() {
    auto* bar = addToolBar(u"工具栏"_s);
    bar->setObjectName(u"mainToolbar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->toggleViewAction()->setEnabled(false);
    auto* caption = new QLabel(u"工程："_s, bar);
    caption->setContentsMargins(8, 0, 4, 0);
    m_projectCombo = new QComboBox(bar);
    m_projectCombo->setObjectName(u"projectChoice"_s);
    m_projectCombo->setAccessibleName(u"工程或工作集"_s);
    m_projectCombo->setMinimumContentsLength(16);
    m_projectCombo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    caption->setBuddy(m_projectCombo);
    bar->addWidget(caption);
    bar->addWidget(m_projectCombo);
    connect(m_projectCombo, &QComboBox::activated, this, &MainWindow::ProjectChosen);

    for (const Command command :
         {Command::BimConsole, Command::PdfConsole, Command::IssueConsole, Command::RaiseIssue,
          Command::Import, Command::Bin, Command::CatchUp}) {
        if (command == Command::BimConsole || command == Command::Import ||
            command == Command::CatchUp) {
            bar->addSeparator();
        }
        QAction* action = m_actions[command];
        for (const CommandRow& row : CommandTable()) {
            if (row.command == command) {
                action->setIconText(row.toolText);
            }
        }
        bar->addAction(action);
    }
    auto* stretch = new QWidget(bar);
    stretch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(stretch);
    auto* userIcon = new QLabel(bar);
    userIcon->setPixmap(toolkit::Icon(u"user"_s).pixmap(16, 16));
    m_userLabel = new QLabel(bar);
    m_userLabel->setObjectName(u"userName"_s);
    m_userLabel->setTextFormat(Qt::PlainText);
    m_userLabel->setContentsMargins(4, 0, 12, 0);
    bar->addWidget(userIcon);
    bar->addWidget(m_userLabel);
}

void MainWindow::MakeStatusBar() {
    m_folderLabel = new QLabel(this);
    m_folderLabel->setObjectName(u"dataFolder"_s);
    m_folderLabel->setTextFormat(Qt::PlainText);
    m_folderLabel->setForegroundRole(QPalette::PlaceholderText);
    m_folderLabel->setContentsMargins(8, 0, 8, 0);
    statusBar()->setObjectName(u"mainStatus"_s);
    statusBar()->addPermanentWidget(m_folderLabel);
}

void MainWindow::SetProjects(const QStringList& names, int current) {
    m_projectCombo->clear();
    m_projectCombo->addItems(names);
    m_projectCombo->setCurrentIndex(current);
    m_projectCombo->setPlaceholderText(names.isEmpty() ? u"没有工程"_s : u"请选择工程"_s);
    const QString name = names.value(current);
    m_projectCombo->setToolTip(toolkit::PlainTip(u"当前工程或工作集：%1"_s.arg(name)));
    setWindowTitle(name.isEmpty() ? QApplication::applicationDisplayName()
                                  : u"%1 - %2"_s.arg(name, QApplication::applicationDisplayName()));
}

void MainWindow::SetDrawings(const QStringList& names, int current) {
    m_drawing->SetDrawings(names, current);
    m_drawingMenu->clear();
    for (int at = 0; at < int(names.size()); ++at) {
        QString text = names[at];
        QAction* action = m_drawingMenu->addAction(text.replace(u'&', u"&&"_s));
        action->setCheckable(true);
        action->setChecked(at == current);
        action->setData(at);
        m_drawings->addAction(action);
    }
    m_drawingMenu->setEnabled(!names.isEmpty());
}

void MainWindow::SetUserName(const QString& name) {
    m_userLabel->setText(name);
    m_userLabel->setToolTip(toolkit::PlainTip(u"当前用户：%1"_s.arg(name)));
}

void MainWindow::SetDataFolder(const QString& folder) {
    const QString path = QDir::toNativeSeparators(folder);
    m_folderLabel->setText(m_folderLabel->fontMetrics().elidedText(u"数据文件夹：%1"_s.arg(path),
                                                                   Qt::ElideMiddle, 480));
    m_folderLabel->setToolTip(toolkit::PlainTip(path));
}

void MainWindow::SetEnabled(Command command, bool enabled, const QString& whyNot) {
    QAction* action = m_actions[command];
    action->setEnabled(enabled);
    for (const CommandRow& row : CommandTable()) {
        if (row.command == command) {
            action->setToolTip(whyNot.isEmpty() ? TipWithKey(row)
                                                : TipWithKey(row) + u'\n' + whyNot);
        }
    }
}

void MainWindow::HearIn(Command command, QWidget& other) {
    other.addAction(m_actions[command]);
}

void MainWindow::ShowStatus(const QString& text) {
    statusBar()->showMessage(text);
}

void MainWindow::ShowUnread(const QString& count) {
    m_catchUp->ShowUnread(count);
    m_actions[Command::CatchUp]->setIconText(count.isEmpty() ? u"新到"_s : u"新到 %1"_s.arg(count));
    m_actions[Command::MarkAllRead]->setEnabled(!count.isEmpty());
}

void MainWindow::ToggleCatchUp() {
    // Behind another tab a dock is visible to Qt and to nobody else.
    const bool isInFront = m_catchUp->isVisible() && !m_catchUp->visibleRegion().isEmpty();
    m_catchUp->setVisible(!isInFront);
    m_catchUp->raise();
    if (!isInFront) {
        m_catchUp->TakeFocus();
    }
}

qintptr MainWindow::OnNumberedEvent(const toolkit::WindowEvent& event) {
    using namespace ZelvorNRQ_KXVeskPicture;
    if (event.number == WM_VESK_PIC_MSG || event.number == WM_VESK_TN_MSG) {
        emit RemindersReady(event.number == WM_VESK_PIC_MSG);
        return 0;
    }
    if (event.number == WM_RICH_STATE_CHANGED) {
        emit RecordStateChanged();
        return 0;
    }
    if (event.number != WM_VESK_PIC_LOCATE) {
        return 0;
    }
    if (event.first == 3) {
        emit DrawingLocated(int(event.second));
    } else if (event.first == 0 && event.second != 0) {
        emit PhotoLocated(*reinterpret_cast<const QString*>(event.second));
    }
    return 1;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // A window manager closes it also while a report keeps the person from it.
    if (!isEnabled() && event->spontaneous()) {
        event->ignore();
        return;
    }
    emit Closing();
    if (!CloseOtherWindows()) {
        event->ignore();
        return;
    }
    event->accept();
    emit Closed();
}

bool MainWindow::CloseOtherWindows() {
    // One may take others along, or bring another up: a viewer that closes its console.
    QList<QPointer<QWidget>> asked;
    while (QWidget* other = OtherWindow(this, asked)) {
        asked << other;
        other->close();
    }
    return OtherWindow(this, {}) == nullptr;
}

bool MainWindow::event(QEvent* event) {
    // Another project under a dialog of the module would pull its data from under it.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked) {
        m_projectCombo->setEnabled(event->type() == QEvent::WindowUnblocked);
    }
    return QMainWindow::event(event);
}

bool MainWindow::focusNextPrevChild(bool next) {
    return StepFocus(*this, next);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (MayDrop(*event)) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    if (MayDrop(*event)) {
        event->acceptProposedAction();
        emit PathsDropped(LocalPaths(event->mimeData()));
    }
}

} // namespace host
