#include "host/app/ProjectFlow.h"

#include "host/app/Faults.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/ProjectNameDialog.h"
#include "site/ICatalogue.h"
#include "site/IIntake.h"
#include "site/SetupState.h"

namespace host {

using namespace Qt::StringLiterals;

ProjectFlow::ProjectFlow(HostSession& hostSession, MainWindow& mainWindow)
    : m_session(hostSession), m_window(mainWindow) {
    connect(&m_window, &MainWindow::ProjectChosen, this, &ProjectFlow::Take);
}

void ProjectFlow::ReadChoices() {
    WithoutFault(m_session, [this] { m_choices = ReadProjectChoices(m_session); });
    const site::WorksetEntry& workset = m_session.CurrentWorkset();
    const site::ProjectEntry& project = m_session.CurrentProject();
    const bool isOpen = workset.id != 0 || project.ppid != 0;
    m_isArchived = isOpen && OpenChoice(m_session, m_choices) < 0;
    if (m_isArchived) {
        // Somebody is at work in it.
        m_choices.push_back(
            workset.id != 0
                ? ProjectChoice{u"工作集：%1（已归档）"_s.arg(workset.name), 0, workset.id}
                : ProjectChoice{u"%1（已归档）"_s.arg(project.name), project.ppid, 0});
    }
}

void ProjectFlow::ShowChoices() {
    QStringList names;
    for (const ProjectChoice& choice : m_choices) {
        names << choice.text;
    }
    m_window.SetProjects(names, OpenChoice(m_session, m_choices));
}

void ProjectFlow::OpenRemembered() {
    ReadChoices();
    WithoutFault(m_session, [this] {
        const int remembered = RememberedChoice(m_session, m_choices);
        if (remembered >= 0) {
            TakeChoice(m_session, m_choices[remembered]);
        }
    });
    ShowChoices();
    emit Changed();
}

void ProjectFlow::Take(int index) {
    if (index < 0 || index >= int(m_choices.size()) || index == OpenChoice(m_session, m_choices)) {
        return;
    }
    emit Leaving();
    WithoutFault(m_session, [&] { TakeChoice(m_session, m_choices[index]); });
    ReadChoices(); // an archived one was offered only while it was open
    ShowChoices();
    emit Changed();
}

void ProjectFlow::Make() {
    QStringList taken;
    const bool isRead = WithoutFault(m_session, [&] {
        // Archived ones have their names, too.
        for (const site::ProjectEntry& project : m_session.Site().Catalogue().Projects()) {
            taken << project.name;
        }
    });
    ProjectNameDialog dialog(&m_window, taken);
    if (!isRead || dialog.exec() != QDialog::Accepted) {
        return;
    }
    // It may have been taken away while the question stood open.
    if (!m_session.HasRight(site::kRightSetup)) {
        m_session.Desk()->Report(MessageLevel::Warning, u"您没有设置的权限，没有新建工程。"_s);
        return;
    }
    const bool isMade = WithoutFault(m_session, [&] {
        m_session.Site().NewIntake()->AddProject(dialog.Name());
        m_session.Actions().Write(u"新建工程“%1”"_s.arg(dialog.Name()));
    });
    if (!isMade) {
        return;
    }
    ReadChoices();
    for (int at = 0; at < int(m_choices.size()); ++at) {
        if (m_choices[at].ppid != 0 && m_choices[at].text == dialog.Name()) {
            Take(at);
        }
    }
}

void ProjectFlow::ReadAnew() {
    ReadOthers();
    const bool isNoneOpen = m_session.CurrentProject().ppid == 0;
    if (isNoneOpen && !m_choices.empty()) {
        Take(0);
    } else if (m_isArchived && m_choices.size() > 1) {
        const QString left = m_choices.back().text;
        Take(0);
        m_window.Messages().Show(MessageKind::Info,
                                 u"离开了%1，现在打开的是%2。"_s.arg(left, m_choices.front().text));
    }
}

void ProjectFlow::ReadOthers() {
    WithoutFault(m_session, [this] { m_session.ReadNames(); });
    ReadChoices();
    ShowChoices();
}

} // namespace host
