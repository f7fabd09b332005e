// The words of the sample site: who, where, and what is to be seen.
#pragma once

#include "sample/Dice.h"
#include "sample/scenes/SceneKinds.h"

#include <QString>

#include <span>
#include <vector>

namespace sample {

struct SamplePerson {
    QString name;
    std::vector<qint32> rights;
};
struct SampleMark {
    qint32 id = 0;
    QString name;
    qint32 color = 0; ///< 0xBBGGRR
};
struct SampleProject {
    QString name;
    qint32 major = 1;
    qint32 lowestFloor = -1; ///< floors are numbered without 0
    qint32 highestFloor = 1;
    int columns = 9; ///< X axes 1 to columns
    int rows = 6;    ///< Y axes from A
};
struct SampleComponent {
    QString name;
    QString subName;
};

/// Right numbers: 5 labels, 21 edit, 22 delete, 38 show and hide. The first has all of them.
[[nodiscard]] const std::vector<SamplePerson>& SamplePeople();
[[nodiscard]] const std::vector<SampleMark>& SampleMarks();
/// In no mark table: photos may still bear it.
inline constexpr qint32 kUnknownMark = 99;
[[nodiscard]] const std::vector<SampleProject>& SampleProjects();
[[nodiscard]] const std::vector<QString>& SampleLabels();
[[nodiscard]] const std::vector<SampleComponent>& SampleComponents();
[[nodiscard]] QString SampleWorkset();
/// The floor that is no number.
[[nodiscard]] QString RoofFloor();

/// A finding that fits the scene: a few words, as in a caption or a file name.
[[nodiscard]] QString Finding(SceneKind kind, Dice& dice);
/// One to three sentences about a finding.
[[nodiscard]] QString Elaborate(const QString& finding, Dice& dice);
/// What was done about it.
[[nodiscard]] QString Remedy(Dice& dice);

} // namespace sample
