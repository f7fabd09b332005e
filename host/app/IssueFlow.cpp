#include "host/app/IssueFlow.h"

#include "host/app/Faults.h"
#include "host/app/IssueReader.h"
#include "host/qr/QrImage.h"
#include "host/qr/QrRead.h"
#include "host/ui/MainWindow.h"
#include "host/ui/issues/PictureCheck.h"
#include "host/ui/plan/FloorPlanView.h"
#include "include/IKXVeskPicture.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Between two times that windows are read anew, milliseconds.
constexpr int kRereadPauseMs = 300;

bool MayBeAbout(const site::Change& change) {
    return change.kind == site::ChangeKind::Anything || change.kind == site::ChangeKind::Issue ||
           change.kind == site::ChangeKind::Project || change.kind == site::ChangeKind::Mark;
}

} // namespace

IssueFlow::IssueFlow(const Parts& flowParts)
    : m_parts(flowParts), m_rereading(kRereadPauseMs, [this] { ReadAgain(); }) {
    WithoutFault(m_parts.session, [this] {
        m_changes = m_parts.session.Site().Changes().Subscribe(
            [this](const site::Changes& changes) { NoteChanges(changes); });
    });
}

IssueFlow::~IssueFlow() {
    for (const Shown& shown : m_shown) {
        delete shown.window;
    }
}

IssueWindow* IssueFlow::WindowOf(const site::IssueRef& issue) const {
    const auto at = std::find_if(m_shown.begin(), m_shown.end(), [&](const Shown& shown) {
        return !shown.window.isNull() && shown.issue.ppid == issue.ppid &&
               shown.issue.questionId == issue.questionId;
    });
    return at == m_shown.end() ? nullptr : at->window.data();
}

void IssueFlow::ShowIssue(qint32 ppid, const QString& questionId) {
    const site::IssueRef issue{ppid, questionId};
    IssueWindow* window = WindowOf(issue);
    if (window == nullptr) {
        std::optional<IssueFacts> facts;
        if (!WithoutFault(m_parts.session,
                          [&] { facts = ReadIssueFacts(m_parts.session, issue); })) {
            return;
        }
        if (!facts) {
            Tell(u"该问题已被删除，请刷新后再试。"_s);
            return;
        }
        std::erase_if(m_shown, [](const Shown& shown) { return shown.window.isNull(); });
        window = new IssueWindow(&m_parts.window, &QrImageOf);
        window->ShowFacts(*facts);
        connect(window, &IssueWindow::ViewerWanted, this, [this, issue] { Locate(issue); });
        m_shown.push_back({issue, window});
    }
    window->show();
    window->raise();
    window->activateWindow();
}

void IssueFlow::NoteChanges(const site::Changes& changes) {
    if (std::any_of(changes.begin(), changes.end(), MayBeAbout)) {
        // May come from inside of a question to the site.
        QMetaObject::invokeMethod(
            this, [this] { m_rereading.Ask(); }, Qt::QueuedConnection);
    }
}

void IssueFlow::ReadAgain() {
    const std::vector<Shown> shown = m_shown;
    for (const Shown& one : shown) {
        std::optional<IssueFacts> facts;
        if (one.window.isNull() || !WithoutFault(m_parts.session, [&] {
                facts = ReadIssueFacts(m_parts.session, one.issue);
            })) {
            continue;
        }
        if (facts) {
            one.window->ShowFacts(*facts);
        } else {
            one.window->ShowGone();
        }
    }
}

void IssueFlow::ProjectChanged() {
    const site::Projects open = m_parts.session.OpenPpids();
    for (const Shown& shown : m_shown) {
        if (!shown.window.isNull() && !site::Has(open, shown.issue.ppid)) {
            shown.window->close();
        }
    }
}

void IssueFlow::OpenByCode() {
    const toolkit::StillThere still(this);
    const QStringList chosen = toolkit::Prompts().AskOpenFiles(
        {m_parts.window.Id(), u"二维码图片 (*.png *.jpg *.jpeg *.bmp *.gif);;所有文件 (*)"_s});
    if (!still || chosen.isEmpty()) {
        return;
    }
    if (chosen.size() > 1) {
        Tell(u"请只选择一个二维码图片。"_s);
        return;
    }
    OpenFile(chosen.front());
}

void IssueFlow::OpenFile(const QString& path) {
    CodeLookup found;
    {
        const toolkit::WaitCursor waiting;
        const QString lack = PictureLack(path);
        const QrReading reading = lack.isEmpty() ? ReadQrFile(path) : QrReading();
        if (!lack.isEmpty()) {
            found.lack = lack + u"，请选择二维码的图片。"_s;
        } else if (!reading.fault.isEmpty()) {
            found.lack = reading.fault;
        } else if (reading.text.isEmpty()) {
            found.lack = u"图片中没有找到二维码，请让二维码完整、清晰地出现在图片中。"_s;
        } else if (!WithoutFault(m_parts.session,
                                 [&] { found = LookUpCode(m_parts.session, reading.text); })) {
            return;
        }
    }
    if (found.issue) {
        Locate(*found.issue);
    } else {
        Tell(found.lack);
    }
}

void IssueFlow::Locate(const site::IssueRef& issue) {
    // The plan shows no marks meanwhile, and the module would blame the switch for it.
    if (m_parts.view.IsPicking()) {
        Tell(u"正在平面图上选择构件，请先完成或取消选择。"_s);
        return;
    }
    m_parts.pictures.LocateIssue(issue.ppid, issue.questionId);
}

void IssueFlow::Tell(const QString& text) const {
    toolkit::Prompts().ShowMessage(m_parts.window.Id(), text);
}

} // namespace host
