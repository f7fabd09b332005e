// The counts of a data folder.
#pragma once

#include "site/IStatistics.h"

namespace site {

class Database;

class Statistics final : public IStatistics {
public:
    explicit Statistics(Database& database) : m_database(database) {}

    [[nodiscard]] SiteStatistics Of(ListKind kind, const Projects& projects,
                                    const std::vector<qint64>& bounds) override;

private:
    Database& m_database;
};

} // namespace site
