// What others filed since the person last looked, and what of it was read.
#pragma once

#include "host/reminders/SeqSet.h"

#include <QObject>
#include <QString>
#include <QTimer>

namespace host {

class HostSession;

/// Kept in the site for each person, a moment after each change; two clients of one person add up.
/// For a person who never had it everything so far is known. The list reaches back to the oldest
/// one that is unread as it begins. Operations that ask the site throw DataError.
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

    [[nodiscard]] bool IsRead(qint64 seq) const { return m_read.Has(seq); }
    /// This client filed it: neither listed nor counted.
    void TakeOwn(qint64 seq);
    void MarkRead(qint64 seq);
    /// Up to this number, also what isn't listed yet.
    void MarkAllRead(qint64 upTo);
    /// Writes what isn't kept yet; a fault leaves it for the next time.
    void Keep();

private:
    [[nodiscard]] QString SettingName() const;
    /// Adds what is kept in the site, by this client or another one of the person.
    void TakeKept(const QString& text);

    HostSession& m_session;
    SeqSet m_read; ///< one's own among them
    SeqSet m_own;
    qint64 m_from = 0; ///< the list begins behind it
    QTimer m_keeping;
};

} // namespace host
