#include "site/sqlite/FilingTable.h"

#include "site/sqlite/Database.h"

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kKeptFilings = 100'000;

} // namespace

void FilingTable::Note(Database& database, ChangeKind kind, qint32 ppid, qint64 id) {
    database.Exec(u"INSERT INTO filing (kind, ppid, object, opening) VALUES (?, ?, ?, ?)"_s,
                  {static_cast<int>(kind), ppid, id, database.Log().Opening()});
}

void FilingTable::Trim(Database& database) {
    if (database.Value(u"SELECT max(seq) - min(seq) FROM filing"_s).toLongLong() <
        2 * kKeptFilings) {
        return;
    }
    Transaction transaction(database);
    database.Exec(u"DELETE FROM filing WHERE seq <= (SELECT max(seq) FROM filing) - ?"_s,
                  {kKeptFilings});
    transaction.Commit();
}

qint64 FilingTable::Newest() {
    return m_database.Value(u"SELECT seq FROM sqlite_sequence WHERE name = 'filing'"_s)
        .toLongLong();
}

IFilings::Next FilingTable::After(qint64 mark, int most) {
    const ReadScope snapshot(m_database);
    Next next{{}, mark};
    m_database.ForEach(u"SELECT seq, kind, ppid, object, opening FROM filing WHERE seq > ?"
                       " ORDER BY seq LIMIT ?"_s,
                       {mark, most}, [&](const Statement& row) {
                           const Line line{row.Int64(0), static_cast<ChangeKind>(row.Int(1)),
                                           row.Int(2), row.Int64(3), row.Int64(4)};
                           Filing filing;
                           next.mark = line.seq;
                           if (Read(line, filing)) {
                               next.filings.push_back(std::move(filing));
                           }
                       });
    return next;
}

Filings FilingTable::Latest(const Projects& projects, const SeqRange& range, int most) {
    const ReadScope snapshot(m_database);
    Filings filings;
    Statement lines(m_database, u"SELECT seq, kind, ppid, object, opening FROM filing"
                                " WHERE seq BETWEEN ? AND ? ORDER BY seq DESC"_s);
    lines.Run({range.first, range.last});
    while (static_cast<int>(filings.size()) < most && lines.Next()) {
        const Line line{lines.Int64(0), static_cast<ChangeKind>(lines.Int(1)), lines.Int(2),
                        lines.Int64(3), lines.Int64(4)};
        Filing filing;
        if (Has(projects, line.ppid) && Read(line, filing)) {
            filings.push_back(std::move(filing));
        }
    }
    return filings;
}

int FilingTable::Count(const Projects& projects, const std::vector<SeqRange>& ranges, int most) {
    const ReadScope snapshot(m_database);
    int count = 0;
    for (const SeqRange& range : ranges) {
        if (count < most) {
            count += CountIn(projects, range, most - count);
        }
    }
    return count;
}

int FilingTable::CountIn(const Projects& projects, const SeqRange& range, int most) {
    Statement lines(m_database,
                    u"SELECT ppid FROM filing WHERE seq BETWEEN ? AND ? AND CASE kind WHEN ?"
                    " THEN EXISTS (SELECT 1 FROM bim_photo WHERE id = object)"
                    " ELSE EXISTS (SELECT 1 FROM issue WHERE id = object) END"_s);
    lines.Run({range.first, range.last, static_cast<int>(ChangeKind::BimPhoto)});
    int count = 0;
    while (count < most && lines.Next()) {
        count += Has(projects, lines.Int(0)) ? 1 : 0;
    }
    return count;
}

bool FilingTable::Read(const Line& line, Filing& filing) {
    filing.seq = line.seq;
    filing.kind = line.kind;
    filing.byThisSite = line.opening == m_database.Log().Opening();
    return line.kind == ChangeKind::BimPhoto ? ReadPhoto(line.id, filing)
                                             : ReadIssue(line.id, filing);
}

bool FilingTable::ReadPhoto(qint64 id, Filing& filing) {
    m_database.ForEach(u"SELECT ppid, name, uploader, uploaded, file_uuid, floor, pos_text,"
                       " position_key, mark_id FROM bim_photo WHERE id = ?"_s,
                       {id}, [&](const Statement& row) {
                           filing.picId = static_cast<qint32>(id);
                           filing.ppid = row.Int(0);
                           filing.name = row.Text(1);
                           filing.person = row.Text(2);
                           filing.at = row.Int64(3);
                           filing.uuid = row.Text(4);
                           filing.floor = row.Text(5);
                           filing.posText = row.Text(6);
                           filing.positionKey = row.Text(7);
                           filing.markId = row.Int(8);
                       });
    m_database.ForEach(u"SELECT l.name FROM bim_label b JOIN label l ON l.id = b.label_id"
                       " WHERE b.photo_id = ? ORDER BY l.id"_s,
                       {id}, [&](const Statement& row) { filing.labels.push_back(row.Text(0)); });
    return filing.picId != 0;
}

bool FilingTable::ReadIssue(qint64 id, Filing& filing) {
    m_database.ForEach(u"SELECT ppid, theme, creator, created, question_id, floor, pos_info,"
                       " component_handle, component_name, mark_id FROM issue WHERE id = ?"_s,
                       {id}, [&](const Statement& row) {
                           filing.ppid = row.Int(0);
                           filing.name = row.Text(1);
                           filing.person = row.Text(2);
                           filing.at = row.Int64(3);
                           filing.questionId = row.Text(4);
                           filing.floor = row.Text(5);
                           filing.posText = row.Text(6);
                           filing.handle = row.Text(7);
                           filing.componentName = row.Text(8);
                           filing.markId = row.Int(9);
                       });
    filing.uuid = m_database
                      .Value(u"SELECT thumb_uuid FROM issue_pic WHERE issue_id = ?"
                             " AND rectification = 0 ORDER BY id LIMIT 1"_s,
                             {id})
                      .toString();
    return !filing.questionId.isEmpty();
}

} // namespace site
