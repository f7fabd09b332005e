// Workbooks as other programs write them, part by part.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <utility>
#include <vector>

namespace sheettest {

/// An archive of these parts, deflated.
[[nodiscard]] QByteArray Zipped(const QMap<QString, QByteArray>& parts);

using SheetXml = std::pair<QString, QByteArray>; ///< name, and what stands in its sheetData

/// Parts of a workbook: the sheets, its strings 0 "一" and 1 "二三" (in pieces), and styles 0
/// plain, 1 a day, 2 text, 3 with 层 behind the number, 4 two decimals, 5 a time of its own.
[[nodiscard]] QMap<QString, QByteArray> BookPartsOf(const std::vector<SheetXml>& sheets);
[[nodiscard]] QByteArray BookOf(const std::vector<SheetXml>& sheets);

} // namespace sheettest
