// What a page of one of the three lists is limited to.
#pragma once

#include <QString>
#include <QVariant>

#include <optional>
#include <utility>
#include <vector>

namespace site {

/// The numbers are those of the console's kinds.
enum class ListKind { kBimPhotos = 1, kPdfPhotos = 2, kIssues = 3 };

/// Absent members mean no limit, but no project means no row.
struct ListFilter {
    std::vector<qint32> ppids;
    QString keyword;
    std::optional<qint32> markId;
    std::optional<qint32> state;
    std::optional<qint32> labelId;
    std::optional<std::pair<qint64, qint64>> modified; ///< both inclusive
    /// Columns that must have these values, and the index that begins with them.
    std::vector<std::pair<QString, QVariant>> fixed;
    QString fixedIndex;
    bool nothing = false; ///< a value that no row can have was asked for
};

struct ListOrder {
    QString field; ///< as in PageRequest; unknown: the list's default
    bool descending = false;
};

/// Equal texts for equal filters.
[[nodiscard]] QString KeyOf(ListKind kind, const ListFilter& filter);
/// Sorted, without doubles.
void Normalize(ListFilter& filter);

} // namespace site
