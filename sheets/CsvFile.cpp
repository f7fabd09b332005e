#include "sheets/CsvFile.h"

#include "sheets/SheetFault.h"
#include "sheets/SheetText.h"

namespace sheets {

namespace {

constexpr qsizetype kBlock = 64 * 1024;

struct CsvCell {
    QByteArray& line;

    void operator()(const QString& text) const { AppendCsvText(text, line); }
    void operator()(qint64 number) const { line.append(QByteArray::number(number)); }
    void operator()(SheetTime time) const { line.append(TextOf(time).toLatin1()); }
    void operator()(const SheetPicture& /*picture*/) const {}
};

} // namespace

void CsvFile::Begin(const SheetLayout& layout) {
    m_target.Open();
    m_lines = "\xEF\xBB\xBF";
    for (const SheetColumn& column : layout.columns) {
        AppendCsvText(column.title, m_lines);
        m_lines.append(',');
    }
    m_lines.chop(1);
    m_lines.append("\r\n");
}

void CsvFile::Add(const SheetRow& row) {
    for (const SheetCell& cell : row) {
        std::visit(CsvCell{m_lines}, cell);
        m_lines.append(',');
    }
    m_lines.chop(1);
    m_lines.append("\r\n");
    ++m_notes.rows;
    if (m_lines.size() >= kBlock) {
        Flush();
    }
}

void CsvFile::Flush() {
    m_target.Write(m_lines);
    m_lines.resize(0);
}

SheetNotes CsvFile::End(const std::atomic<bool>& cancelled) {
    Flush();
    if (cancelled) {
        throw SheetCancelled();
    }
    m_target.Commit();
    return m_notes;
}

} // namespace sheets
