// What a workbook's sheets refer to: where they are, their strings, their number forms.
#pragma once

#include "sheets/NumberForms.h"

#include <QString>

#include <vector>

namespace sheets {

class ZipArchive;

struct BookSheetPart {
    QString name;
    QString path; ///< in the archive
};

struct BookParts {
    bool isForeign = false;            ///< an archive, but not of a workbook
    std::vector<BookSheetPart> sheets; ///< those that aren't hidden, charts left out
    std::vector<QString> strings;      ///< by index
    std::vector<NumberForm> forms;     ///< by a cell's style
};

/// False: foreign, damaged, or the archive's budget is spent.
///
/// @param mostSheets  where there are more, one more than these is given.
[[nodiscard]] bool ReadBookParts(ZipArchive& archive, int mostSheets, BookParts& parts);

/// A text as XML has it, with the format's own escapes undone (ST_Xstring: _x0041_).
[[nodiscard]] QString PlainString(const QString& text);

} // namespace sheets
