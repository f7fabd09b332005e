// A setup file: an Excel workbook with a sheet for each table, or a text with a section for each.
#pragma once

#include "host/setup/SetupTables.h"

namespace host {

/// A workbook's sheets are named as the tables and begin with their captions. A text has lines like
/// "[工程]", then the captions and rows of that table as CSV; lines that begin
/// with # say nothing, save with a number ("#1楼") or a colour behind it.
/// What can't be read is among the faults. Thread: any.
[[nodiscard]] SetupTables ReadSetupFile(const QString& path,
                                        const sheets::TableLimits& limits = {});
/// The text itself, line ends as line feeds.
[[nodiscard]] SetupTables ReadSetupText(const QString& text,
                                        const sheets::TableLimits& limits = {});

} // namespace host
