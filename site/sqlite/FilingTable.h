// What was filed lately, in the database.
#pragma once

#include "site/IFilings.h"

namespace site {

class Database;

class FilingTable final : public IFilings {
public:
    explicit FilingTable(Database& owner) : m_database(owner) {}

    /// Inside of the transaction that files it.
    static void Note(Database& database, ChangeKind kind, qint32 ppid, qint64 id);
    /// Forgets the oldest where there are very many.
    static void Trim(Database& database);

    [[nodiscard]] qint64 Newest() override;
    [[nodiscard]] Next After(qint64 mark, int most) override;
    [[nodiscard]] Filings Latest(const Projects& projects, const SeqRange& range,
                                 int most) override;
    [[nodiscard]] int Count(const Projects& projects, const std::vector<SeqRange>& ranges,
                            int most) override;

private:
    struct Line {
        qint64 seq = 0;
        ChangeKind kind = ChangeKind::BimPhoto;
        qint32 ppid = 0;
        qint64 id = 0;
        qint64 opening = 0;
    };
    /// False: in the bin, or gone.
    [[nodiscard]] bool Read(const Line& line, Filing& filing);
    [[nodiscard]] bool ReadPhoto(qint64 id, Filing& filing);
    [[nodiscard]] bool ReadIssue(qint64 id, Filing& filing);
    [[nodiscard]] int CountIn(const Projects& projects, const SeqRange& range, int most);

    Database& m_database;
};

} // namespace site
