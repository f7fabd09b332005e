// Tables that are text: CSV files, and what a person pastes.
#pragma once

#include "sheets/TableSheet.h"

#include <QByteArray>
#include <QStringView>

#include <optional>

namespace sheets {

class TableTaker;

struct TableText {
    QString text; ///< line ends are line feeds
    std::optional<TableFault> fault;
};

/// Bytes of a text file: UTF-8 and UTF-16 by their marks, UTF-8 without one if all of it is, GB
/// 18030 (and so GBK) otherwise. What is none of these, or holds zero characters, is told. Thread:
/// any.
[[nodiscard]] TableText DecodeTableText(const QByteArray& bytes);

/// Adds the rows of a text to the taker's present sheet, as RFC 4180 has it: cells in quotes may
/// hold separators, doubled quotes and line feeds. The first line that has a separator outside
/// quotes tells which it is: the tab, or what it has more of, commas or semicolons. What begins
/// with = is told to be a formula; the apostrophe by which `AppendCsvText` guards texts goes.
///
/// @param firstLine  number of the text's first line.
/// Thread: any.
void ReadSeparated(QStringView text, int firstLine, TableTaker& taker);

/// What was copied out of a spreadsheet, or typed. Thread: any.
[[nodiscard]] TableBook ReadPastedTable(const QString& text, const TableLimits& limits = {});

} // namespace sheets
