#include "site/sqlite/ChangeLog.h"

#include "site/sqlite/Database.h"

#include <algorithm>
#include <tuple>

namespace site {

using namespace Qt::StringLiterals;

namespace {

/// Of one kind, project and person in one commit; more are one line.
constexpr std::ptrdiff_t kMostLines = 200;
constexpr int kAll = -1;
constexpr qint64 kKeptLines = 100'000;

} // namespace

ChangeLog::ChangeLog(Database& owner) : m_database(owner) {}

bool ChangeLog::HasTable() {
    if (!m_hasTable) {
        m_hasTable = m_database
                         .Value(u"SELECT 1 FROM sqlite_master WHERE type = 'table'"
                                " AND name = 'change'"_s)
                         .isValid();
    }
    return m_hasTable;
}

void ChangeLog::Note(ChangeKind kind, qint32 ppid, qint64 id, const QString& person) {
    m_noted.push_back({kind, ppid, person.isEmpty() ? m_person : person, id});
}

void ChangeLog::Begin() {
    m_noted.clear();
    m_rowsAtBegin = m_database.RowsChanged();
}

void ChangeLog::AddLine(const Noted& line) {
    m_database.Exec(u"INSERT INTO change (kind, ppid, object, person, opening)"
                    " VALUES (?, ?, ?, ?, ?)"_s,
                    {static_cast<int>(line.kind), line.ppid, line.id, line.person, m_opening});
}

void ChangeLog::Write() {
    if (m_database.RowsChanged() == m_rowsAtBegin || !HasTable()) {
        return;
    }
    if (m_noted.empty()) {
        Note(ChangeKind::Other, 0, 0);
    }
    std::sort(m_noted.begin(), m_noted.end(), [](const Noted& first, const Noted& second) {
        return std::tie(first.kind, first.ppid, first.person, first.id) <
               std::tie(second.kind, second.ppid, second.person, second.id);
    });
    m_noted.erase(std::unique(m_noted.begin(), m_noted.end()), m_noted.end());
    const auto isOther = [](const Noted& first, const Noted& second) {
        return first.kind != second.kind || first.ppid != second.ppid ||
               first.person != second.person;
    };
    for (auto from = m_noted.cbegin(); from != m_noted.cend();) {
        const auto to = std::find_if(from, m_noted.cend(),
                                     [&](const Noted& line) { return isOther(*from, line); });
        if (to - from > kMostLines) {
            AddLine({from->kind, from->ppid, from->person, 0});
        } else {
            std::for_each(from, to, [this](const Noted& line) { AddLine(line); });
        }
        from = to;
    }
}

void ChangeLog::Committed() {
    m_version = m_database.RowsChanged() != m_rowsAtBegin ? -1 : m_version;
    Undone();
    try {
        CatchUp();
    } catch (const DataError&) {
        return; // the next question finds it; this one has succeeded
    }
}

void ChangeLog::Undone() {
    m_noted.clear();
    // The engine counts what was undone too.
    m_accounted += m_database.RowsChanged() - m_rowsAtBegin;
}

Changes ChangeLog::After(qint64 mark, int most) {
    Changes changes;
    m_database.ForEach(u"SELECT seq, kind, ppid, object, person, opening FROM change"
                       " WHERE seq > ? ORDER BY seq LIMIT ?"_s,
                       {mark, most}, [&](const Statement& row) {
                           changes.push_back({row.Int64(0), static_cast<ChangeKind>(row.Int(1)),
                                              row.Int(2), row.Int64(3), row.Text(4),
                                              row.Int64(5) == m_opening});
                       });
    return changes;
}

void ChangeLog::Mix(const Change& change) {
    if (change.kind == ChangeKind::Anything) {
        m_anything = m_count;
    }
    m_states[{change.kind, change.ppid}] = m_count;
}

qint64 ChangeLog::Version() {
    ++m_looks;
    return m_database.Value(sqlite::DataVersionSql()).toLongLong();
}

bool ChangeLog::HasNews() {
    return m_database.RowsChanged() != m_accounted || Version() != m_version;
}

void ChangeLog::CatchUp() {
    if (m_database.IsWriting()) {
        // What isn't committed is seen, and may yet be undone: nothing read now can be kept.
        ++m_count;
        m_anything = m_count;
        m_version = -1;
        return;
    }
    if (!HasNews() || !HasTable()) {
        return;
    }
    // A commit between two questions would look, the next time, like one that nobody noted.
    const ReadScope scope(m_database);
    const qint64 version = Version();
    const qint64 own = m_database.RowsChanged();
    Changes found = After(m_seen, kAll);
    if (found.empty() || own != m_accounted) {
        Change unknown;
        unknown.byThisSite = own != m_accounted;
        found.push_back(unknown);
    }
    ++m_count;
    for (const Change& change : found) {
        Mix(change);
        m_seen = std::max(m_seen, change.seq);
    }
    m_untold.insert(m_untold.end(), found.begin(), found.end());
    m_accounted = own;
    m_version = version;
    if (m_reader) {
        m_reader();
    }
}

quint64 ChangeLog::StateOf(std::initializer_list<ChangeKind> kinds, const Projects& ppids) const {
    quint64 state = m_anything;
    for (const ChangeKind kind : kinds) {
        const auto mix = [&](qint32 ppid) {
            const auto found = m_states.find({kind, ppid});
            state = std::max(state, found != m_states.end() ? found->second : 0);
        };
        mix(0);
        std::for_each(ppids.begin(), ppids.end(), mix);
    }
    return state;
}

void ChangeLog::StartHere() {
    const ReadScope scope(m_database);
    if (HasTable()) {
        m_seen = m_database.Value(u"SELECT coalesce(max(seq), 0) FROM change"_s).toLongLong();
    }
    m_accounted = m_database.RowsChanged();
    m_version = Version();
}

void ChangeLog::Trim() {
    const QString span = u"SELECT max(seq) - min(seq) FROM change"_s;
    if (m_database.Value(span).toLongLong() < 2 * kKeptLines) {
        return;
    }
    Transaction transaction(m_database);
    m_database.Exec(u"DELETE FROM change WHERE seq <= (SELECT max(seq) FROM change) - ?"_s,
                    {kKeptLines});
    transaction.Commit();
}

IChanges::Past ChangeLog::Since(qint64 mark, int most) {
    const ReadScope scope(m_database);
    const qint64 newest =
        m_database.Value(u"SELECT seq FROM sqlite_sequence WHERE name = 'change'"_s).toLongLong();
    const QVariant oldest = m_database.Value(u"SELECT min(seq) FROM change"_s);
    const qint64 known = oldest.isNull() ? newest : oldest.toLongLong() - 1;
    return {After(mark, most), known <= mark && mark <= newest};
}

} // namespace site
