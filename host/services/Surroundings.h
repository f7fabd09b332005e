// What the services of a program work on: its session, and what it lends them.
#pragma once

#include "host/session/SessionDesk.h"
#include "site/ListFilter.h"

#include <QString>

#include <functional>
#include <memory>
#include <mutex>

namespace KX_DATA {
class IExProgress;
class IKXProgressStrip;
class IKXView;
} // namespace KX_DATA

namespace PIC_REPORT {
class IPicReportCtrl;
} // namespace PIC_REPORT

namespace site {
class ITransferWait;
} // namespace site

namespace host {

class HostSession;
struct DoneDeed;

/// Nothing in it is owned. Thread: user interface, except where said.
class Surroundings final {
public:
    /// Until the next call; null: none.
    void SetSession(HostSession* session);
    /// Null while there is none.
    [[nodiscard]] HostSession* Session() const { return m_session; }
    /// The session's, null while there is none. Thread: any.
    [[nodiscard]] std::shared_ptr<SessionDesk> Desk() const;

    /// What a service said when it last refused; empty if none did. Thread: any.
    void NoteRefusal(const QString& text) const;
    [[nodiscard]] QString LastRefusal() const;

    /// Null while there is none, as the four below.
    KX_DATA::IKXView* view = nullptr;
    KX_DATA::IExProgress* progress = nullptr;
    KX_DATA::IKXProgressStrip* strip = nullptr;
    site::ITransferWait* transferWait = nullptr;
    PIC_REPORT::IPicReportCtrl* reports = nullptr;
    /// Folder of the module's fixed images; empty: the site's work folder.
    QString imageFolder;
    bool remindOfIssues = true;
    /// Is told how messages begin that no longer hold.
    std::function<void(const QString& beginning)> withdraw;
    /// Is told each question for a page of a list, before it is asked: the console alone has any.
    std::function<void(site::ListKind, const site::ListFilter&, const site::ListOrder&)> listAsked;
    /// Is told what was deleted, hidden or shown, once it is done.
    std::function<void(const DoneDeed&)> deedDone;

private:
    HostSession* m_session = nullptr;
    mutable std::mutex m_lock; ///< guards what follows
    std::shared_ptr<SessionDesk> m_desk;
    mutable QString m_lastRefusal;
};

} // namespace host
