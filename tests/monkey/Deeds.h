// What the monkey does, by seed and number alone.
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace monkey {

enum class Kind {
    Click,
    RightClick,
    DoubleClick,
    Cell, ///< clicks or double-clicks a cell of a table, list or tree
    Flag, ///< clicks a flag of the plan
    Hover,
    Wheel,
    Drag,
    Type,
    Edit, ///< clicks into a field and types a little
    Key,
    Shortcut, ///< a command of the main window by its key
    Close,
    Resize,
    Move,
    Minimise,
    Maximise,
    Restore,
    Activate,
    Project,   ///< another project or workset
    Neighbour, ///< another client changes something
    Transfers, ///< slow, failing or hanging ones, or good ones again
    Drop,      ///< files dropped on the main window
    Wait,      ///< time for timers
};

inline constexpr int kDice = 8;

/// One thing that is done. The dice choose among what is there when it is done, so that a deed
/// stays much the same in a world that is a little different.
struct Deed {
    int number = 0;
    Kind kind = Kind::Click;
    std::array<quint32, kDice> dice{};

    /// 0 <= Of < sides, by the die at an index; 0 of no sides.
    [[nodiscard]] int Of(int die, qsizetype sides) const;
    /// True in so many of a hundred cases.
    [[nodiscard]] bool Chance(int die, int percent) const;
};

/// The deed at a number from 1 on. Thread: any.
[[nodiscard]] Deed DeedAt(quint64 seed, int number);

struct KindRow {
    Kind kind;
    QString name;
    int weight; ///< how often, beside the others
};
[[nodiscard]] const std::vector<KindRow>& KindTable();
[[nodiscard]] QString NameOf(Kind kind);

/// What is typed: short, long, Chinese, with signs that mean something to somebody.
[[nodiscard]] const QStringList& Texts();

/// Little that fits into fields of dates and numbers too.
[[nodiscard]] const QStringList& ShortTexts();

struct KeyPress {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};
/// Keys that somebody may hear.
[[nodiscard]] const std::vector<KeyPress>& Keys();

/// "3-5,9" as numbers; false for words that make no sense.
[[nodiscard]] bool ReadNumbers(const QString& words, std::vector<int>& numbers);

} // namespace monkey
