#include "host/report/RecordText.h"

#include "host/report/RecordTextSigns.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/richtext/NoteHtml.h"

#include <QDir>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextFragment>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

#include <algorithm>
#include <array>
#include <numeric>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Of the editor's running text, and of one step of indentation, 1/96 inch.
constexpr double kNoteFace = 12;
constexpr double kNoteIndent = 40;
constexpr double kPointsOfPixel = 0.75;
constexpr double kMostPoints = 200;
/// What a paragraph and a picture have at least.
constexpr double kLeastWidth = 48;
/// Sizes by words, as Qt has them.
constexpr std::array kSteps{0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};

double RecordPointsOf(const QTextCharFormat& format, bool isHeading) {
    double points = 0;
    if (format.hasProperty(QTextFormat::FontPixelSize)) {
        points = format.intProperty(QTextFormat::FontPixelSize) * kPointsOfPixel;
    } else if (format.hasProperty(QTextFormat::FontPointSize)) {
        points = format.doubleProperty(QTextFormat::FontPointSize);
    } else if (format.hasProperty(QTextFormat::FontSizeAdjustment) && !isHeading) {
        const int step = format.intProperty(QTextFormat::FontSizeAdjustment);
        const auto index = static_cast<size_t>(std::clamp(step + 2, 0, int(kSteps.size()) - 1));
        points = step == 0 ? 0 : kSteps.at(index) * kNoteFace * kPointsOfPixel;
    }
    return points > 0 ? std::clamp(points, 1.0, kMostPoints) : 0;
}

QColor RecordColorOf(const QTextFormat& format, int property) {
    const QBrush brush = format.brushProperty(property);
    const QColor color = brush.color();
    return brush.style() == Qt::SolidPattern && color.alpha() > 0 ? color : QColor();
}

/// In the signs that an address may have (RFC 3986): Word takes a document with another for
/// damaged. Empty for one that leads nowhere outside, and for one that is too long for Word.
QString WebAddressOf(const QString& address) {
    constexpr qsizetype kMostAddress = 2000;
    if (!toolkit::IsLinkAllowed(address) || address.startsWith(toolkit::kAttachmentScheme)) {
        return {};
    }
    const QString written = QString::fromLatin1(QUrl(address).toEncoded());
    return written.size() <= kMostAddress ? written : QString();
}

RecordLook RecordLookOf(const QTextCharFormat& format, bool isHeading) {
    RecordLook look;
    look.isBold = format.fontWeight() >= QFont::DemiBold;
    look.isItalic = format.fontItalic();
    look.isStruck = format.fontStrikeOut();
    look.points = RecordPointsOf(format, isHeading);
    look.ground = RecordColorOf(format, QTextFormat::BackgroundBrush);
    const QStringList faces = format.fontFamilies().toStringList();
    look.face = faces.isEmpty() ? QString() : WritableText(faces.first());
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) {
        look.rise = RecordLook::Rise::Above;
    } else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) {
        look.rise = RecordLook::Rise::Below;
    }
    look.link = WebAddressOf(format.anchorHref());
    // The look of a link, an attachment's too, is the reader's.
    if (format.anchorHref().isEmpty()) {
        look.isUnderlined = format.fontUnderline();
        look.color = RecordColorOf(format, QTextFormat::ForegroundBrush);
    }
    return look;
}

bool IsRuleBlock(const QTextBlockFormat& format) {
    return format.hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
}

/// Shares and fixed widths as they are said; what is left goes to the rest in equal parts.
std::vector<double> RecordColumnsOf(const QTextTable& table, double width) {
    const QList<QTextLength> said = table.format().columnWidthConstraints();
    std::vector<double> columns(static_cast<size_t>(std::max(table.columns(), 1)), 0);
    for (size_t column = 0; column < columns.size() && column < size_t(said.size()); ++column) {
        const QTextLength& length = said[qsizetype(column)];
        if (length.type() != QTextLength::VariableLength) {
            columns[column] = std::clamp(length.value(width), 0.0, width);
        }
    }
    const auto open = std::ranges::count(columns, 0.0);
    const double taken = std::accumulate(columns.begin(), columns.end(), 0.0);
    const double left = std::max(width - taken, width * 0.1 * double(open));
    for (double& column : columns) {
        column = column > 0 ? column : left / double(open);
    }
    const double factor = width / std::accumulate(columns.begin(), columns.end(), 0.0);
    for (double& column : columns) {
        column *= factor;
    }
    return columns;
}

RecordTable RecordTableOf(const QTextTable& table, double width) {
    const QTextTableFormat format = table.format();
    RecordTable told;
    double own = width;
    if (format.width().type() == QTextLength::VariableLength) {
        told.isAsWideAsItsTexts = true;
    } else {
        own = std::clamp(format.width().value(width), std::min(kLeastWidth, width), width);
    }
    told.columns = RecordColumnsOf(table, own);
    told.hasLines = format.border() > 0;
    return told;
}

RecordCell RecordCellOf(const QTextTableCell& cell, int row, const RecordTable& table) {
    RecordCell told;
    told.columns = cell.columnSpan();
    told.rows = cell.rowSpan();
    told.isCovered = cell.row() != row;
    const auto first = table.columns.begin() + cell.column();
    told.width = std::accumulate(first, first + told.columns, 0.0);
    told.ground = RecordColorOf(cell.format(), QTextFormat::BackgroundBrush);
    switch (cell.format().verticalAlignment()) {
    case QTextCharFormat::AlignMiddle:
        told.alignment = Qt::AlignVCenter;
        break;
    case QTextCharFormat::AlignBottom:
        told.alignment = Qt::AlignBottom;
        break;
    default:
        told.alignment = Qt::AlignTop;
        break;
    }
    return told;
}

/// Collects nothing but pictures.
class PictureTaker final : public IRecordTaker {
public:
    std::vector<RecordPicture> pictures;

    void BeginParagraph(const RecordParagraph&) override {}
    void Text(const QString&, const RecordLook&) override {}
    void Picture(const RecordPicture& picture) override {
        if (!picture.file.isEmpty()) {
            pictures.push_back(picture);
        }
    }
    void EndParagraph() override {}
    void BeginTable(const RecordTable&) override {}
    void BeginRow() override {}
    void BeginCell(const RecordCell&) override {}
    void EndCell() override {}
    void EndRow() override {}
    void EndTable() override {}
};

} // namespace

RecordText::RecordText(const QString& html, const QString& folder, const QSizeF& room)
    : m_folder(folder), m_room(room) {
    m_document.setUndoRedoEnabled(false);
    const toolkit::CleanedNote note = toolkit::CleanNoteHtml(html);
    m_isRead = note.fault == toolkit::NoteFault::None;
    if (m_isRead) {
        m_document.setHtml(note.html);
    }
}

void RecordText::Walk(IRecordTaker& taker) const {
    WalkFrame(*m_document.rootFrame(), taker, m_room.width());
}

std::vector<RecordPicture> RecordText::Pictures() const {
    PictureTaker taker;
    Walk(taker);
    return std::move(taker.pictures);
}

template <class Iterator>
void RecordText::WalkParts(Iterator from, IRecordTaker& taker, double width) const {
    for (Iterator at = from; !at.atEnd(); ++at) {
        const QTextFrame* frame = at.currentFrame();
        if (const auto* table = qobject_cast<const QTextTable*>(frame)) {
            WalkTable(*table, taker, width);
        } else if (frame != nullptr) {
            WalkFrame(*frame, taker, width);
        } else if (at.currentBlock().isValid()) {
            WalkBlock(at.currentBlock(), taker, width);
        }
    }
}

void RecordText::WalkFrame(const QTextFrame& frame, IRecordTaker& taker, double width) const {
    WalkParts(frame.begin(), taker, width);
}

void RecordText::WalkBlock(const QTextBlock& block, IRecordTaker& taker, double width) const {
    const RecordParagraph paragraph = ParagraphOf(block);
    const double room =
        std::max(width - paragraph.left - paragraph.right -
                     (paragraph.list > 0 ? kNoteIndent * (paragraph.listLevel + 1) : 0),
                 kLeastWidth);
    taker.BeginParagraph(paragraph);
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextFragment part = piece.fragment();
        const QTextCharFormat format = part.charFormat();
        if (!format.isImageFormat()) {
            const QString text = WritableText(part.text());
            taker.Text(text, RecordLookOf(format, paragraph.heading > 0));
            continue;
        }
        // Equal pictures in a row are one piece.
        for (int picture = 0; picture < part.length(); ++picture) {
            taker.Picture(PictureOf(format.toImageFormat(), room));
        }
    }
    taker.EndParagraph();
}

void RecordText::WalkTable(const QTextTable& table, IRecordTaker& taker, double width) const {
    const RecordTable told = RecordTableOf(table, width);
    taker.BeginTable(told);
    for (int row = 0; row < table.rows(); ++row) {
        taker.BeginRow();
        for (int column = 0; column < table.columns();) {
            const QTextTableCell cell = table.cellAt(row, column);
            WalkCell(cell, taker, RecordCellOf(cell, row, told));
            column += std::max(cell.columnSpan(), 1);
        }
        taker.EndRow();
    }
    taker.EndTable();
}

void RecordText::WalkCell(const QTextTableCell& cell, IRecordTaker& taker,
                          const RecordCell& told) const {
    taker.BeginCell(told);
    if (!told.isCovered) {
        WalkParts(cell.begin(), taker, told.width);
    }
    taker.EndCell();
}

RecordParagraph RecordText::ParagraphOf(const QTextBlock& block) const {
    const QTextBlockFormat format = block.blockFormat();
    // No margin takes more than half of the room.
    const double most = m_room.width() / 2;
    RecordParagraph told;
    told.heading = std::clamp(format.headingLevel(), 0, 6);
    told.alignment = format.alignment() & Qt::AlignHorizontal_Mask;
    told.isRightToLeft = format.layoutDirection() == Qt::RightToLeft;
    told.right = std::clamp(format.rightMargin(), 0.0, most);
    told.above = std::clamp(format.topMargin(), 0.0, most);
    told.below = std::clamp(format.bottomMargin(), 0.0, most);
    told.ground = RecordColorOf(format, QTextFormat::BackgroundBrush);
    told.hasRule = IsRuleBlock(format);
    double indent = format.indent();
    if (const QTextList* list = block.textList()) {
        const QTextListFormat listFormat = list->format();
        told.list = list->objectIndex() + 1;
        told.listLevel = std::clamp(int(indent) + listFormat.indent() - 1, 0, 8);
        told.listStyle = listFormat.style();
        indent = 0;
    }
    told.left = std::clamp(format.leftMargin() + indent * kNoteIndent, 0.0, most);
    told.firstLine = std::clamp(format.textIndent(), -told.left, most);
    return told;
}

RecordPicture RecordText::PictureOf(const QTextImageFormat& format, double width) const {
    const QString file = QDir(m_folder).absoluteFilePath(format.name());
    if (m_folder.isEmpty() || !toolkit::IsStoreName(format.name()) || !QFileInfo(file).isFile()) {
        return {};
    }
    QSizeF size = toolkit::ReadPictureSize(file);
    const QSizeF own = size.isEmpty() ? QSizeF(1, 1) : size;
    if (format.width() > 0 && format.height() > 0) {
        size = {format.width(), format.height()};
    } else if (format.width() > 0) {
        size = own * (format.width() / own.width());
    } else if (format.height() > 0) {
        size = own * (format.height() / own.height());
    }
    const QSizeF room(width, m_room.height());
    if (size.width() > room.width() || size.height() > room.height()) {
        size.scale(room, Qt::KeepAspectRatio);
    }
    return {file, size};
}

} // namespace host
