// The client's side of rich texts: where the editor's files lie, the windows of versions and
// drafts.
#pragma once

#include "host/app/Calmed.h"
#include "host/app/SessionDrafts.h"
#include "host/app/SessionVersions.h"
#include "site/IChanges.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace host {

class DraftWindow;
class MainWindow;
class VersionWindow;

/// From its making to its end the editor has the folders of the open site. What it is made of must
/// outlive it. Thread: user interface.
class RichTextFlow final : public QObject {
    Q_OBJECT

public:
    RichTextFlow(HostSession& hostSession, MainWindow& mainWindow);
    ~RichTextFlow() override;

    void ShowVersions();
    void ShowDrafts();
    /// What is listed are records and drafts of the open projects.
    void ProjectChanged();

signals:
    /// A record, and with it perhaps the state of photos, was changed from one of the windows.
    void Changed();

private:
    /// Makes drafts of what a client of this person that ended badly was writing.
    void AdoptOpenTexts();
    void NoteChanges(const site::Changes& changes);
    void ReadAgain();

    HostSession& m_session;
    MainWindow& m_window;
    SessionVersions m_versionSource;
    SessionDrafts m_draftSource;
    QPointer<VersionWindow> m_versions;
    QPointer<DraftWindow> m_drafts;
    Calmed m_rereading;
    std::shared_ptr<void> m_changes;
};

} // namespace host
