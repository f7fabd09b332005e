// The rows of one sheet of a workbook.
#pragma once

#include "sheets/BookParts.h"

class QIODevice;
class QXmlStreamReader;

namespace sheets {

class TableTaker;

/// Reads one sheet, once.
class SheetRows final {
public:
    /// Both must outlive it.
    SheetRows(const BookParts& parts, TableTaker& taker) : m_parts(parts), m_taker(taker) {}

    /// Stops early where the taker is full. False: it breaks off or is no sheet.
    [[nodiscard]] bool Read(QIODevice& part);

private:
    void Open(const QXmlStreamReader& xml);
    void Close(const QXmlStreamReader& xml);
    void BeginRow(const QXmlStreamReader& xml);
    void BeginCell(const QXmlStreamReader& xml);
    void EndCell();
    void AddNumber();

    const BookParts& m_parts;
    TableTaker& m_taker;
    int m_line = 0;
    int m_column = -1;
    QString m_kind; ///< of the present cell
    int m_style = 0;
    QString m_text;
    bool m_isInData = false;
    bool m_isText = false;   ///< what comes now belongs to the cell
    bool m_isSpoken = false; ///< how a text is spoken, which doesn't
    bool m_isFormula = false;
    bool m_isBroken = false;
};

} // namespace sheets
