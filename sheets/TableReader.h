// Tables out of files, whatever their form.
#pragma once

#include "sheets/TableSheet.h"

#include <QByteArray>

#include <optional>

namespace sheets {

enum class TableForm {
    Text,        ///< CSV, or anything else that may be text
    Workbook,    ///< an archive: .xlsx, or what isn't one
    OldWorkbook, ///< .xls
    Locked,      ///< a workbook with a password
};

/// By the first bytes, not by the name.
[[nodiscard]] TableForm FormOf(const QByteArray& bytes);

struct TableBytes {
    QByteArray bytes;
    TableForm form = TableForm::Text;
    std::optional<TableFault> fault; ///< can't be read, too large, or of a form that isn't read
};

/// All of a file. Thread: any.
[[nodiscard]] TableBytes LoadTableFile(const QString& path, const TableLimits& limits = {});

/// The tables of a workbook, or the one of a CSV file. What is wrong is told, never thrown; see
/// WorkbookReader.h and TableText.h. Thread: any.
[[nodiscard]] TableBook ReadTableFile(const QString& path, const TableLimits& limits = {});

} // namespace sheets
