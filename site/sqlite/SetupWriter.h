// Brings the lists of a site's setup from one state to another.
#pragma once

#include "site/ISetup.h"

#include <map>

namespace site {

class Database;

/// One change, inside of the caller's transaction: each operation is told what was seen of its list
/// and what is wanted. Refusals are collected, what is refused is left as it is; the caller undoes
/// all of it if there are any.
class SetupWriter final {
public:
    SetupWriter(Database& database, Signature by) : m_database(database), m_by(std::move(by)) {}

    /// First of all: grids and worksets name projects.
    void Projects(const std::vector<SetupProject>& seen, const std::vector<SetupProject>& wanted);
    void Worksets(const std::vector<SetupWorkset>& seen, const std::vector<SetupWorkset>& wanted);
    void People(const std::vector<SetupPerson>& seen, const std::vector<SetupPerson>& wanted);
    void Marks(const std::vector<SetupMark>& seen, const std::vector<SetupMark>& wanted);
    void Labels(const std::vector<SetupLabel>& seen, const std::vector<SetupLabel>& wanted);
    void Grid(const SetupGrid& seen, const SetupGrid& wanted);

    [[nodiscard]] const std::vector<QString>& Refusals() const { return m_refusals; }

private:
    void RefuseUsed(SetupList list, const QString& name, const QString& uses,
                    const QString& instead);
    [[nodiscard]] qint32 PpidOf(const QString& project);
    void WriteRights(qint64 personId, const std::vector<qint32>& rights);
    void RenameFloor(qint32 ppid, const SetupFloor& floor, const QString& key);
    void OrderFloors(qint32 ppid, const SetupGrid& seen, const SetupGrid& wanted);
    void RemoveFloors(qint32 ppid, const SetupGrid& seen, const SetupGrid& wanted);
    void RemoveCrossings(const SetupGrid& seen, const SetupGrid& wanted);
    void WriteCrossings(qint32 ppid, const SetupGrid& seen, const SetupGrid& wanted);
    void MoveCrossing(qint32 ppid, const SetupCrossing& crossing);

    Database& m_database;
    const Signature m_by;
    std::vector<QString> m_refusals;
};

} // namespace site
