// The client's main window.
#pragma once

#include "host/ui/Commands.h"
#include "host/ui/MessageList.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QMainWindow>

#include <map>

class QAction;
class QActionGroup;
class QComboBox;
class QLabel;
class QMenu;
class QTabWidget;

namespace host {

class ActionLogDock;
class CatchUpDock;
class ComponentDock;
class DrawingPane;
class FloorPlanPane;
class MarkPanelDock;
class MessageBar;
class PhotoDock;
class StatisticsDock;

/// Frame of the client: menus, toolbar with the choice of project and the user's name, messages,
/// floor plan and drawing, action log, status bar. It tells what the person wants by signals and
/// doesn't know the services or the module. Lives on the interface thread, owned by the client.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// Id in the registry of windows; the toolkit knows it as the main window.
    [[nodiscard]] toolkit::WindowId Id() const { return m_id; }
    [[nodiscard]] FloorPlanPane& Plan() const { return *m_plan; }
    [[nodiscard]] DrawingPane& Drawing() const { return *m_drawing; }
    /// Which face of the central area is seen: the drawing, or else the plan.
    [[nodiscard]] bool IsDrawingInFront() const;
    void ShowDrawingFace(bool drawing);
    [[nodiscard]] ActionLogDock& ActionLog() const { return *m_actionLog; }
    [[nodiscard]] MarkPanelDock& Marks() const { return *m_marks; }
    [[nodiscard]] ComponentDock& Properties() const { return *m_properties; }
    [[nodiscard]] PhotoDock& PhotoFacts() const { return *m_photoFacts; }
    [[nodiscard]] CatchUpDock& CatchUpList() const { return *m_catchUp; }
    [[nodiscard]] StatisticsDock& Statistics() const { return *m_statistics; }
    /// Checked: toasts of photos, of issues.
    [[nodiscard]] QAction& PhotoReminders() const { return *m_photoReminders; }
    [[nodiscard]] QAction& IssueReminders() const { return *m_issueReminders; }
    [[nodiscard]] MessageBar& Messages() const { return *m_messages; }

    /// Entries of the choice of project; `current` -1: none is open. Sends no signal.
    void SetProjects(const QStringList& names, int current);
    /// Entries of the menu of drawings; `current` -1: none. Sends no signal.
    void SetDrawings(const QStringList& names, int current);
    void SetUserName(const QString& name);
    void SetDataFolder(const QString& folder);
    /// A command that can't be given may say why in its tip.
    void SetEnabled(Command command, bool enabled, const QString& whyNot = {});
    /// The command's key is heard in another window, too.
    void HearIn(Command command, QWidget& other);
    void ShowStatus(const QString& text);
    /// How much of what others filed is unread, on the toolbar and in the list; empty: nothing.
    void ShowUnread(const QString& count);
    /// The list of it to the front; away if it lies there already.
    void ToggleCatchUp();
    /// Sends all other windows of the program their close event; false if one of them stays.
    bool CloseOtherWindows();

signals:
    void CommandGiven(host::Command command);
    /// The person took another entry of the choice of project.
    void ProjectChosen(int index);
    void DrawingChosen(int index);
    void FaceChanged(bool toDrawing);
    /// Files and folders were dropped on the window.
    void PathsDropped(const QStringList& paths);
    /// A lookup in the console: text floor-mark-picture.
    void PhotoLocated(const QString& text);
    void DrawingLocated(int drawingId);
    /// The module has reminders to show, of photos or of issues.
    void RemindersReady(bool ofPhotos);
    /// Somebody here gave a place another state of rectification.
    void RecordStateChanged();
    /// The person closes the window: first comes this, then the other windows are closed, and only
    /// if all of them went, Closed.
    void Closing();
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeMenus();
    void MakeToolbar();
    void MakeCentre();
    void AddPanelsToMenu();
    void AddRemindersToMenu();
    void MakeStatusBar();
    QMenu* MenuNamed(const QString& title);
    qintptr OnNumberedEvent(const toolkit::WindowEvent& event);

    toolkit::WindowId m_id = toolkit::kNoWindow;
    QTabWidget* m_faces = nullptr;
    FloorPlanPane* m_plan = nullptr;
    DrawingPane* m_drawing = nullptr;
    ActionLogDock* m_actionLog = nullptr;
    MarkPanelDock* m_marks = nullptr;
    CatchUpDock* m_catchUp = nullptr;
    ComponentDock* m_properties = nullptr;
    PhotoDock* m_photoFacts = nullptr;
    StatisticsDock* m_statistics = nullptr;
    QAction* m_photoReminders = nullptr;
    QAction* m_issueReminders = nullptr;
    MessageBar* m_messages = nullptr;
    QComboBox* m_projectCombo = nullptr;
    QLabel* m_userLabel = nullptr;
    QLabel* m_folderLabel = nullptr;
    QMenu* m_drawingMenu = nullptr;
    QActionGroup* m_drawings = nullptr;
    std::map<QString, QMenu*> m_menus;
    std::map<Command, QAction*> m_actions;
};

} // namespace host
