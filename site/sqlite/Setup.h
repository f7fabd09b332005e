// The setup of a data folder.
#pragma once

#include "site/ISetup.h"

namespace site {

class Database;

class Setup final : public ISetup {
public:
    explicit Setup(Database& database) : m_database(database) {}

    [[nodiscard]] SetupState Read(const Projects& grids) override;
    [[nodiscard]] SetupOutcome Apply(const SetupState& seen, const SetupState& wanted,
                                     const Signature& by) override;
    [[nodiscard]] QString UsesOf(SetupList list, qint32 id) override;
    [[nodiscard]] QString UsesOfFloor(qint32 ppid, const QString& floor) override;
    [[nodiscard]] QString UsesOfCrossing(const QString& positionKey) override;

private:
    Database& m_database;
};

} // namespace site
