#include "host/app/SetupFlow.h"

#include "host/app/DrawingImport.h"
#include "host/app/Faults.h"
#include "host/app/UndoFlow.h"
#include "host/ui/MainWindow.h"
#include "host/ui/setup/SetupWindow.h"
#include "site/IBin.h"
#include "site/ICatalogue.h"
#include "site/IDrawings.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString NoRight() {
    return u"您没有设置的权限，请找有权限的人。"_s;
}

/// What a question to the site answers; nothing if it fails, with a message.
template <typename Answer, typename Ask>
std::optional<Answer> AnswerOf(const HostSession& session, Ask ask) {
    std::optional<Answer> answer;
    WithoutFault(session, [&] { answer = ask(session.Site()); });
    return answer;
}

} // namespace

SetupFlow::SetupFlow(const Parts& flowParts) : m_parts(flowParts) {
    const auto reload = [this] {
        if (!m_setup.isNull()) {
            m_setup->ReloadDrawings();
        }
    };
    connect(&m_parts.drawings, &DrawingImport::Imported, this, reload);
    connect(&m_parts.undo, &UndoFlow::Undone, this, reload);
}

SetupFlow::~SetupFlow() {
    End();
}

QString SetupFlow::WhyNot() const {
    return m_parts.session.HasRight(site::kRightSetup) ? QString() : NoRight();
}

void SetupFlow::Show() {
    const QString whyNot = WhyNot();
    if (!whyNot.isEmpty()) {
        m_parts.session.Desk()->Report(MessageLevel::Warning, whyNot);
        return;
    }
    if (m_setup.isNull()) {
        m_setup = new SetupWindow(&m_parts.window, *this);
        m_setup->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_setup, &SetupWindow::Saved, this, [this] {
            WithoutFault(m_parts.session,
                         [this] { m_parts.session.Actions().Write(u"修改设置"_s); });
            emit Changed();
        });
        m_setup->ShowProject(m_parts.session.CurrentProject().name);
    }
    m_setup->show();
    m_setup->raise();
    m_setup->activateWindow();
}

SetupWindow* SetupFlow::Window() const {
    return m_setup;
}

void SetupFlow::End() {
    delete m_setup;
}

std::optional<site::SetupState> SetupFlow::Read() {
    return AnswerOf<site::SetupState>(m_parts.session,
                                      [](site::ISite& site) { return site.Setup().Read({}); });
}

std::optional<site::SetupGrid> SetupFlow::ReadGrid(qint32 ppid) {
    const auto state = AnswerOf<site::SetupState>(
        m_parts.session, [&](site::ISite& site) { return site.Setup().Read({ppid}); });
    return state && !state->grids.empty() ? std::optional(state->grids.front()) : std::nullopt;
}

std::optional<site::SetupOutcome> SetupFlow::Save(const site::SetupState& seen,
                                                  const site::SetupState& wanted) {
    // It may have been taken away while the window was open.
    if (!WhyNot().isEmpty()) {
        return site::SetupOutcome{{NoRight()}, {}};
    }
    const site::Signature by{m_parts.session.UserName(), m_parts.session.Site().Now()};
    site::SetupOutcome outcome;
    const QString fault =
        FaultOfWork([&] { outcome = m_parts.session.Site().Setup().Apply(seen, wanted, by); });
    // The message bar lies behind the window.
    return fault.isEmpty() ? outcome : site::SetupOutcome{{fault}, {}};
}

std::optional<QString> SetupFlow::Uses(site::SetupList list, qint32 id) {
    return AnswerOf<QString>(m_parts.session,
                             [&](site::ISite& site) { return site.Setup().UsesOf(list, id); });
}

std::optional<QString> SetupFlow::FloorUses(qint32 ppid, const QString& floor) {
    return AnswerOf<QString>(
        m_parts.session, [&](site::ISite& site) { return site.Setup().UsesOfFloor(ppid, floor); });
}

std::optional<QString> SetupFlow::CrossingUses(const QString& positionKey) {
    return AnswerOf<QString>(m_parts.session, [&](site::ISite& site) {
        return site.Setup().UsesOfCrossing(positionKey);
    });
}

std::vector<SetupDrawing> SetupFlow::Drawings(qint32 ppid) {
    std::vector<SetupDrawing> drawings;
    WithoutFault(m_parts.session, [&] {
        for (const site::DrawingEntry& entry : m_parts.session.Site().Drawings().List(ppid)) {
            drawings.push_back({entry.id, entry.name});
        }
    });
    return drawings;
}

QString SetupFlow::RemoveDrawing(qint32 ppid, qint32 drawingId) {
    if (!WhyNot().isEmpty()) {
        return NoRight();
    }
    const site::Signature by{m_parts.session.UserName(), m_parts.session.Site().Now()};
    return FaultOfWork([&] {
        std::vector<site::BinEntry> made;
        if (m_parts.session.Site().Bin().DeleteDrawing({ppid}, drawingId, by, &made)) {
            m_parts.undo.Note(DeedOf(made));
        }
        emit Changed();
    });
}

void SetupFlow::ImportDrawings(qint32 ppid, const QStringList& paths) {
    if (!WhyNot().isEmpty()) {
        m_parts.session.Desk()->Report(MessageLevel::Warning, NoRight());
        return;
    }
    m_parts.drawings.BeginIn(ppid, paths);
}

} // namespace host
