// The client's windows of issues, and the way from a QR code to its issue.
#pragma once

#include "host/app/Calmed.h"
#include "site/IChanges.h"
#include "site/IIssues.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
}

namespace host {

class FloorPlanView;
class HostSession;
class IssueWindow;
class MainWindow;

/// One window for each issue that was asked for, read anew when the issue changes. What it is made
/// of must outlive it. Thread: user interface.
class IssueFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        const FloorPlanView& view;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures;
    };

    explicit IssueFlow(const Parts& flowParts);
    ~IssueFlow() override;

    /// The window that shows it already comes to the front.
    void ShowIssue(qint32 ppid, const QString& questionId);
    /// Asks for a picture and opens the issue whose code is in it.
    void OpenByCode();
    /// Windows of projects that aren't open any more close.
    void ProjectChanged();

private:
    struct Shown {
        site::IssueRef issue;
        QPointer<IssueWindow> window;
    };

    void NoteChanges(const site::Changes& changes);
    void ReadAgain();
    void OpenFile(const QString& path);
    void Locate(const site::IssueRef& issue);
    void Tell(const QString& text) const;
    [[nodiscard]] IssueWindow* WindowOf(const site::IssueRef& issue) const;

    const Parts m_parts;
    std::vector<Shown> m_shown;
    Calmed m_rereading;
    std::shared_ptr<void> m_changes;
};

} // namespace host
