#include "host/app/FlagMenu.h"

#include "host/session/HostSession.h"
#include "host/ui/ObserverHub.h"
#include "host/ui/PhotoCount.h"
#include "include/IKXVeskPicture.h"
#include "services/IKXAuthMng.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/controls/Swatch.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;
using ZelvorNRQ_KXVeskPicture::ViewPicRequest;

namespace {

constexpr qint32 kUnreadArgument = 0;
constexpr qint32 kWholeList = -1; ///< no photo is ticked
constexpr qint32 kEveryMark = 0;

/// "&" as it stands; of what would make a menu as wide as the screen, the two ends.
QString MenuText(QString text) {
    constexpr qsizetype kMost = 60;
    if (text.size() > kMost) {
        text = text.left(kMost / 2) + u'…' + text.right(kMost / 2 - 1);
    }
    return text.replace(u'&', u"&&"_s);
}

QString FlagTitle(const MarkFlag& flag) {
    return flag.kind == MarkKind::Photos
               ? u"%1（%2）"_s.arg(FlagName(flag), PhotosText({flag.count, flag.hidden}))
               : u"%1（%2 个问题）"_s.arg(FlagName(flag), QString::number(flag.count));
}

QIcon FlagIcon(const MarkFlag& flag) {
    return toolkit::SwatchIcon(toolkit::ColorFromBgr(flag.color));
}

void AddTitle(QMenu& target, const QIcon& icon, const QString& text) {
    QAction* title = target.addAction(icon, MenuText(text));
    title->setEnabled(false);
    target.addSeparator();
}

} // namespace

FlagMenu::FlagMenu(const Parts& menuParts, const FlagMenuRequest& menuRequest)
    : m_parts(menuParts), m_request(menuRequest) {
    m_menu.setObjectName(u"flagMenu"_s);
    m_menu.setToolTipsVisible(true);
    Fill();
}

void FlagMenu::Run() {
    m_menu.exec(m_request.at);
}

void FlagMenu::TellChosen(qint32 picId) const {
    if (m_parts.photoChosen) {
        m_parts.photoChosen(picId);
    }
}

qint32 FlagMenu::ProjectOf(const MarkFlag& flag) const {
    return flag.ppid != 0 ? flag.ppid : m_parts.session.CurrentProject().ppid;
}

void FlagMenu::Fill() {
    if (m_request.flags.size() == 1) {
        const MarkFlag& flag = m_request.flags.front();
        const QString title = FlagTitle(flag);
        AddTitle(m_menu, FlagIcon(flag),
                 m_request.place.isEmpty() ? title : m_request.place + u"  "_s + title);
        AddFlag(m_menu, flag);
        return;
    }
    if (!m_request.place.isEmpty()) {
        AddTitle(m_menu, {}, m_request.place);
    }
    for (const MarkFlag& flag : m_request.flags) {
        QMenu* below = m_menu.addMenu(FlagIcon(flag), MenuText(FlagTitle(flag)));
        below->setToolTipsVisible(true);
        QObject::connect(below, &QMenu::aboutToShow, below, [this, below, flag] {
            if (below->isEmpty()) {
                AddFlag(*below, flag);
            }
        });
    }
    if (!m_request.positionKey.isEmpty()) {
        AddConsole(m_menu, u"在控制台中列出此处照片"_s, m_request.positionKey, kEveryMark);
    }
}

void FlagMenu::AddFlag(QMenu& target, const MarkFlag& flag) {
    if (flag.kind == MarkKind::Photos) {
        AddPhotos(target, flag);
    } else {
        AddIssues(target, flag);
    }
}

void FlagMenu::AddPhotos(QMenu& target, const MarkFlag& flag) {
    const qint32 ppid = ProjectOf(flag);
    QAction* open =
        target.addAction(toolkit::Icon(u"preview"_s), u"打开照片"_s, &target, [this, flag, ppid] {
            m_parts.hub.ViewBimPic(ppid, flag.floor, flag.positionKey, flag.markId);
        });
    target.setDefaultAction(open);
    if (!flag.positionKey.isEmpty()) {
        AddConsole(target, u"在控制台中列出"_s, flag.positionKey, flag.markId);
    }
    target.addSeparator();
    const FlagPhotos photos = ReadFlagPhotos(m_parts.session, ppid, flag, kMostNamed);
    for (const FlagPhoto& photo : photos.named) {
        const ViewPicRequest wanted{flag.positionKey, photo.picId, flag.floor, flag.markId, ppid};
        QAction* action = target.addAction(MenuText(photo.caption), &target, [this, wanted] {
            TellChosen(wanted.picId);
            m_parts.pictures.ViewBimPic(wanted);
        });
        action->setToolTip(toolkit::PlainTip(photo.tip));
    }
    if (photos.others > 0) {
        target.addAction(u"另有 %1 张"_s.arg(photos.others))->setEnabled(false);
    }
    if (flag.hidden > 0) {
        target.addAction(u"隐藏的 %1 张请在控制台中查看"_s.arg(flag.hidden))->setEnabled(false);
    }
    if (photos.named.empty()) {
        target.addAction(u"读不到照片，请刷新后再试"_s)->setEnabled(false);
    } else if (m_parts.session.HasRight(KX_DATA::kRightEdit) && !m_parts.session.IsWorkset()) {
        AddEditing(target, ppid, photos.named);
    }
}

/// As in the console: only with the right to it, and not in a workset.
void FlagMenu::AddEditing(QMenu& target, qint32 ppid, const std::vector<FlagPhoto>& photos) {
    target.addSeparator();
    QMenu* editing = target.addMenu(toolkit::Icon(u"edit"_s), u"编辑照片"_s);
    editing->setToolTipsVisible(true);
    for (const FlagPhoto& photo : photos) {
        QAction* action =
            editing->addAction(MenuText(photo.caption), &target, [this, ppid, id = photo.picId] {
                TellChosen(id);
                m_parts.pictures.EditBimPic(ppid, id);
            });
        action->setToolTip(toolkit::PlainTip(photo.tip));
    }
}

void FlagMenu::AddIssues(QMenu& target, const MarkFlag& flag) {
    const qint32 ppid = ProjectOf(flag);
    const int count = int(flag.issues.size());
    const int named = std::min(count, kMostNamed);
    for (int at = 0; at < named; ++at) {
        const IssueName& issue = flag.issues[size_t(at)];
        QAction* action = target.addAction(
            toolkit::Icon(u"issue"_s), MenuText(issue.theme), &target,
            [this, ppid, id = issue.questionId] { m_parts.hub.LocateIssue(ppid, id); });
        action->setToolTip(toolkit::PlainTip(issue.theme));
    }
    if (count > named) {
        target.addAction(u"另有 %1 个"_s.arg(count - named))->setEnabled(false);
    }
    if (m_parts.showIssue && named > 0) {
        AddIssueWindows(target, ppid, {flag.issues.begin(), flag.issues.begin() + named});
    }
}

/// One issue needs no menu of its own.
void FlagMenu::AddIssueWindows(QMenu& target, qint32 ppid, const std::vector<IssueName>& issues) {
    const QIcon icon = toolkit::Icon(u"info"_s);
    target.addSeparator();
    QMenu* below = issues.size() == 1 ? &target : target.addMenu(icon, u"问题信息"_s);
    below->setToolTipsVisible(true);
    for (const IssueName& issue : issues) {
        QAction* action = below->addAction(
            issues.size() == 1 ? u"问题信息…"_s : MenuText(issue.theme + u"…"_s), &target,
            [this, ppid, id = issue.questionId] { m_parts.showIssue(ppid, id); });
        action->setToolTip(toolkit::PlainTip(issue.theme));
        if (issues.size() == 1) {
            action->setIcon(icon);
        }
    }
}

void FlagMenu::AddConsole(QMenu& target, const QString& text, const QString& positionKey,
                          qint32 markId) {
    target.addAction(toolkit::Icon(u"console"_s), text, &target, [this, positionKey, markId] {
        m_parts.pictures.ShowBimPicMngFor(kUnreadArgument, positionKey, markId, kWholeList);
    });
}

} // namespace host
