// Components of the model in the database.
#pragma once

#include "site/IComponents.h"

namespace site {

class Database;

class Components final : public IComponents {
public:
    explicit Components(Database& owner) : m_database(owner) {}

    [[nodiscard]] std::vector<Component> OnFloor(qint32 ppid, const QString& floor) override;
    [[nodiscard]] std::optional<Component> Find(qint32 ppid, const QString& floor,
                                                const QString& handle) override;

private:
    Database& m_database;
};

/// Inside of a transaction.
void WriteComponent(Database& database, const Component& component);

} // namespace site
