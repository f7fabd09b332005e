// What the settings window asks the client for.
#pragma once

#include "site/ISetup.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace host {

struct SetupDrawing {
    qint32 id = 0;
    QString name;
};

/// What a file or a pasted table makes of a draft.
struct SetupReading {
    /// As the site has them, of projects that the draft had none of, with their names there.
    std::vector<std::pair<site::SetupGrid, QString>> grids;
    site::SetupState wanted;
    QStringList changes; ///< in words, one line each
    QStringList faults;  ///< with table and line; with any the state isn't to be taken
};

/// Where the window gets the setup and hands it back. What fails is told by the host itself, in its
/// messages. Thread: user interface.
class ISetupDesk {
public:
    virtual ~ISetupDesk() = default;

    /// Without grids. Nothing: it could not be read.
    [[nodiscard]] virtual std::optional<site::SetupState> Read() = 0;
    [[nodiscard]] virtual std::optional<site::SetupGrid> ReadGrid(qint32 ppid) = 0;
    /// Nothing: it could not be saved.
    [[nodiscard]] virtual std::optional<site::SetupOutcome>
    Save(const site::SetupState& seen, const site::SetupState& wanted) = 0;
    /// What uses a saved entry; empty: nothing does. Nothing: that could not be found out.
    [[nodiscard]] virtual std::optional<QString> Uses(site::SetupList list, qint32 id) = 0;
    [[nodiscard]] virtual std::optional<QString> FloorUses(qint32 ppid, const QString& floor) = 0;
    [[nodiscard]] virtual std::optional<QString> CrossingUses(const QString& positionKey) = 0;

    /// A setup file, read over a draft.
    [[nodiscard]] virtual SetupReading ReadFile(const QString& path,
                                                const site::SetupState& draft) = 0;
    /// A pasted table of one list; `project` is whose floors and crossings they are where the table
    /// doesn't say it.
    [[nodiscard]] virtual SetupReading ReadText(const QString& text, site::SetupList list,
                                                const QString& project,
                                                const site::SetupState& draft) = 0;
    /// The saved setup as a file of the form that is read; the fault, or nothing.
    [[nodiscard]] virtual QString WriteFile(const QString& path) = 0;

    [[nodiscard]] virtual std::vector<SetupDrawing> Drawings(qint32 ppid) = 0;
    /// Both act at once. Refused with a sentence while checkpoints lie on it; empty: removed.
    [[nodiscard]] virtual QString RemoveDrawing(qint32 ppid, qint32 drawingId) = 0;
    virtual void ImportDrawings(qint32 ppid, const QStringList& paths) = 0;
};

} // namespace host
