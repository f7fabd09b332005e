// Tables out of an Excel workbook.
#pragma once

#include "sheets/TableSheet.h"

#include <QByteArray>

namespace sheets {

/// The sheets that a person sees, in their order; a merged cell has its text in its first cell,
/// numbers stand as the sheet shows them. Told with their line: formulas, which are neither worked
/// out nor taken by their last result, error values, days and numbers that look otherwise than
/// they are stored (an axis "1-2" that became the 2nd of January). Told of all of it: what is no
/// workbook, breaks off, is damaged, encrypted or too large. Form: ISO/IEC 29500. Thread: any.
[[nodiscard]] TableBook ReadWorkbook(const QByteArray& bytes, const TableLimits& limits = {});

} // namespace sheets
