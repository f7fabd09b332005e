#include "host/setup/SetupFile.h"

#include "sheets/TableReader.h"
#include "sheets/TableTaker.h"
#include "sheets/TableText.h"
#include "sheets/WorkbookReader.h"

#include <QRegularExpression>

#include <optional>

namespace host {

using namespace Qt::StringLiterals;

namespace {

std::optional<SetupTable> TableNamed(const QString& name) {
    for (size_t i = 0; i < kSetupTables; ++i) {
        if (FormOf(SetupTable(i)).name == name.trimmed()) {
            return SetupTable(i);
        }
    }
    return std::nullopt;
}

QString UnknownTableText(const QString& name) {
    return u"不认识的表“%1”，可用的表：%2"_s.arg(name.left(40), SetupTableNames());
}

/// The tables of a book; `line` where an unknown one is told.
void TakeBook(const sheets::TableBook& book, int line, SetupTables& tables) {
    for (const sheets::TableFault& fault : book.faults) {
        tables.faults.push_back(LineFaultOf(fault.sheet, fault));
    }
    for (const sheets::TableSheet& sheet : book.sheets) {
        if (const auto table = TableNamed(sheet.name)) {
            AddSetupTable(*table, sheet, Captions::Needed, tables);
        } else if (!sheet.rows.empty() || line > 0) {
            tables.faults.push_back({{}, line, UnknownTableText(sheet.name)});
        }
    }
}

bool IsSection(QStringView line) {
    return line.size() > 2 && (line.front() == u'[' || line.front() == u'［') &&
           (line.back() == u']' || line.back() == u'］');
}

/// A line that begins with a colour is none, nor one with a name like "#1楼".
bool IsComment(QStringView line) {
    static const QRegularExpression data(u"^#([0-9]|[0-9A-Fa-f]{6}\\s*([,;\t]|$))"_s);
    return line.startsWith(u'#') && !data.match(line).hasMatch();
}

/// Goes through a text line by line; a section's lines are read together.
class SectionReader final {
public:
    SectionReader(SetupTables& tables, const sheets::TableLimits& limits)
        : m_tables(tables), m_limits(limits) {}

    void Read(const QString& text) {
        int number = 0;
        for (const QStringView line : QStringView(text).split(u'\n')) {
            ++number;
            const QStringView tidy = line.trimmed();
            if (IsSection(tidy)) {
                End();
                m_name = tidy.sliced(1, tidy.size() - 2).trimmed().toString();
                m_sectionLine = number;
                m_firstLine = number + 1;
            } else if (!IsComment(tidy)) {
                Add(line, tidy, number);
            }
            m_lines += m_sectionLine > 0 && m_sectionLine < number ? u"\n"_s : QString();
        }
        End();
    }

private:
    void Add(QStringView line, QStringView tidy, int number) {
        if (m_sectionLine > 0) {
            m_lines += line;
        } else if (!tidy.isEmpty()) {
            m_tables.faults.push_back({{}, number, u"不在任何表里；先写一行表名，例如 [工程]"_s});
        }
    }
    void End() {
        if (m_sectionLine > 0) {
            sheets::TableTaker taker(m_limits);
            taker.BeginSheet(m_name);
            sheets::ReadSeparated(m_lines, m_firstLine, taker);
            TakeBook(taker.Take(), m_sectionLine, m_tables);
        }
        m_lines.clear();
    }

    SetupTables& m_tables;
    const sheets::TableLimits& m_limits;
    QString m_name;
    QString m_lines;
    int m_sectionLine = 0;
    int m_firstLine = 0;
};

void TellEmpty(SetupTables& tables) {
    const bool isEmpty = std::all_of(tables.rows.begin(), tables.rows.end(),
                                     [](const auto& rows) { return rows.empty(); });
    if (isEmpty && tables.faults.empty()) {
        tables.faults.push_back(
            {{}, 0, u"文件里没有任何内容，可用的表：%1"_s.arg(SetupTableNames())});
    }
}

} // namespace

SetupTables ReadSetupText(const QString& text, const sheets::TableLimits& limits) {
    SetupTables tables;
    SectionReader(tables, limits).Read(text);
    TellEmpty(tables);
    return tables;
}

SetupTables ReadSetupFile(const QString& path, const sheets::TableLimits& limits) {
    SetupTables tables;
    const sheets::TableBytes loaded = sheets::LoadTableFile(path, limits);
    if (loaded.fault) {
        tables.faults.push_back(LineFaultOf({}, *loaded.fault));
    } else if (loaded.form == sheets::TableForm::Workbook) {
        TakeBook(sheets::ReadWorkbook(loaded.bytes, limits), 0, tables);
        TellEmpty(tables);
    } else if (const sheets::TableText text = sheets::DecodeTableText(loaded.bytes); text.fault) {
        tables.faults.push_back(LineFaultOf({}, *text.fault));
    } else {
        tables = ReadSetupText(text.text, limits);
    }
    return tables;
}

} // namespace host
