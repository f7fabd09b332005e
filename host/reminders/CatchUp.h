// What others filed since the person last looked, and what of it was read.
#pragma once

#include "host/reminders/SeqSet.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <map>

namespace host {

class HostSession;

/// Kept in the site for each person, a moment after each change; two clients of one person add up.
/// Each project has its own: what was read in one says nothing of another. For a person who never
/// had it everything so far is known. The list reaches back to the oldest one of a project that is
/// unread as it begins. Operations that ask the site throw DataError, save those that only note.
/// Thread: user interface.
class CatchUp final : public QObject {
    Q_OBJECT

public:
    /// The session must outlive it, with its site open and a person signed in.
    explicit CatchUp(HostSession& owner);

    /// The list reaches back to the oldest unread one of now.
    void Begin();
    /// Of the open projects, the newest first; only those before this number, at most so many.
    [[nodiscard]] site::Filings Page(qint64 before, int most);
    /// Of the open projects; counts no further than kMostCounted.
    [[nodiscard]] int Unread();
    static constexpr int kMostCounted = 1000;

    [[nodiscard]] bool IsRead(qint32 ppid, qint64 seq);
    /// This client filed it: neither listed nor counted.
    void TakeOwn(qint32 ppid, qint64 seq);
    void MarkRead(qint32 ppid, qint64 seq);
    /// Of the open projects, up to this number, also what isn't listed yet.
    void MarkAllRead(qint64 upTo);
    /// Writes what isn't kept yet; a fault leaves it for the next time.
    void Keep();

private:
    [[nodiscard]] QString SettingName() const;
    /// Adds what is kept in the site, by this client or another one of the person.
    void TakeKept(const QString& text);

    struct Seen {
        SeqSet read; ///< one's own among them
        SeqSet own;
        qint64 from = 0; ///< the list begins behind it
    };
    [[nodiscard]] Seen& Of(qint32 ppid);
    [[nodiscard]] QString Text() const;

    HostSession& m_session;
    qint64 m_first = 0; ///< up to here everything was known when the person had none
    std::map<qint32, Seen> m_projects;
    QTimer m_keeping;
};

} // namespace host
