// Marks on their way from the data over the panel and the module to the view, and back by clicks.
#pragma once

#include "host/ui/ModelView.h"
#include "host/ui/marks/MarkState.h"
#include "site/IChanges.h"
#include "site/PanelFilter.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
class IKXVeskPicData;
} // namespace ZelvorNRQ_KXVeskPicture

namespace host {

class HostSession;
class MarkPage;
class MarkPanelDock;
class ObserverHub;

/// Fills the mark panel through the module's data provider, hands what is ticked to the session,
/// and lets the module draw it. Keeps the panel's state for each person and project. Session,
/// panel, view, hub and module must outlive the flow. Thread: user interface.
class MarkFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MarkPanelDock& panel;
        ModelView& view;
        ObserverHub& hub;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicData& pictureData;
        /// Opens the window of an issue; empty: there is none.
        std::function<void(qint32 ppid, const QString& questionId)> showIssue = {};
        /// Is told which photo is chosen of a flag's menu.
        std::function<void(qint32 picId)> photoChosen = {};
    };
    explicit MarkFlow(const Parts& flowParts);
    ~MarkFlow() override;

    /// Keeps the state of the panel for what was open; before another project is opened.
    void Keep();
    /// Brings back the state of what is open now and reads its marks; issues behind the photos.
    void ProjectChanged();
    /// After a change of the data: reads the lists anew, keeps what is ticked, draws anew. What
    /// nobody looks at is read when somebody does.
    void Reload(MarkKind kind);

protected:
    void customEvent(QEvent* event) override;

private:
    /// What was read at last; unless it is old, reading it again would give the same.
    struct LastRead {
        site::PanelFilter filter;
        bool old = true;
    };
    void NoteChanges(const site::Changes& changes);
    void ReadWhatIsOld();
    void ConnectPage(MarkPage& page);
    void Read(MarkKind kind);
    void ReadEntries(MarkKind kind, const site::PanelFilter& filter);
    std::vector<HiddenOfGroup> ReadHidden(const site::PanelFilter& filter);
    void RelistTicks(const site::PanelFilter& filter);
    void ReadIssuesWhenPainted();
    void Apply(MarkKind kind);
    void OnShownChanged(MarkKind kind, bool on);
    void OpenFlag(const MarkFlag& flag);
    void OpenMenu(const FlagMenuRequest& request);
    [[nodiscard]] bool IsNeeded(MarkKind kind) const;
    [[nodiscard]] site::PanelFilter FilterOf(MarkKind kind) const;
    [[nodiscard]] std::vector<IssueName> IssuesOf(const QString& group, qint32 markId) const;
    [[nodiscard]] QString SettingName() const;

    Parts m_parts;
    QString m_keptAs;   ///< setting of what the panel shows; empty: nothing is open
    QString m_keptText; ///< what that setting holds
    QTimer m_keeping;
    std::map<MarkKind, LastRead> m_lastReads;
    std::shared_ptr<void> m_changes; ///< of the open site
    QTimer m_rereading;
};

} // namespace host
