// The rows of the console's lists as cells.
#pragma once

#include "services/IssueRecords.h"
#include "services/PicRecords.h"
#include "sheets/SheetTable.h"
#include "site/ListFilter.h"

#include <map>

namespace host {

/// "BIM模型照片", "图纸照片", "TN问题".
[[nodiscard]] QString TitleOf(site::ListKind kind);

/// The console's columns of data in their order, project and state too where it hides them. Its two
/// columns that hold a pair (who, when) are two each here, so that they can be sorted and filtered.
[[nodiscard]] sheets::SheetLayout LayoutOf(site::ListKind kind, bool withPictures);

/// What stands in records as numbers.
struct RowNames {
    std::map<qint32, QString> marks;
    std::map<qint32, QString> projects;
};

/// Cells in the order of LayoutOf. The second of a pair is empty for what was never changed.
/// @param number  in the list, from 1.
[[nodiscard]] sheets::SheetRow RowOf(const KX_DATA::BimPicRow& record, qint64 number,
                                     const RowNames& names, bool withPicture);
[[nodiscard]] sheets::SheetRow RowOf(const KX_DATA::PdfPicRecord& record, qint64 number,
                                     const RowNames& names, bool withPicture);
/// @param picture  of the issue; null: without the column.
[[nodiscard]] sheets::SheetRow RowOf(const KX_DATA::IssueRow& record, qint64 number,
                                     const RowNames& names, const sheets::SheetPicture* picture);

} // namespace host
