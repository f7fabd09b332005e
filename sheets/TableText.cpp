#include "sheets/TableText.h"

#include "sheets/SheetText.h"
#include "sheets/TableTaker.h"

#include <QList>
#include <QStringDecoder>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kChineseName = "GB18030";

QString WithLineFeeds(QString text) {
    if (text.startsWith(u'\xFEFF')) {
        text.remove(0, 1);
    }
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

std::optional<QString> Decoded(QStringDecoder decoder, QByteArrayView bytes) {
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

QStringDecoder ChineseDecoder() {
    return QStringDecoder(kChineseName, QStringDecoder::Flag::Stateless);
}

/// No byte of a longer character is a line feed in GB 18030.
int FirstForeignLine(const QByteArray& bytes) {
    int line = 0;
    for (const QByteArray& part : bytes.split('\n')) {
        ++line;
        if (!Decoded(ChineseDecoder(), part)) {
            break;
        }
    }
    return line;
}

std::optional<QString> DecodedByMark(const QByteArray& bytes, bool& isMarked) {
    const auto kind = QStringConverter::encodingForData(bytes);
    isMarked = kind.has_value() && (bytes.startsWith("\xEF\xBB\xBF") ||
                                    bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"));
    if (!isMarked) {
        return std::nullopt;
    }
    const bool isUtf8 = *kind == QStringConverter::Utf8;
    auto text = Decoded(QStringDecoder(*kind, QStringDecoder::Flag::Stateless), bytes);
    const bool isWhole = text && (isUtf8 || (bytes.size() % 2 == 0 && text->isValidUtf16()));
    return isWhole ? text : std::nullopt;
}

bool IsGuarded(QStringView field) {
    static constexpr QStringView kGuarded = u"=+-@\t\n＝＋－＠";
    return field.size() > 1 && field[0] == u'\'' && kGuarded.contains(field[1]);
}

/// A tab is never typed into a cell; of the two others the more frequent one.
QChar SeparatorOf(QStringView text) {
    qsizetype commas = 0;
    qsizetype semicolons = 0;
    bool isFirst = true; // of a cell, where alone a quote has a meaning
    bool isQuoted = false;
    for (const QChar letter : text) {
        if (isQuoted || (isFirst && letter == u'"')) {
            isQuoted = isQuoted != (letter == u'"');
            isFirst = false;
            continue;
        }
        if (letter == u'\t' || (letter == u'\n' && commas + semicolons > 0)) {
            return letter == u'\t' ? letter : commas < semicolons ? u';' : u',';
        }
        commas += letter == u',' ? 1 : 0;
        semicolons += letter == u';' ? 1 : 0;
        isFirst =
            letter == u',' || letter == u';' || letter == u'\n' || (isFirst && letter == u' ');
    }
    return commas < semicolons ? u';' : u',';
}

/// Walks over a text cell by cell.
class SeparatedReader final {
public:
    SeparatedReader(QStringView text, int line, TableTaker& taker)
        : m_text(text), m_separator(SeparatorOf(text)), m_line(line), m_taker(taker) {}

    void Read() {
        while (m_at < m_text.size() && !m_taker.IsFull()) {
            m_first = m_line;
            m_taker.BeginRow(m_first);
            for (int column = 0; ReadCell(column);) {
                ++column;
            }
        }
    }

private:
    /// False: it was the line's last.
    bool ReadCell(int column) {
        while (m_at < m_text.size() && m_text[m_at] == u' ') {
            ++m_at;
        }
        const bool isQuoted = m_at < m_text.size() && m_text[m_at] == u'"';
        const QString field = isQuoted ? QuotedField(column) : PlainField();
        if (field.startsWith(u'=')) {
            m_taker.Tell(m_first, column, u"是公式，请换成数值"_s);
        } else {
            m_taker.AddCell(column, IsGuarded(field) ? field.mid(1) : field);
        }
        const bool goesOn = m_at < m_text.size() && m_text[m_at] == m_separator;
        if (m_at < m_text.size() && !goesOn) {
            ++m_line;
        }
        ++m_at;
        return goesOn;
    }
    QString PlainField() {
        const qsizetype from = m_at;
        while (m_at < m_text.size() && m_text[m_at] != m_separator && m_text[m_at] != u'\n') {
            ++m_at;
        }
        return m_text.sliced(from, m_at - from).toString();
    }
    QString QuotedField(int column) {
        QString field;
        bool isClosed = false;
        for (++m_at; m_at < m_text.size() && !isClosed; ++m_at) {
            if (m_text[m_at] != u'"') {
                m_line += m_text[m_at] == u'\n' ? 1 : 0;
                field += m_text[m_at];
            } else if (m_at + 1 < m_text.size() && m_text[m_at + 1] == u'"') {
                field += m_text[++m_at];
            } else {
                isClosed = true;
            }
        }
        if (!isClosed) {
            m_taker.Tell(m_first, column, u"的引号没有结束"_s);
        } else if (!PlainField().trimmed().isEmpty()) {
            m_taker.Tell(m_first, column, u"在引号后面还有文字"_s);
        }
        return field;
    }

    QStringView m_text;
    QChar m_separator;
    qsizetype m_at = 0;
    int m_line;
    int m_first = 0; ///< line of the present row
    TableTaker& m_taker;
};

} // namespace

TableText DecodeTableText(const QByteArray& bytes) {
    bool isMarked = false;
    std::optional<QString> text = DecodedByMark(bytes, isMarked);
    if (!text && isMarked) {
        return {{}, TableFault{{}, 0, -1, u"文件里有损坏的字符，请另存为 UTF-8 后再试"_s}};
    }
    if (!text) {
        text =
            Decoded(QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless), bytes);
    }
    if (!text) {
        text = Decoded(ChineseDecoder(), bytes);
    }
    if (!text) {
        return {{},
                TableFault{{},
                           FirstForeignLine(bytes),
                           -1,
                           u"的文字既不是 UTF-8 也不是 GBK，请另存为 UTF-8 后再试"_s}};
    }
    const QString tidy = WithLineFeeds(*text);
    if (const qsizetype zero = tidy.indexOf(QChar(u'\0')); zero >= 0) {
        const auto line = QStringView(tidy).left(zero).count(u'\n') + 1;
        return {{}, TableFault{{}, int(line), -1, u"有不是文字的内容，这不是文本文件"_s}};
    }
    return {tidy, std::nullopt};
}

void ReadSeparated(QStringView text, int firstLine, TableTaker& taker) {
    SeparatedReader(text, firstLine, taker).Read();
}

TableBook ReadPastedTable(const QString& text, const TableLimits& limits) {
    TableTaker taker(limits);
    taker.BeginSheet({});
    if (text.size() * qsizetype(sizeof(QChar)) > limits.bytes) {
        taker.Tell(0, -1, u"粘贴的内容超过 %1 MB，太大了"_s.arg(limits.bytes / 1024 / 1024));
    } else {
        ReadSeparated(WithLineFeeds(text), 1, taker);
    }
    return taker.Take();
}

} // namespace sheets
