#include "host/report/PageMaker.h"

#include <QFileInfo>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kGap = 14;    ///< between blocks
constexpr double kTextGap = 6; ///< between a picture and its text
constexpr double kCellPadding = 5;
constexpr double kBesideGap = 16;
constexpr double kFactShare = 0.16; ///< of the width, for captions
constexpr double kMostLogoHeight = 64;
constexpr double kContentsLine = 22;
constexpr double kSubIndent = 18;
constexpr double kLeastRecord = 90; ///< of a record, at the end of a page

QString FactsText(const ReportFacts& facts) {
    QStringList lines;
    for (const auto& [caption, value] : facts) {
        if (!value.isEmpty()) {
            lines << u"%1：%2"_s.arg(caption, value);
        }
    }
    return lines.join(u'\n');
}

TextLook LookOf(const HeadingBlock& heading) {
    return heading.level == 1 ? TextLook::Heading : TextLook::Subheading;
}

double HeightOfHeading(const HeadingBlock& heading, double width) {
    return TextColumn(heading.text, LookOf(heading), width).Height() + kGap;
}

} // namespace

PageMaker::PageMaker(const ReportSheet& sheet, bool withRecord)
    : m_sheet(sheet), m_withRecord(withRecord) {
    m_made.shape = ShapeOf(sheet.options);
    m_made.header = sheet.header;
    m_made.footer = sheet.footer;
    m_made.pages.emplace_back();
    m_y = m_made.shape.text.top();
}

ReportPages PageMaker::Make() {
    for (const ReportBlock& block : m_sheet.blocks) {
        std::visit([this](const auto& one) { Add(one); }, block);
    }
    // One that nothing followed: its record has no pages yet.
    if (!m_waiting.empty()) {
        NewPage();
        PlaceHeadings();
    }
    FillContents();
    return std::move(m_made);
}

void PageMaker::NewPage() {
    if (IsPageEmpty()) {
        return;
    }
    m_made.pages.emplace_back();
    m_y = m_made.shape.text.top();
}

double PageMaker::HeadingsHeight() const {
    double height = 0;
    for (const HeadingBlock& heading : m_waiting) {
        height += HeightOfHeading(heading, m_made.shape.text.width());
    }
    return height;
}

void PageMaker::PlaceHeadings() {
    for (const HeadingBlock& heading : m_waiting) {
        const int page = static_cast<int>(m_made.pages.size()) - 1;
        m_made.headings.push_back({heading.text, heading.level, page, m_y});
        const TextColumn text(heading.text, LookOf(heading), m_made.shape.text.width());
        m_y += IsPageEmpty() ? 0 : kGap / 2;
        PutText(text, m_made.shape.text.left());
        m_y += kGap / 2;
    }
    m_waiting.clear();
}

void PageMaker::Require(double height) {
    if (HeadingsHeight() + height > Left()) {
        NewPage();
    }
    PlaceHeadings();
}

void PageMaker::PutText(const TextColumn& text, double left) {
    Put(TextItem{{left, m_y}, text, 0, text.LineCount()});
    m_y += text.Height();
}

void PageMaker::Add(const TitleBlock& block) {
    const QRectF room = m_made.shape.text;
    double width = room.width();
    if (!block.logo.isNull()) {
        QSizeF size = block.logo.size();
        if (size.height() > kMostLogoHeight || size.width() > width / 3) {
            size.scale(width / 3, kMostLogoHeight, Qt::KeepAspectRatio);
        }
        Put(ImageItem{{QPointF(room.right() - size.width(), room.top()), size}, block.logo});
        width -= size.width() + kBesideGap;
    }
    PutText(TextColumn(block.title, TextLook::Title, width), room.left());
    m_y += kTextGap;
    for (const QString& line : block.lines) {
        PutText(TextColumn(line, TextLook::Faint, width), room.left());
    }
    m_y = std::max(m_y, room.top() + (block.logo.isNull() ? 0 : kMostLogoHeight)) + kGap;
    Put(BoxItem{{room.left(), m_y, room.width(), 0}, {}, kFrameInk});
    m_y += kGap;
}

void PageMaker::Add(const HeadingBlock& block) {
    m_waiting.push_back(block);
}

void PageMaker::Add(const ParagraphBlock& block) {
    Row row;
    row.cells.push_back({m_made.shape.text.left(), 0,
                         TextColumn(block.text, TextLook::Body, m_made.shape.text.width()), 0});
    Flow(std::move(row), {});
    m_y += kGap;
}

void PageMaker::Add(const FactsBlock& block) {
    const QRectF room = m_made.shape.text;
    const double caption = room.width() * kFactShare;
    for (const auto& [name, value] : block.facts) {
        Row row;
        row.cells.push_back({room.left(), 0, TextColumn(name, TextLook::Faint, caption - 8), 0});
        row.cells.push_back({room.left() + caption, 0,
                             TextColumn(value, TextLook::Body, room.width() - caption), 0});
        row.padding = 2;
        Flow(std::move(row), {});
    }
    m_y += kGap;
}

void PageMaker::Add(const ContentsBlock&) {
    const auto count = std::ranges::count_if(m_sheet.blocks, [](const ReportBlock& block) {
        return std::holds_alternative<HeadingBlock>(block);
    });
    Require(kContentsLine * 2);
    PutText(TextColumn(u"目录"_s, TextLook::Subheading, m_made.shape.text.width()),
            m_made.shape.text.left());
    m_y += kTextGap;
    for (qsizetype line = 0; line < count; ++line) {
        Require(kContentsLine);
        m_contents.push_back({static_cast<int>(m_made.pages.size()) - 1, m_y});
        // Holds the page until the line is filled in.
        Put(BoxItem{{m_made.shape.text.left(), m_y, 0, 0}, {}, {}});
        m_y += kContentsLine;
    }
    m_y += kGap;
}

void PageMaker::FillContents() {
    const QRectF room = m_made.shape.text;
    const size_t lines = std::min(m_contents.size(), m_made.headings.size());
    for (size_t line = 0; line < lines; ++line) {
        const PageHeading& heading = m_made.headings[line];
        const ContentsLine& place = m_contents[line];
        auto& items = m_made.pages[place.page].items;
        const double left = room.left() + (heading.level - 1) * kSubIndent;
        const TextColumn number(QString::number(heading.page + 1), TextLook::Body, 60);
        const double numberLeft = room.right() - number.NaturalWidth();
        const TextColumn text(heading.text, TextLook::Body, numberLeft - left - 2 * kBesideGap);
        items.emplace_back(TextItem{{left, place.top}, text, 0, 1});
        items.emplace_back(TextItem{{numberLeft, place.top}, number, 0, 1});
        const double end = left + text.NaturalWidth() + 8;
        if (end < numberLeft - 8) {
            items.emplace_back(BoxItem{
                {end, place.top + kContentsLine * 0.6, numberLeft - 8 - end, 0}, {}, kFrameInk});
        }
        m_made.links.push_back(
            {place.page, QRectF(left, place.top, room.right() - left, kContentsLine), line});
    }
}

double PageMaker::HeightOf(const Row& row) {
    double height = row.leastHeight;
    for (const Cell& cell : row.cells) {
        height =
            std::max(height, cell.top + cell.text.HeightOf(cell.nextLine, cell.text.LineCount()));
    }
    return height + 2 * row.padding;
}

void PageMaker::Flow(Row row, const RowPart& onPart) {
    const double whole = m_made.shape.text.height();
    const double height = HeightOf(row);
    // What fits on no page begins where it is, if a few lines of it fit there.
    const bool fitsNowhere = height + HeadingsHeight() > whole;
    Require(fitsNowhere ? std::min(whole, row.leastHeight + 4 * kPageLine) : height);
    while (true) {
        const double room = Left();
        const double part = std::min(HeightOf(row), room);
        if (onPart) {
            onPart(m_y, part);
        }
        bool isDone = true;
        for (Cell& cell : row.cells) {
            const double top = cell.top + row.padding;
            const int first = cell.nextLine;
            // At least one line, so that it comes to an end.
            cell.nextLine = std::max(cell.text.EndIn(room - top - row.padding, first),
                                     std::min(first + 1, cell.text.LineCount()));
            if (cell.nextLine > first) {
                Put(TextItem{{cell.left, m_y + top}, cell.text, first, cell.nextLine});
            }
            cell.top = 0;
            isDone = isDone && cell.nextLine >= cell.text.LineCount();
        }
        m_y += part;
        row.leastHeight = 0;
        if (isDone) {
            return;
        }
        NewPage();
    }
}

void PageMaker::Add(const PhotosBlock& block) {
    const QRectF room = m_made.shape.text;
    const PhotoGrid& grid = block.grid;
    const double step = (room.width() + kGap) / grid.columns;
    const bool isAlone = grid.picturesOfPage == 1;
    Row row;
    for (size_t column = 0; column < block.photos.size(); ++column) {
        const ReportPhoto& photo = block.photos[column];
        const double left = room.left() + static_cast<double>(column) * step;
        const double textLeft = grid.textBeside ? left + grid.picture.width() + kBesideGap : left;
        const double width =
            grid.textBeside ? room.right() - textLeft : std::min(grid.picture.width(), step - kGap);
        double top = grid.textBeside ? 0 : grid.picture.height() + kTextGap;
        const TextColumn title(photo.title, TextLook::Strong, width);
        row.cells.push_back({textLeft, top, title, 0});
        top += title.Height();
        if (const QString facts = FactsText(photo.facts); !facts.isEmpty()) {
            row.cells.push_back({textLeft, top, TextColumn(facts, TextLook::Faint, width), 0});
        }
    }
    row.leastHeight = grid.picture.height();
    if (isAlone && !m_made.pages.back().items.empty() && m_waiting.empty()) {
        NewPage();
    }
    bool isFirst = true;
    Flow(std::move(row), [&](double top, double) {
        for (size_t column = 0; isFirst && column < block.photos.size(); ++column) {
            const ReportPhoto& photo = block.photos[column];
            const QPointF corner(room.left() + static_cast<double>(column) * step, top);
            const Qt::Alignment edges =
                Qt::AlignLeft | (grid.textBeside ? Qt::AlignTop : Qt::AlignBottom);
            Put(PhotoItem{{{corner, grid.picture}, edges}, photo.file, photo.lack});
        }
        isFirst = false;
    });
    m_y += kGap;
}

PageMaker::Row PageMaker::TableRow(const TableBlock& table, const QStringList& texts,
                                   TextLook look) const {
    const QRectF room = m_made.shape.text;
    Row row;
    row.padding = kCellPadding;
    double left = room.left();
    for (qsizetype column = 0; column < texts.size(); ++column) {
        const double width = room.width() * table.shares[static_cast<size_t>(column)];
        row.cells.push_back(
            {left + kCellPadding, 0, TextColumn(texts[column], look, width - 2 * kCellPadding), 0});
        left += width;
    }
    return row;
}

void PageMaker::PutTableRow(const TableBlock& table, Row row, const QColor& fill) {
    const QRectF room = m_made.shape.text;
    Flow(std::move(row), [&](double top, double height) {
        double left = room.left();
        for (const double share : table.shares) {
            Put(BoxItem{{left, top, room.width() * share, height}, fill, kFrameInk});
            left += room.width() * share;
        }
    });
}

void PageMaker::Add(const TableBlock& block) {
    const auto putHead = [&] {
        PutTableRow(block, TableRow(block, block.titles, TextLook::Strong), kShadeInk);
    };
    const double headHeight = HeightOf(TableRow(block, block.titles, TextLook::Strong));
    Require(headHeight + 2 * kPageLine);
    putHead();
    for (const QStringList& texts : block.rows) {
        Row row = TableRow(block, texts, TextLook::Body);
        const double height = HeightOf(row);
        const bool fitsAPage = height + headHeight <= m_made.shape.text.height();
        if (Left() < (fitsAPage ? height : 4 * kPageLine)) {
            // Whoever turns the page reads what the columns are.
            NewPage();
            putHead();
        }
        PutTableRow(block, std::move(row), {});
    }
    m_y += kGap;
}

void PageMaker::Add(const ImageBlock& block) {
    const QRectF room = m_made.shape.text;
    const double width = std::min(block.mostWidth, room.width());
    const double height = std::min(block.mostHeight, room.height() / 2);
    const QSizeF size = QSizeF(block.image.size()).scaled(width, height, Qt::KeepAspectRatio);
    const TextColumn note(block.note, TextLook::Faint, room.width());
    const bool hasNote = !block.note.isEmpty();
    Require(size.height() + (hasNote ? kTextGap + note.Height() : 0));
    Put(ImageItem{{QPointF(room.left(), m_y), size}, block.image});
    m_y += size.height();
    if (hasNote) {
        m_y += kTextGap;
        PutText(note, room.left());
    }
    m_y += kGap;
}

void PageMaker::Add(const RecordBlock& block) {
    Require(kLeastRecord);
    if (!m_withRecord) {
        return;
    }
    const QRectF room = m_made.shape.text;
    m_made.record = std::make_shared<RecordDocument>(block, room.size(), m_y - room.top());
    for (int page = 0; page < m_made.record->PageCount(); ++page) {
        if (page > 0) {
            m_made.pages.emplace_back();
        }
        Put(RecordItem{room.topLeft(), page});
    }
}

} // namespace host
