// Which project or workset is open: the choice in the main window, the last one, a new one.
#pragma once

#include "host/app/ProjectChoices.h"

#include <QObject>

namespace host {

class HostSession;
class MainWindow;

/// The session and the window must outlive it. Thread: user interface.
class ProjectFlow final : public QObject {
    Q_OBJECT

public:
    ProjectFlow(HostSession& hostSession, MainWindow& mainWindow);

    /// What the person had open at last; Changed follows in any case.
    void OpenRemembered();
    /// Asks for a name, makes the project and opens it.
    void Make();
    /// Names and choices as the site has them now. The open project stays, if it is still there and
    /// wasn't archived.
    void ReadAnew();
    /// The same after another client's change: what is open stays in any case.
    void ReadOthers();

signals:
    /// Another one is about to be opened.
    void Leaving();
    /// Another one is open, or none.
    void Changed();

private:
    void ReadChoices();
    void ShowChoices();
    void Take(int index);

    HostSession& m_session;
    MainWindow& m_window;
    std::vector<ProjectChoice> m_choices;
    bool m_isArchived = false; ///< what is open; it is the last of the choices then
};

} // namespace host
