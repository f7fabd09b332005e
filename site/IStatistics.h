// How many photos and issues there are of each mark, floor, state and week.
#pragma once

#include "site/ListFilter.h"
#include "site/Records.h"

namespace site {

struct NumberCount {
    qint32 number = 0; ///< of a mark, a state
    qint64 count = 0;

    bool operator==(const NumberCount&) const = default;
};

struct PlaceCount {
    QString name;  ///< of a floor ("" for none); of drawing photos their drawing's
    qint32 id = 0; ///< of the drawing; 0 for floors
    qint64 count = 0;

    bool operator==(const PlaceCount&) const = default;
};

/// Hidden ones count, as they stand in the lists. Only what there is of: no count is 0, save weeks.
struct SiteStatistics {
    std::vector<NumberCount> marks;  ///< by their numbers
    std::vector<NumberCount> states; ///< by their numbers
    std::vector<PlaceCount> places;  ///< in the order of the floors, drawings by name
    std::vector<qint64> weeks;       ///< one for each span that was asked for
};

/// Operations throw DataError. Thread: the site's.
class IStatistics {
public:
    virtual ~IStatistics() = default;

    /// All of one state of the data.
    ///
    /// @param bounds  seconds since 1970, ascending: the spans go from one to before the next, by
    ///                the last change; n bounds make n - 1 spans
    [[nodiscard]] virtual SiteStatistics Of(ListKind kind, const Projects& projects,
                                            const std::vector<qint64>& bounds) = 0;
};

} // namespace site
