// A list as comma-separated values.
#pragma once

#include "sheets/SheetFile.h"
#include "sheets/TargetFile.h"

namespace sheets {

/// RFC 4180 in UTF-8 with its byte order mark, by which Excel tells it. Lines end with CR LF; times
/// are "yyyy-MM-dd HH:mm", numbers plain, texts as `AppendCsvText` has them. A picture's cell is
/// empty. What of a text looks like a number or a time is one for whoever reads the file: the form
/// has no kinds.
class CsvFile final : public ISheetFile {
public:
    explicit CsvFile(const QString& path) : m_target(path) {}

    void Begin(const SheetLayout& layout) override;
    void Add(const SheetRow& row) override;
    [[nodiscard]] SheetNotes End(const std::atomic<bool>& cancelled) override;

private:
    void Flush();

    TargetFile m_target;
    QByteArray m_lines;
    SheetNotes m_notes;
};

} // namespace sheets
