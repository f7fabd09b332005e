#include "toolkit/compare/NoteLines.h"

#include <QFont>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <cmath>
#include <utility>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

/// What the text is written in where nothing else is said, and so what saying it doesn't change:
/// a text that was saved says it of every word.
struct UsualFont {
    explicit UsualFont(const QFont& font)
        : families(font.families()),
          pixels(font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * kPoint) {}

    static constexpr double kPoint = 96.0 / 72.0;
    QStringList families;
    double pixels;
};

QByteArray FontOf(const QTextCharFormat& format, const UsualFont& usual) {
    QByteArray font;
    double pixels = format.hasProperty(QTextFormat::FontPixelSize)
                        ? format.intProperty(QTextFormat::FontPixelSize)
                        : format.doubleProperty(QTextFormat::FontPointSize) * UsualFont::kPoint;
    pixels = pixels > 0 ? pixels : usual.pixels;
    if (std::abs(pixels - usual.pixels) > 0.01) {
        font += QByteArray::number(pixels, 'f', 1);
    }
    font += ',' + QByteArray::number(format.intProperty(QTextFormat::FontSizeAdjustment)) + ',';
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() || families == usual.families ? font
                                                            : font + families.join(u';').toUtf8();
}

QByteArray LooksOf(const QTextCharFormat& format, const UsualFont& usual) {
    QByteArray looks;
    looks += format.fontWeight() > QFont::Medium ? 'b' : '-';
    looks += format.fontItalic() ? 'i' : '-';
    looks += format.fontUnderline() ? 'u' : '-';
    looks += format.fontStrikeOut() ? 's' : '-';
    looks += char('0' + int(format.verticalAlignment()));
    for (const int property : {QTextFormat::ForegroundBrush, QTextFormat::BackgroundBrush}) {
        if (format.hasProperty(property)) {
            looks += format.brushProperty(property).color().name(QColor::HexArgb).toLatin1();
        }
        looks += ',';
    }
    for (const int property : {QTextFormat::ImageWidth, QTextFormat::ImageHeight}) {
        if (format.hasProperty(property)) {
            looks += QByteArray::number(format.doubleProperty(property));
        }
        looks += ',';
    }
    return looks + FontOf(format, usual) + ',' + format.anchorHref().toUtf8();
}

/// Gathers one line out of one block or the many of a row.
class LineMaker {
public:
    explicit LineMaker(const QFont& usual) : m_usual(usual) {}

    void TakeBlock(const QTextBlock& block) {
        const QTextBlockFormat format = block.blockFormat();
        const QTextList* list = block.textList();
        m_line.form += 'h' + QByteArray::number(format.headingLevel()) + 'a' +
                       QByteArray::number(int(format.alignment() & Qt::AlignHorizontal_Mask)) +
                       'i' + QByteArray::number(format.indent()) + 'l' +
                       QByteArray::number(list == nullptr ? 0 : int(list->format().style())) + '|';
        // The block's own looks are those of an empty one.
        if (block.length() <= 1) {
            m_line.form += LooksOf(block.charFormat(), m_usual) + '|';
        }
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            TakeFragment(piece.fragment());
        }
        CloseRun();
    }
    /// What stands between two cells or two paragraphs of one cell.
    void TakeGap(const QString& gap) { m_line.text += gap; }
    /// What a line that is a paragraph has besides.
    void TakeShape(const QTextBlock& block) {
        const QTextBlockFormat format = block.blockFormat();
        const QTextList* list = block.textList();
        m_line.heading = std::clamp(format.headingLevel(), 0, 6);
        m_line.indent = format.indent();
        if (list != nullptr) {
            const bool isNumbered = list->format().style() <= QTextListFormat::ListDecimal;
            m_line.mark = isNumbered ? list->itemText(block) : u"•"_s;
            m_line.indent += std::max(0, list->format().indent() - 1);
        }
        m_line.indent = std::clamp(m_line.indent, 0, 12);
    }
    [[nodiscard]] NoteLine Take() { return std::exchange(m_line, {}); }

private:
    void TakeFragment(const QTextFragment& fragment) {
        const QTextCharFormat format = fragment.charFormat();
        const bool isPicture = format.isImageFormat();
        QString text = fragment.text();
        if (isPicture) {
            // Some equal pictures side by side are one fragment.
            for (qsizetype i = 0; i < text.size(); ++i) {
                m_line.pictures << format.toImageFormat().name();
            }
        } else {
            text.replace(QChar::ObjectReplacementCharacter, QChar(0xFFFD));
        }
        m_line.text += text;
        const QByteArray looks = LooksOf(format, m_usual);
        if (looks != m_looks) {
            CloseRun();
            m_looks = looks;
        }
        m_length += text.size();
    }
    void CloseRun() {
        if (m_length > 0) {
            m_line.form += QByteArray::number(m_length) + ':' + m_looks + '|';
        }
        m_length = 0;
        m_looks.clear();
    }

    const UsualFont m_usual;
    NoteLine m_line;
    QByteArray m_looks; ///< of the run that is open
    qsizetype m_length = 0;
};

bool IsTable(const QTextFrame* frame) {
    return qobject_cast<const QTextTable*>(frame) != nullptr;
}

/// Walks the frames of a document. Those that aren't tables are only margins around text.
class LineReader {
public:
    explicit LineReader(const QFont& usual) : m_maker(usual) {}

    void ReadFrame(const QTextFrame* frame) {
        for (auto at = frame->begin(); !at.atEnd(); ++at) {
            if (const auto* table = qobject_cast<const QTextTable*>(at.currentFrame())) {
                ReadTable(*table);
            } else if (at.currentFrame() != nullptr) {
                ReadFrame(at.currentFrame());
            } else if (!IsAroundATable(at, frame)) {
                m_maker.TakeBlock(at.currentBlock());
                m_maker.TakeShape(at.currentBlock());
                lines.push_back(m_maker.Take());
            }
        }
    }

    std::vector<NoteLine> lines;

private:
    /// The text needs a paragraph before a table at its beginning, and reading a page makes one
    /// behind every table; neither is written down.
    static bool IsAroundATable(QTextFrame::iterator at, const QTextFrame* frame) {
        if (at.currentBlock().length() > 1 || at.currentBlock().textList() != nullptr) {
            return false;
        }
        if (at == frame->begin()) {
            ++at;
            return !at.atEnd() && IsTable(at.currentFrame());
        }
        --at;
        return IsTable(at.currentFrame());
    }

    void ReadTable(const QTextTable& table) {
        for (int row = 0; row < table.rows(); ++row) {
            for (int column = 0; column < table.columns(); ++column) {
                const QTextTableCell cell = table.cellAt(row, column);
                if (cell.column() != column) {
                    continue;
                }
                if (column > 0) {
                    m_maker.TakeGap(kCellGap);
                }
                if (cell.row() == row) {
                    ReadCell(cell.begin(), cell.end());
                }
            }
            lines.push_back(m_maker.Take());
        }
    }

    void ReadCell(QTextFrame::iterator at, const QTextFrame::iterator& end) {
        bool isFirst = true;
        for (; at != end; ++at) {
            const QTextFrame* inner = at.currentFrame();
            if (inner == nullptr && at.currentBlock().length() <= 1 && !isFirst) {
                continue;
            }
            if (!isFirst) {
                m_maker.TakeGap(u" "_s);
            }
            isFirst = false;
            if (const auto* table = qobject_cast<const QTextTable*>(inner)) {
                ReadInnerTable(*table);
            } else if (inner != nullptr) {
                ReadCell(inner->begin(), inner->end());
            } else {
                m_maker.TakeBlock(at.currentBlock());
            }
        }
    }

    void ReadInnerTable(const QTextTable& table) {
        for (int row = 0; row < table.rows(); ++row) {
            for (int column = 0; column < table.columns(); ++column) {
                const QTextTableCell cell = table.cellAt(row, column);
                if (cell.row() == row && cell.column() == column) {
                    m_maker.TakeGap(row + column > 0 ? u" "_s : QString());
                    ReadCell(cell.begin(), cell.end());
                }
            }
        }
    }

    LineMaker m_maker;
};

} // namespace

std::vector<NoteLine> LinesOf(const QTextDocument& document) {
    LineReader reader(document.defaultFont());
    reader.ReadFrame(document.rootFrame());
    return std::move(reader.lines);
}

bool IsBlank(const NoteLine& line) {
    return line.pictures.isEmpty() && line.text.trimmed().isEmpty();
}

} // namespace toolkit
