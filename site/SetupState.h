// What a site is set up with: the lists that a person makes before anybody photographs.
#pragma once

#include <QString>

#include <vector>

namespace site {

/// Who has it may change what stands here; beside the rights of the services, as the host's own.
inline constexpr qint32 kRightSetup = 90;

/// Of each id: 0 for an entry that is yet to be made. Names are unique in their list.
struct SetupProject {
    qint32 ppid = 0;
    QString name;
    qint32 major = 1;      ///< 1 to 4, the trade
    bool archived = false; ///< kept, but no longer offered

    bool operator==(const SetupProject&) const = default;
};

struct SetupWorkset {
    qint32 id = 0;
    QString name;
    std::vector<QString> projects; ///< their names in the same state; the first is opened first
    bool archived = false;

    bool operator==(const SetupWorkset&) const = default;
};

struct SetupPerson {
    qint32 id = 0;
    QString name; ///< login name; the records that a person signed bear it, so it never changes
    std::vector<qint32> rights; ///< ascending
    bool active = true;         ///< false: may not sign in any more

    bool operator==(const SetupPerson&) const = default;
};

struct SetupMark {
    qint32 id = 0;
    QString name;
    qint32 color = 0; ///< 0xBBGGRR

    bool operator==(const SetupMark&) const = default;
};

struct SetupLabel {
    qint32 id = 0;
    QString name;

    bool operator==(const SetupLabel&) const = default;
};

struct SetupFloor {
    QString name;
    QString was; ///< its name before; empty: a new one

    bool operator==(const SetupFloor&) const = default;
};

/// A crossing of two axes on a floor.
struct SetupCrossing {
    QString positionKey; ///< empty: a new one
    QString floor;       ///< its name in the same state
    QString axisX;
    QString axisY;
    bool valid = true; ///< false: no longer in the model, its photos stay

    bool operator==(const SetupCrossing&) const = default;
};

/// Floors and crossings of one project.
struct SetupGrid {
    QString project;                      ///< its name in the same state
    std::vector<SetupFloor> floors;       ///< in their order, lowest first
    std::vector<SetupCrossing> crossings; ///< by floor, X axis, Y axis; in a wanted state in any

    bool operator==(const SetupGrid&) const = default;
};

struct SetupState {
    std::vector<SetupProject> projects;
    std::vector<SetupWorkset> worksets;
    std::vector<SetupPerson> people;
    std::vector<SetupMark> marks; ///< in the order in which the host lists them
    std::vector<SetupLabel> labels;
    std::vector<SetupGrid> grids; ///< of the projects that were asked for, in their order

    bool operator==(const SetupState&) const = default;
};

/// The lists, for what is said of one.
enum class SetupList { Project, Workset, Person, Mark, Label, Floor, Crossing };

/// "工程", "人员", ...
[[nodiscard]] QString NameOf(SetupList list);

} // namespace site
