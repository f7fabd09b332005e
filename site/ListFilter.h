// What a page of one of the three lists is limited to.
#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace site {

/// The numbers are those of the console's kinds.
enum class ListKind { BimPhotos = 1, PdfPhotos = 2, Issues = 3 };

/// Photos that one person filed in one go.
struct FiledRun {
    qint64 first = 0; ///< ids, both inclusive
    qint64 last = 0;
    QString person; ///< who uploaded them: others file meanwhile

    bool operator==(const FiledRun&) const = default;
};

/// Absent members mean no limit, but no project means no row.
struct ListFilter {
    std::vector<qint32> ppids;
    QString keyword;
    std::optional<qint32> markId;
    std::optional<qint32> state;
    std::optional<qint32> labelId;
    std::optional<std::pair<qint64, qint64>> modified; ///< both inclusive
    std::optional<QString> positionKey;                ///< of BIM photos
    std::optional<QString> floor;                      ///< of issues and BIM photos; "": none
    std::optional<QString> componentHandle;            ///< of issues; only with their floor
    std::optional<qint32> drawingId;                   ///< of drawing photos, as the one below
    std::optional<qint32> checkpointId;
    bool unfiled = false;          ///< BIM photos without a floor or a mark that the site has
    std::optional<FiledRun> filed; ///< of BIM photos
    bool nothing = false;          ///< a value that no row can have was asked for
};

struct ListOrder {
    QString field; ///< as in PageRequest; unknown: the list's default
    bool descending = false;
};

/// Which part of a list is wanted.
struct PageAsked {
    ListOrder order;
    qint64 page = 1;     ///< from 1; one that the list doesn't have is empty
    qint64 pageSize = 0; ///< rows
};

/// A part of a list and the size of the whole, both of one state of the data.
template <typename Row> struct Page {
    qint64 total = 0;
    std::vector<Row> rows; ///< in the order asked for
};

/// Equal texts for equal filters.
[[nodiscard]] QString KeyOf(ListKind kind, const ListFilter& filter);
/// Sorted, without doubles.
void Normalize(ListFilter& filter);

} // namespace site
