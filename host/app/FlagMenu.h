// What can be done with flags of the view, as a menu.
#pragma once

#include "host/app/FlagPhotos.h"
#include "host/ui/ModelView.h"

#include <QMenu>

#include <functional>

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
}

namespace host {

class HostSession;
class ObserverHub;

/// Opens a flag's position in the viewer or one of its photos, lists them in the console, has one
/// edited, locates issues and opens their windows. One flag makes the menu itself, several a menu
/// of menus that are filled when they open. Thread: user interface.
class FlagMenu final {
public:
    struct Parts {
        HostSession& session;
        ObserverHub& hub;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures;
        /// Opens the window of an issue; empty: the menu doesn't offer it.
        std::function<void(qint32 ppid, const QString& questionId)> showIssue = {};
        /// Is told which photo the person opens or edits; may be empty.
        std::function<void(qint32 picId)> photoChosen = {};
    };
    /// Photos and issues that are named; the rest is counted.
    static constexpr int kMostNamed = 20;

    FlagMenu(const Parts& menuParts, const FlagMenuRequest& menuRequest);

    /// Until the person has chosen something or nothing; does what was chosen.
    void Run();
    [[nodiscard]] QMenu& Menu() { return m_menu; }

private:
    void Fill();
    void AddFlag(QMenu& target, const MarkFlag& flag);
    void AddPhotos(QMenu& target, const MarkFlag& flag);
    void AddEditing(QMenu& target, qint32 ppid, const std::vector<FlagPhoto>& photos);
    void AddIssues(QMenu& target, const MarkFlag& flag);
    void AddIssueWindows(QMenu& target, qint32 ppid, const std::vector<IssueName>& issues);
    void AddConsole(QMenu& target, const QString& text, const QString& positionKey, qint32 markId);
    void TellChosen(qint32 picId) const;
    [[nodiscard]] qint32 ProjectOf(const MarkFlag& flag) const;

    Parts m_parts;
    FlagMenuRequest m_request;
    QMenu m_menu;
};

} // namespace host
