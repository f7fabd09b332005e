// What a setup file says, before anybody asks whether it can be so.
#pragma once

#include "sheets/TableSheet.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace host {

/// The tables of a setup file, in the order in which they are read.
enum class SetupTable { Project, Workset, Person, Mark, Label, Floor, Axes, Crossing, Drawing };
inline constexpr size_t kSetupTables = 9;

/// Places of the columns in `SetupTableForm::captions`.
namespace column {
inline constexpr int kName = 0; ///< of projects, worksets, people, marks and labels
inline constexpr int kProjectMajor = 1;
inline constexpr int kProjectArchived = 2;
inline constexpr int kWorksetProjects = 1;
inline constexpr int kWorksetArchived = 2;
inline constexpr int kPersonRole = 1;
inline constexpr int kPersonRights = 2;
inline constexpr int kPersonBlocked = 3;
inline constexpr int kMarkColor = 1;
inline constexpr int kMarkNumber = 2;
inline constexpr int kProject = 0; ///< of floors, axes, crossings and drawings
inline constexpr int kFloor = 1;
inline constexpr int kAxisX = 2;
inline constexpr int kAxisY = 3;
inline constexpr int kDrawingFile = 1;
inline constexpr int kDrawingName = 2;
} // namespace column

struct SetupTableForm {
    QString name;
    QStringList captions;
    std::vector<int> needed; ///< columns that a table of this kind always has
};
[[nodiscard]] const SetupTableForm& FormOf(SetupTable table);
/// "工程、工作集、...".
[[nodiscard]] QString SetupTableNames();

struct SetupRow {
    int line = 0;
    std::vector<QString> cells; ///< by the places above, tidy; empty where the table has no column
    unsigned columns = 0;       ///< those that the table has, a bit each

    [[nodiscard]] const QString& Cell(int place) const { return cells[size_t(place)]; }
    [[nodiscard]] bool Has(int place) const { return (columns >> unsigned(place) & 1U) != 0; }
};

/// One line that can't be taken.
struct SetupLineFault {
    QString table; ///< its name; empty: of the whole file
    int line = 0;  ///< 0: of the whole table
    QString text;  ///< Chinese

    bool operator==(const SetupLineFault&) const = default;
};
/// "楼层 第 7 行：..."
[[nodiscard]] QString TextOf(const SetupLineFault& fault);
/// A fault of a reader, as one of a table.
[[nodiscard]] SetupLineFault LineFaultOf(const QString& table, const sheets::TableFault& fault);

struct SetupTables {
    std::array<std::vector<SetupRow>, kSetupTables> rows; ///< by SetupTable
    std::vector<SetupLineFault> faults;
    /// Whose floors, axes, crossings and drawings are meant where a line doesn't say it; empty: of
    /// the only project that there is.
    QString project;

    [[nodiscard]] const std::vector<SetupRow>& Rows(SetupTable table) const {
        return rows[size_t(table)];
    }
};

enum class Captions { Needed, MayLack };

/// Adds the rows of one table; what is wrong with its captions is told.
///
/// @param captions  MayLack: a first row without any known caption is one of the table's own, its
///                  columns are then all of the form, in their order; of floors, axes and
///                  crossings the project may be left out.
void AddSetupTable(SetupTable table, const sheets::TableSheet& sheet, Captions captions,
                   SetupTables& tables);

} // namespace host
