// What a connection wrote into the table of changes, and what it has seen of it.
#pragma once

#include "site/DataError.h"
#include "site/IChanges.h"
#include "site/Records.h"

#include <QString>

#include <functional>
#include <initializer_list>
#include <map>
#include <utility>
#include <vector>

namespace site {

class Database;

/// A transaction notes what it changes and its commit writes that down with it: each record once,
/// and of very many records of a kind and project one line for all. A change that nobody noted, by
/// another program, counts as one of anything. It is missed if it falls between the same two looks
/// as one that was noted: the engine says that there were commits, not how many. What shows it is
/// right again at the next change of its kind; to count commits, each look would have to read more.
/// Thread: the database's.
class ChangeLog final {
public:
    explicit ChangeLog(Database& owner);

    void SetPerson(const QString& name) { m_person = name; }
    /// Tells its changes from those of other openings of the site.
    void SetOpening(qint64 number) { m_opening = number; }
    [[nodiscard]] qint64 Opening() const { return m_opening; }

    /// Inside of a transaction. `person` where it isn't who is signed in.
    void Note(ChangeKind kind, qint32 ppid, qint64 id, const QString& person = {});

    /// Of the outermost transaction, in this order. What was committed is told at once.
    void Begin();
    void Write();
    void Committed();
    void Undone();

    /// Looks at what was committed since the last call, from inside of the read that it is for.
    void CatchUp();
    /// The same as at an earlier call as long as nothing was committed that concerns these kinds
    /// in these projects. Only after CatchUp.
    [[nodiscard]] quint64 StateOf(std::initializer_list<ChangeKind> kinds,
                                  const Projects& ppids) const;

    /// Is called when CatchUp has found something.
    void SetReader(std::function<void()> reader) { m_reader = std::move(reader); }
    /// What CatchUp found since the last call, in order.
    [[nodiscard]] Changes TakeUntold() { return std::exchange(m_untold, {}); }
    [[nodiscard]] qint64 Seen() const { return m_seen; }
    /// How often others' commits were looked for so far, a statement each.
    [[nodiscard]] qint64 LooksMade() const { return m_looks; }
    /// From now on: what was committed before is no news.
    void StartHere();

    /// Forgets the oldest lines where there are very many.
    void Trim();
    [[nodiscard]] IChanges::Past Since(qint64 mark, int most);

private:
    struct Noted {
        ChangeKind kind;
        qint32 ppid;
        QString person;
        qint64 id;
        bool operator==(const Noted& other) const = default;
    };
    [[nodiscard]] bool HasTable();
    /// Counts the commits of others.
    [[nodiscard]] qint64 Version();
    [[nodiscard]] bool HasNews();
    [[nodiscard]] Changes After(qint64 mark, int most);
    void Mix(const Change& change);
    void AddLine(const Noted& line);

    Database& m_database;
    QString m_person;
    qint64 m_opening = 0;
    bool m_hasTable = false;
    std::vector<Noted> m_noted;
    qint64 m_rowsAtBegin = 0;

    qint64 m_version = -1;  ///< of others' commits, at the last look; -1: look in any case
    qint64 m_accounted = 0; ///< rows that this connection changed and wrote down, or undid
    qint64 m_seen = 0;
    qint64 m_looks = 0;
    quint64 m_count = 0; ///< of all that was found
    quint64 m_anything = 0;
    std::map<std::pair<ChangeKind, qint32>, quint64> m_states;
    Changes m_untold;
    std::function<void()> m_reader;
};

} // namespace site
