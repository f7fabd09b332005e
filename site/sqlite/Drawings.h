// Drawings and where their checkpoints lie, in the database.
#pragma once

#include "site/IDrawings.h"

namespace site {

class Database;
class Statement;
struct NewCheckpoint;

class Drawings final : public IDrawings {
public:
    explicit Drawings(Database& owner) : m_database(owner) {}

    [[nodiscard]] std::vector<DrawingEntry> List(qint32 ppid) override;
    [[nodiscard]] std::optional<DrawingEntry> Drawing(const Projects& projects,
                                                      qint32 drawingId) override;
    [[nodiscard]] std::optional<DrawingEntry> DrawingOf(const Projects& projects,
                                                        qint32 checkpointId) override;
    [[nodiscard]] std::optional<std::vector<CheckpointFlag>> Flags(const Projects& projects,
                                                                   qint32 drawingId) override;
    [[nodiscard]] Saved Rename(const Projects& projects, qint32 drawingId, const QString& name,
                               const Signature& by, std::optional<Revision> seen) override;
    [[nodiscard]] std::optional<CheckpointFlag>
    AddCheckpoint(const Projects& projects, qint32 drawingId, const DrawingPlace& place,
                  qint32 number, const Signature& by) override;
    [[nodiscard]] Saved MoveCheckpoint(const Projects& projects, qint32 checkpointId,
                                       const DrawingPlace& place, const Signature& by,
                                       std::optional<Revision> seen) override;

private:
    [[nodiscard]] std::optional<CheckpointFlag> FlagOf(qint32 checkpointId);
    [[nodiscard]] qint32 NextNumber(qint32 drawingId);

    Database& m_database;
};

/// Inside of a transaction, for a drawing that is there, and with labels that are. Returns the id,
/// which no checkpoint ever had.
qint32 InsertCheckpoint(Database& database, const NewCheckpoint& checkpoint);
/// Inside of a transaction. Throws Refused, with a sentence, for a name that is empty or that
/// another drawing of the project than this one bears.
void RequireDrawingName(Database& database, qint32 ppid, const QString& name, qint32 drawingId = 0);
/// The next id of the table of drawings or of checkpoints; those that are gone don't come again.
[[nodiscard]] qint64 NextIdOf(Database& database, const QString& table);

} // namespace site
