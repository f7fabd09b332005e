// What may stand in the lists of a site, whatever they are typed into or read from.
#pragma once

#include "site/SetupState.h"

namespace site {

inline constexpr int kMostNameLetters = 60;
inline constexpr int kMostAxisLetters = 20;

/// One entry that can't be taken.
struct SetupFault {
    SetupList list = SetupList::Project;
    /// Of the entry in its list; of floors and crossings in their grid's.
    int at = 0;
    QString project; ///< of floors and crossings
    QString text;    ///< Chinese, a whole sentence that names the entry

    bool operator==(const SetupFault&) const = default;
};

/// Empty, long, doubled names and such with control characters or blanks at an end; worksets of
/// unknown projects or of none; people whose name code page 936 lacks letters for; nobody left who
/// may set up; colours and trades out of range; crossings of unknown floors, doubled or with one
/// axis only. In the order of the lists, for whatever entry. Thread: any.
[[nodiscard]] std::vector<SetupFault> FaultsOf(const SetupState& wanted);
/// Without those of entries that `seen` has too: editors, imports and older sites know no such
/// rules, and what came from them mustn't keep anybody from changing the rest.
[[nodiscard]] std::vector<SetupFault> FaultsOf(const SetupState& seen, const SetupState& wanted);

/// Signs in and has the right to set up.
[[nodiscard]] bool MaySetUp(const SetupPerson& person);

/// A name as it is stored: without blanks at its ends, composed (Unicode NFC).
[[nodiscard]] QString TidyName(const QString& name);

} // namespace site
