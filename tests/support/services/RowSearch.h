// What a site would list of the doubles' rows.
#pragma once

#include "services/IssueRecords.h"
#include "services/PicRecords.h"
#include "tests/support/services/SearchRecords.h"

#include <functional>
#include <map>

namespace support {

/// What rows leave out.
struct RowNames {
    std::vector<QString> states; ///< in their order
    std::function<QString(const QString&)> labelId;
    std::function<QString(const QString&)> componentHandle; ///< of a questionId
};

/// Rows that match, in the order asked for; the whole list, not its page. Times of drawing photos
/// are texts without seconds.
[[nodiscard]] std::vector<KX_DATA::BimPicRow> Search(const std::vector<KX_DATA::BimPicRow>& rows,
                                                     const KX_DATA::PicQueryFilter& filter,
                                                     const KX_DATA::PageRequest& request,
                                                     const RowNames& names);
[[nodiscard]] std::vector<KX_DATA::PdfPicRecord>
Search(const std::vector<KX_DATA::PdfPicRecord>& rows, const KX_DATA::PdfQueryFilter& filter,
       const KX_DATA::PageRequest& request, const RowNames& names);
[[nodiscard]] std::vector<KX_DATA::IssueRow> Search(const std::vector<KX_DATA::IssueRow>& rows,
                                                    const KX_DATA::PicQueryFilter& filter,
                                                    const KX_DATA::PageRequest& request,
                                                    const RowNames& names);

/// A text whose order is that of the floors: none, numbers by their value, names.
[[nodiscard]] QString FloorOrder(const QString& floor);

} // namespace support
