// Layouts, rows and files of the tests of spreadsheets.
#pragma once

#include "sheets/RowSource.h"
#include "sheets/SheetFault.h"
#include "sheets/SheetFile.h"
#include "sheets/XlsxFile.h"

#include <QDir>

#include <functional>

namespace sheettest {

/// 编号, 文字, 时间.
inline sheets::SheetLayout ThreeColumns() {
    return {QStringLiteral("清单"),
            {{QStringLiteral("编号"), 8, sheets::CellKind::Number},
             {QStringLiteral("文字"), 30, sheets::CellKind::Text},
             {QStringLiteral("时间"), 18, sheets::CellKind::Time}}};
}

/// 2026-11-23 18:30 on the wall.
inline constexpr sheets::SheetTime kSomeTime{1'795'458'600};

inline sheets::SheetRow RowWith(qint64 number, const QString& text) {
    return {number, text, kSomeTime};
}

/// Gives `count` rows in portions; `meanwhile` is told before each.
class CountedRows final : public sheets::IRowSource {
public:
    CountedRows(qint64 rowCount, qint64 portionSize, std::function<void(qint64)> watch = {})
        : m_count(rowCount), m_portion(portionSize), m_meanwhile(std::move(watch)) {}

    std::vector<sheets::SheetRow> Next() override {
        if (m_meanwhile) {
            m_meanwhile(m_given);
        }
        std::vector<sheets::SheetRow> rows;
        while (m_given < m_count && qint64(rows.size()) < m_portion) {
            ++m_given;
            rows.push_back(RowWith(m_given, QStringLiteral("第%1行").arg(m_given)));
        }
        return rows;
    }
    bool AtEnd() const override { return m_given == m_count; }
    qint64 Total() const override { return m_count; }

private:
    qint64 m_given = 0;
    qint64 m_count;
    qint64 m_portion;
    std::function<void(qint64)> m_meanwhile;
};

/// Writes all of it; gives the notes.
inline sheets::SheetNotes WriteAll(sheets::ISheetFile& file,
                                   const std::vector<sheets::SheetRow>& rows,
                                   const sheets::SheetLayout& layout = ThreeColumns()) {
    const std::atomic<bool> goesOn = false;
    file.Begin(layout);
    for (const sheets::SheetRow& row : rows) {
        file.Add(row);
    }
    return file.End(goesOn);
}

/// What a person would read; empty if nothing went wrong.
inline QString FaultOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const sheets::SheetFault& fault) {
        return fault.Text();
    }
    return {};
}

/// Names in a folder, hidden ones too.
inline QStringList NamesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

} // namespace sheettest
