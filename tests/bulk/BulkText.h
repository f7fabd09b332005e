// The invented words of a bulk site: names of photos, people, descriptions.
#pragma once

#include <QString>

namespace bulk {

/// The same numbers in the same order on every machine (splitmix64).
class BulkRandom final {
public:
    explicit BulkRandom(quint64 seed) : m_state(seed) {}
    [[nodiscard]] quint64 Next();
    /// 0 to `count` - 1.
    [[nodiscard]] qint32 Below(qint32 count);
    /// 0 to `count` - 1, the small ones more often.
    [[nodiscard]] qint32 Skewed(qint32 count);

private:
    quint64 m_state;
};

[[nodiscard]] QString BulkPerson(BulkRandom& random);
[[nodiscard]] QString BulkPhotoName(BulkRandom& random, qint32 number);
[[nodiscard]] QString BulkDescription(BulkRandom& random);
[[nodiscard]] QString BulkFloor(BulkRandom& random);
[[nodiscard]] QString BulkWord(qint32 number);

} // namespace bulk
