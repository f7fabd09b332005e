#include "sheets/SheetRows.h"

#include "sheets/TableTaker.h"

#include <QXmlStreamReader>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

/// From 0; -1 for what names none.
int ColumnOf(QStringView reference) {
    constexpr int kLetters = 26;
    constexpr int kMost = 16'384;
    int column = 0;
    for (const QChar letter : reference) {
        if (letter < u'A' || letter > u'Z') {
            break;
        }
        column = column * kLetters + (letter.unicode() - u'A' + 1);
        if (column > kMost) {
            return -1;
        }
    }
    return column - 1;
}

} // namespace

bool SheetRows::Read(QIODevice& part) {
    QXmlStreamReader xml(&part);
    while (!xml.atEnd() && !m_isBroken && !m_taker.IsFull()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            Open(xml);
            break;
        case QXmlStreamReader::EndElement:
            Close(xml);
            break;
        case QXmlStreamReader::Characters:
            if (m_isText) {
                m_text += xml.text();
            }
            break;
        case QXmlStreamReader::DTD:
            m_isBroken = true;
            break;
        default:
            break;
        }
    }
    return !m_isBroken && !xml.hasError();
}

void SheetRows::Open(const QXmlStreamReader& xml) {
    const QStringView name = xml.name();
    if (name == "sheetData"_L1) {
        m_isInData = true;
    } else if (!m_isInData) {
        return;
    } else if (name == "row"_L1) {
        BeginRow(xml);
    } else if (name == "c"_L1) {
        BeginCell(xml);
    } else if (name == "f"_L1) {
        m_isFormula = true;
    } else if (name == "rPh"_L1) {
        m_isSpoken = true;
    } else if (name == "v"_L1 || name == "t"_L1) {
        m_isText = !m_isSpoken;
    }
}

void SheetRows::Close(const QXmlStreamReader& xml) {
    const QStringView name = xml.name();
    if (name == "sheetData"_L1) {
        m_isInData = false;
    } else if (name == "rPh"_L1) {
        m_isSpoken = false;
    } else if (name == "v"_L1 || name == "t"_L1) {
        m_isText = false;
    } else if (m_isInData && name == "c"_L1) {
        EndCell();
    }
}

void SheetRows::BeginRow(const QXmlStreamReader& xml) {
    constexpr int kMostLines = 1'048'576;
    const QXmlStreamAttributes attributes = xml.attributes();
    const int line =
        attributes.hasAttribute("r"_L1) ? attributes.value("r"_L1).toInt() : m_line + 1;
    m_isBroken = m_isBroken || line <= m_line || line > kMostLines;
    m_line = line;
    m_column = -1;
    m_taker.BeginRow(line);
}

void SheetRows::BeginCell(const QXmlStreamReader& xml) {
    const QXmlStreamAttributes attributes = xml.attributes();
    const int column =
        attributes.hasAttribute("r"_L1) ? ColumnOf(attributes.value("r"_L1)) : m_column + 1;
    m_isBroken = m_isBroken || m_line == 0 || column <= m_column;
    m_column = column;
    m_kind = attributes.value("t"_L1).toString();
    m_style = attributes.value("s"_L1).toInt();
    m_text.clear();
    m_isFormula = false;
}

void SheetRows::EndCell() {
    if (m_isFormula) {
        m_taker.Tell(m_line, m_column, u"是公式，请换成数值"_s);
    } else if (m_kind == "e"_L1) {
        m_taker.Tell(m_line, m_column, u"是错误值 %1"_s.arg(m_text.left(20)));
    } else if (m_kind == "d"_L1) {
        m_taker.Tell(m_line, m_column, u"是日期，请改成文本"_s);
    } else if (m_kind == "s"_L1) {
        bool isNumber = false;
        const qint64 index = m_text.trimmed().toLongLong(&isNumber);
        m_isBroken =
            m_isBroken || !isNumber || index < 0 || index >= qint64(m_parts.strings.size());
        if (!m_isBroken) {
            m_taker.AddCell(m_column, m_parts.strings[size_t(index)]);
        }
    } else if (m_kind == "b"_L1) {
        m_taker.AddCell(m_column, m_text.trimmed() == u"1"_s ? u"TRUE"_s : u"FALSE"_s);
    } else if (m_kind == "str"_L1 || m_kind == "inlineStr"_L1) {
        m_taker.AddCell(m_column, PlainString(m_text));
    } else {
        AddNumber();
    }
}

void SheetRows::AddNumber() {
    const QString stored = m_text.trimmed();
    if (stored.isEmpty()) {
        return;
    }
    const bool isKnown = m_style >= 0 && m_style < int(m_parts.forms.size());
    const NumberForm form = isKnown ? m_parts.forms[size_t(m_style)] : NumberForm::Plain;
    if (form == NumberForm::Date) {
        m_taker.Tell(m_line, m_column, u"是日期，请改成文本"_s);
    } else if (form == NumberForm::Dressed) {
        m_taker.Tell(m_line, m_column, u"的数字另有显示格式，请改成文本"_s);
    } else {
        m_taker.AddCell(m_column, NumberText(stored));
    }
}

} // namespace sheets
