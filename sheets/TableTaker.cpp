#include "sheets/TableTaker.h"

namespace sheets {

using namespace Qt::StringLiterals;

QString ColumnLetters(int column) {
    constexpr int kLetters = 26;
    QString letters;
    for (int left = column + 1; left > 0; left = (left - 1) / kLetters) {
        letters.prepend(QChar(u'A' + (left - 1) % kLetters));
    }
    return letters;
}

QString TextOf(const TableFault& fault) {
    QString text = fault.sheet;
    if (fault.line > 0) {
        text += (text.isEmpty() ? u"第 %1 行"_s : u" 第 %1 行"_s).arg(fault.line);
    } else if (!text.isEmpty()) {
        text += u'：';
    }
    if (fault.column >= 0) {
        text += u" %1 列"_s.arg(ColumnLetters(fault.column));
    }
    return text + fault.text;
}

void TableTaker::BeginSheet(const QString& name) {
    m_book.sheets.push_back({name, {}});
    m_line = 0;
    m_wideLine = 0;
    m_hasRow = false;
}

void TableTaker::BeginRow(int line) {
    m_line = line;
    m_hasRow = false;
}

bool TableTaker::MakeRoom(int column, qsizetype letters) {
    if (column >= m_limits.columns) {
        if (m_wideLine != m_line) {
            m_wideLine = m_line;
            Tell(m_line, -1, u"超过 %1 列"_s.arg(m_limits.columns));
        }
        return false;
    }
    if (letters > m_limits.letters) {
        Tell(m_line, column, u"的文字超过 %1 个字"_s.arg(m_limits.letters));
        return false;
    }
    std::vector<TableRow>& rows = m_book.sheets.back().rows;
    if (!m_hasRow && int(rows.size()) >= m_limits.rows) {
        TellFull(u"起超过 %1 行，太多了"_s.arg(m_limits.rows));
    } else if (m_cells >= m_limits.cells) {
        TellFull(u"起超过 %1 格，太多了"_s.arg(m_limits.cells));
    }
    if (!m_full && !m_hasRow) {
        rows.push_back({m_line, {}});
        m_hasRow = true;
    }
    return !m_full;
}

void TableTaker::AddCell(int column, const QString& text) {
    const QString tidy = text.trimmed();
    if (m_full || tidy.isEmpty() || !MakeRoom(column, tidy.size())) {
        return;
    }
    std::vector<QString>& cells = m_book.sheets.back().rows.back().cells;
    cells.resize(size_t(column) + 1);
    cells.back() = tidy;
    ++m_cells;
}

void TableTaker::Tell(int line, int column, const QString& text) {
    if (m_book.faults.size() < m_limits.faults) {
        const QString sheet = m_book.sheets.empty() ? QString() : m_book.sheets.back().name;
        m_book.faults.push_back({sheet, line, column, text});
    } else {
        ++m_untold;
    }
}

void TableTaker::TellFull(const QString& text) {
    Tell(m_line, -1, text);
    m_full = true;
}

TableBook TableTaker::Take() {
    if (m_untold > 0) {
        m_book.faults.push_back({{}, 0, -1, u"还有 %1 处，没有一一列出"_s.arg(m_untold)});
        m_untold = 0;
    }
    return std::move(m_book);
}

} // namespace sheets
