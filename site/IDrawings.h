// The drawings of a project, and the checkpoints as they lie on them.
#pragma once

#include "site/Records.h"

#include <QString>

#include <optional>
#include <vector>

namespace site {

struct DrawingEntry {
    qint32 id = 0;
    qint32 ppid = 0;
    QString name;
    QString fileUuid; ///< of its PDF; empty: it has none
    int pages = 0;    ///< 0: not known
    int checkpoints = 0;
    Revision revision{};
};

/// A point of a drawing: page from 0 on, thousandths of the page's width and height from its upper
/// left corner.
struct DrawingPlace {
    int page = 0;
    qint64 x = 0;
    qint64 y = 0;
    bool operator==(const DrawingPlace& other) const = default;
};

/// A checkpoint as it stands on its drawing.
struct CheckpointFlag {
    qint32 id = 0;
    qint32 number = 0;
    DrawingPlace place;
    qint32 markId = 0;
    QString markName;     ///< empty for one that the table doesn't have
    qint32 markColor = 0; ///< 0xBBGGRR
    int shownPhotos = 0;
    int photos = 0; ///< hidden ones too
    int comments = 0;
    bool hasVoice = false;
    Revision revision{};
};

/// Removing is the bin's (IBin.h), filing a drawing the intake's (IIntake.h). Operations throw
/// DataError; changes are one transaction each. Thread: the site's.
class IDrawings {
public:
    virtual ~IDrawings() = default;

    /// In the order of filing.
    [[nodiscard]] virtual std::vector<DrawingEntry> List(qint32 ppid) = 0;
    /// Nothing for one of none of the projects, here and below.
    [[nodiscard]] virtual std::optional<DrawingEntry> Drawing(const Projects& projects,
                                                              qint32 drawingId) = 0;
    [[nodiscard]] virtual std::optional<DrawingEntry> DrawingOf(const Projects& projects,
                                                                qint32 checkpointId) = 0;
    /// By number.
    [[nodiscard]] virtual std::optional<std::vector<CheckpointFlag>> Flags(const Projects& projects,
                                                                           qint32 drawingId) = 0;

    /// Photos, lists and searches have the new name too. Refused for an empty name and for one that
    /// another drawing of the project bears.
    /// @param seen  the state that the person saw; none: whatever was before is overwritten.
    [[nodiscard]] virtual Saved Rename(const Projects& projects, qint32 drawingId,
                                       const QString& name, const Signature& by,
                                       std::optional<Revision> seen = {}) = 0;
    /// Refused for a place beyond the drawing and for a number that the drawing has.
    /// @param number  0 or less: the next one, which no checkpoint of the drawing ever had.
    [[nodiscard]] virtual std::optional<CheckpointFlag>
    AddCheckpoint(const Projects& projects, qint32 drawingId, const DrawingPlace& place,
                  qint32 number, const Signature& by) = 0;
    /// Refused for a place beyond the drawing. @param seen  as for Rename.
    [[nodiscard]] virtual Saved MoveCheckpoint(const Projects& projects, qint32 checkpointId,
                                               const DrawingPlace& place, const Signature& by,
                                               std::optional<Revision> seen = {}) = 0;
};

} // namespace site
