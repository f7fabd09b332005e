#include "host/app/RichTextFlow.h"

#include "host/app/Faults.h"
#include "host/services/RichTextDrafts.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/rich/DraftWindow.h"
#include "host/ui/rich/VersionWindow.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "site/IDrafts.h"
#include "toolkit/richtext/NoteStore.h"

#include <algorithm>
#include <set>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Between two times that windows are read anew, milliseconds.
constexpr int kRichRereadPauseMs = 300;
const QString kLeftOpen = u"上次未正常退出"_s;

/// The record itself, or what its place is called by.
bool MayBeAboutRecords(const site::Change& change) {
    using site::ChangeKind;
    static const std::set<ChangeKind> kinds{
        ChangeKind::Anything, ChangeKind::RichText, ChangeKind::Project, ChangeKind::Checkpoint,
        ChangeKind::Drawing,  ChangeKind::Mark,     ChangeKind::Place};
    return kinds.contains(change.kind);
}

/// A modeless window, made once and brought to the front.
void BringUp(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

RichTextFlow::RichTextFlow(HostSession& hostSession, MainWindow& mainWindow)
    : m_session(hostSession), m_window(mainWindow), m_versionSource(hostSession),
      m_draftSource(hostSession), m_rereading(kRichRereadPauseMs, [this] { ReadAgain(); }) {
    QString pages;
    GetVeskPathTool()->GetRichFolder(pages);
    toolkit::SetEditorFolders({pages});
    WithoutFault(m_session, [this] { AdoptOpenTexts(); });
    WithoutFault(m_session, [this] {
        m_changes = m_session.Site().Changes().Subscribe(
            [this](const site::Changes& changes) { NoteChanges(changes); });
    });
}

RichTextFlow::~RichTextFlow() {
    delete m_versions;
    delete m_drafts;
    toolkit::SetEditorFolders({});
}

void RichTextFlow::AdoptOpenTexts() {
    const int count = m_session.Site().Drafts().AdoptOpen(m_session.UserName());
    if (count > 0) {
        m_window.Messages().Show(
            MessageKind::Warning,
            kLeftOpen +
                u"，未保存的富文本（%1 份）已放入草稿箱，可以从“文件”菜单的“草稿箱”恢复。"_s.arg(
                    count));
    }
}

void RichTextFlow::ShowVersions() {
    if (m_versions.isNull()) {
        m_versions = new VersionWindow(&m_window, m_versionSource);
        connect(m_versions, &VersionWindow::Restored, this, [this] {
            m_window.ShowStatus(u"已恢复为最新版本"_s);
            emit Changed();
        });
    }
    BringUp(*m_versions);
}

void RichTextFlow::ShowDrafts() {
    if (m_drafts.isNull()) {
        m_drafts = new DraftWindow(&m_window, m_draftSource);
        connect(m_drafts, &DraftWindow::BroughtBack, this, [this] {
            m_window.ShowStatus(u"草稿已恢复为最新版本"_s);
            emit Changed();
        });
    }
    // Whoever looks needs not be told any more.
    m_window.Messages().Withdraw(kLeftOpen);
    m_window.Messages().Withdraw(DraftKeptText());
    BringUp(*m_drafts);
}

void RichTextFlow::ProjectChanged() {
    m_rereading.Ask();
}

void RichTextFlow::NoteChanges(const site::Changes& changes) {
    const bool isAboutRecords = std::any_of(changes.begin(), changes.end(), MayBeAboutRecords);
    if (isAboutRecords) {
        // May come from inside of a question to the site.
        QMetaObject::invokeMethod(
            this, [this] { m_rereading.Ask(); }, Qt::QueuedConnection);
    }
}

void RichTextFlow::ReadAgain() {
    if (!m_versions.isNull()) {
        m_versions->Reload();
    }
    if (!m_drafts.isNull()) {
        m_drafts->Reload();
    }
}

} // namespace host
