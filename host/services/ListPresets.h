// What the client asks the console for beyond what it has controls for: a floor, a week, the inbox.
#pragma once

#include "site/ListFilter.h"

#include <QString>

#include <optional>

namespace host {

/// The console carries the texts and numbers of its presets to the services without looking into
/// them; a place has a key of the site, these have keys of the client's own.
struct ListPreset {
    std::optional<qint32> mark;   ///< 0: none, which the console's own number can't say
    std::optional<QString> floor; ///< "": none
    std::optional<qint32> state;
    std::optional<std::pair<qint64, qint64>> modified; ///< both inclusive
    bool unfiled = false;
    std::optional<site::FiledRun> filed;

    bool operator==(const ListPreset&) const = default;
};

/// For the preset text of BIM photos and issues. No position key and no floor looks like it.
[[nodiscard]] QString KeyOfPreset(const ListPreset& preset);
/// Nothing for any other text.
[[nodiscard]] std::optional<ListPreset> PresetOfKey(const QString& key);

/// Bounds of a time that has no other end.
inline constexpr qint64 kBeginOfTime = -(1LL << 40);
inline constexpr qint64 kEndOfTime = 1LL << 40;

/// For the preset number of drawing photos: a mark, a state, or a week that begins at such a
/// second, with what came before it or what comes from it on; of weeks one a number. Less than any
/// id.
[[nodiscard]] qint32 NumberOfMark(qint32 mark);
[[nodiscard]] qint32 NumberOfState(qint32 state);
[[nodiscard]] qint32 NumberOfWeek(qint64 firstSecond);
[[nodiscard]] qint32 NumberBefore(qint64 firstSecond);
[[nodiscard]] qint32 NumberFrom(qint64 firstSecond);
/// Nothing for any other number.
[[nodiscard]] std::optional<ListPreset> PresetOfNumber(qint32 number);

/// Lays the limits of a preset over a filter.
void Limit(site::ListFilter& filter, const ListPreset& preset);

/// Monday, 0:00 of this machine's zone, of the week in which the second lies.
[[nodiscard]] qint64 WeekOf(qint64 second);
/// The last second of the week that begins there.
[[nodiscard]] qint64 EndOfWeek(qint64 firstSecond);

} // namespace host
