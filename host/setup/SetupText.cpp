#include "host/setup/SetupText.h"

#include "host/setup/AxisList.h"
#include "host/setup/SetupRoles.h"
#include "host/setup/SetupTables.h"
#include "sheets/SheetText.h"

#include <QHash>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kLineEnd = "\r\n";

QString Listed(const std::vector<QString>& names) {
    return QStringList(names.begin(), names.end()).join(u'、');
}

/// One cell, or one for each project if a name would be taken for several.
QStringList WorksetCells(const std::vector<QString>& projects) {
    const bool isPlain = std::all_of(projects.begin(), projects.end(), [](const QString& name) {
        return ListedParts(name) == QStringList{name};
    });
    return isPlain ? QStringList{Listed(projects)} : QStringList(projects.begin(), projects.end());
}

QString FlagText(bool isSo) {
    return isSo ? u"是"_s : QString();
}

/// Writes tables one after the other.
class SetupWords final {
public:
    [[nodiscard]] QByteArray Take() { return std::move(m_bytes); }

    void Note(const QString& text) { m_bytes += "# " + text.toUtf8() + kLineEnd; }
    /// With so many of the captions; none: all.
    void Begin(SetupTable table, qsizetype captions = 0) {
        const SetupTableForm& form = FormOf(table);
        m_bytes += kLineEnd + ("[" + form.name.toUtf8()) + "]" + kLineEnd;
        Row(captions == 0 ? form.captions : form.captions.first(captions));
    }
    void Row(const QStringList& cells) {
        for (qsizetype i = 0; i < cells.size(); ++i) {
            if (i > 0) {
                m_bytes += ',';
            }
            Cell(cells[i], i == 0);
        }
        m_bytes += kLineEnd;
    }

private:
    /// What would begin a section or say nothing stands in quotes.
    void Cell(const QString& text, bool isFirst) {
        static constexpr QStringView kSigns = u"#[［";
        if (isFirst && !text.isEmpty() && kSigns.contains(text.front())) {
            m_bytes += '"' + QString(text).replace(u'"', u"\"\""_s).toUtf8() + '"';
        } else if (text.contains(u';') || text.contains(u'\t')) {
            m_bytes += '"' + QString(text).replace(u'"', u"\"\""_s).toUtf8() + '"';
        } else {
            sheets::AppendCsvText(text, m_bytes);
        }
    }

    QByteArray m_bytes{"\xEF\xBB\xBF"};
};

QString ColorWord(qint32 color) {
    return u"#%1%2%3"_s.arg(color & 0xFF, 2, 16, QChar(u'0'))
        .arg(color >> 8 & 0xFF, 2, 16, QChar(u'0'))
        .arg(color >> 16 & 0xFF, 2, 16, QChar(u'0'))
        .toUpper();
}

QStringList PersonRow(const site::SetupPerson& person) {
    QStringList words;
    for (const auto& [right, word] : RightNames()) {
        if (std::find(person.rights.begin(), person.rights.end(), right) != person.rights.end()) {
            words << word;
        }
    }
    const auto role = std::find_if(Roles().begin(), Roles().end(), [&person](const auto& each) {
        return each.rights == person.rights;
    });
    if (role != Roles().end()) {
        return {person.name, role->name, {}, FlagText(!person.active)};
    }
    // Rights that no table can name are nobody's here; without any others it is a viewer's line.
    return {person.name, words.isEmpty() ? Roles().back().name : QString(), words.join(u'、'),
            FlagText(!person.active)};
}

/// Crossings of one or more floors: all of these X axes with all of these Y axes.
struct AxisBlock {
    QStringList axesX;
    QStringList axesY;

    bool operator==(const AxisBlock&) const = default;
};

std::vector<AxisBlock> BlocksOf(const std::vector<const site::SetupCrossing*>& crossings) {
    QStringList order;
    QHash<QString, QStringList> byX;
    for (const site::SetupCrossing* crossing : crossings) {
        if (!byX.contains(crossing->axisX)) {
            order << crossing->axisX;
        }
        byX[crossing->axisX] << crossing->axisY;
    }
    std::vector<AxisBlock> blocks;
    for (const QString& axisX : order) {
        if (!blocks.empty() && blocks.back().axesY == byX[axisX]) {
            blocks.back().axesX << axisX;
        } else {
            blocks.push_back({{axisX}, byX[axisX]});
        }
    }
    return blocks;
}

bool IsPlainBlock(const AxisBlock& block) {
    return std::all_of(block.axesX.begin(), block.axesX.end(), IsPlainAxis) &&
           std::all_of(block.axesY.begin(), block.axesY.end(), IsPlainAxis);
}

bool IsPlainFloor(const QString& floor) {
    return ListedParts(floor) == QStringList{floor};
}

/// Floors that are alike, in one row for each block.
struct FloorBlocks {
    QStringList floors;
    std::vector<AxisBlock> blocks;
};

/// What fits into lists; the others go to `single`.
std::vector<FloorBlocks> AxesOf(const site::SetupGrid& grid,
                                std::vector<const site::SetupCrossing*>& single) {
    QHash<QString, std::vector<const site::SetupCrossing*>> byFloor;
    for (const site::SetupCrossing& crossing : grid.crossings) {
        if (crossing.valid) {
            byFloor[crossing.floor].push_back(&crossing);
        }
    }
    std::vector<FloorBlocks> all;
    for (const site::SetupFloor& floor : grid.floors) {
        const auto& crossings = byFloor[floor.name];
        std::vector<AxisBlock> blocks = BlocksOf(crossings);
        if (!IsPlainFloor(floor.name) || !std::all_of(blocks.begin(), blocks.end(), IsPlainBlock)) {
            single.insert(single.end(), crossings.begin(), crossings.end());
        } else if (!all.empty() && all.back().blocks == blocks) {
            all.back().floors << floor.name;
        } else if (!blocks.empty()) {
            all.push_back({{floor.name}, std::move(blocks)});
        }
    }
    return all;
}

void WriteGrids(const site::SetupState& state, SetupWords& words) {
    words.Begin(SetupTable::Floor);
    for (const site::SetupGrid& grid : state.grids) {
        for (const site::SetupFloor& floor : grid.floors) {
            words.Row({grid.project, floor.name});
        }
    }
    words.Begin(SetupTable::Axes);
    std::vector<std::pair<QString, std::vector<const site::SetupCrossing*>>> single;
    for (const site::SetupGrid& grid : state.grids) {
        single.push_back({grid.project, {}});
        for (const FloorBlocks& alike : AxesOf(grid, single.back().second)) {
            for (const AxisBlock& block : alike.blocks) {
                words.Row({grid.project, alike.floors.join(u'、'), block.axesX.join(u'、'),
                           block.axesY.join(u'、')});
            }
        }
    }
    words.Begin(SetupTable::Crossing);
    for (const auto& [project, crossings] : single) {
        for (const site::SetupCrossing* crossing : crossings) {
            words.Row({project, crossing->floor, crossing->axisX, crossing->axisY});
        }
    }
}

} // namespace

QByteArray SetupTextOf(const site::SetupState& state) {
    SetupWords words;
    words.Note(
        u"设置文件。每张表以 [表名] 开头，下一行是表头，再下面每行一条；# 开头的行是说明。"_s);
    words.Note(u"只新增和修改，不删除没有写到的内容。"_s);
    words.Note(u"楼层从低到高；轴网可以写范围，例如楼层 全部，X轴 1-12，Y轴 A-H。"_s);
    words.Begin(SetupTable::Project);
    for (const site::SetupProject& project : state.projects) {
        const bool isKnown = project.major >= 1 && project.major <= TradeNames().size();
        words.Row({project.name, isKnown ? TradeNames()[project.major - 1] : QString(),
                   FlagText(project.archived)});
    }
    words.Begin(SetupTable::Workset);
    for (const site::SetupWorkset& workset : state.worksets) {
        for (const QString& projects : WorksetCells(workset.projects)) {
            words.Row({workset.name, projects, FlagText(workset.archived)});
        }
    }
    words.Begin(SetupTable::Person);
    for (const site::SetupPerson& person : state.people) {
        words.Row(PersonRow(person));
    }
    words.Begin(SetupTable::Mark, column::kMarkNumber);
    for (const site::SetupMark& mark : state.marks) {
        words.Row({mark.name, ColorWord(mark.color)});
    }
    words.Begin(SetupTable::Label);
    for (const site::SetupLabel& label : state.labels) {
        words.Row({label.name});
    }
    WriteGrids(state, words);
    words.Begin(SetupTable::Drawing);
    return words.Take();
}

} // namespace host
