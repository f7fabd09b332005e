#include "host/report/WordPhotos.h"

#include "host/report/WordPackage.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBetweenPhotos = 210; ///< beside each other, twentieths of a point
constexpr double kBetweenRows = 8;
constexpr double kLackHeight = 72;
/// What a picture that fills a page leaves for the heading above it, and for each line below.
constexpr double kHeadingHeight = 64;
constexpr double kLineHeight = 20;
constexpr double kLeastShare = 0.4;

/// Smaller where its page couldn't take heading and facts too.
QSizeF WordPhotoSizeOf(const PrintPicture& picture, const ReportPhoto& photo, const PhotoGrid& grid,
                       double pageHeight) {
    QSizeF size = PrintSizeOf(picture);
    const double texts = kHeadingHeight + kLineHeight * double(photo.facts.size() + 1);
    const double most = std::max(pageHeight - texts, pageHeight * kLeastShare);
    if (grid.picturesOfPage == 1 && size.height() > most) {
        size *= most / size.height();
    }
    return size;
}

} // namespace

void WordPhotos::Write(const PhotosBlock& block) {
    if (block.photos.empty()) {
        return;
    }
    const bool fillsPage = block.grid.picturesOfPage == 1;
    if (m_columns.empty()) {
        BeginTable(block.grid);
    } else if (fillsPage) {
        m_xml.End();
        WordParagraph page;
        page.beginsPage = true;
        page.above = 0;
        page.below = 0;
        page.line = TwipsOf(1);
        m_xml.Paragraph(page, {});
        BeginTable(block.grid);
    }
    WriteRow(block);
}

void WordPhotos::End() {
    if (!m_columns.empty()) {
        m_xml.End();
        m_xml.Gap(kBetweenRows);
        m_columns.clear();
    }
}

void WordPhotos::BeginTable(const PhotoGrid& grid) {
    const int picture = TwipsOf(grid.picture.width()) + kBetweenPhotos;
    m_columns.assign(size_t(std::max(grid.columns, 1)), picture);
    m_columns.back() -= grid.textBeside ? 0 : kBetweenPhotos;
    if (grid.textBeside) {
        m_columns.push_back(std::max(TwipsOf(m_room.width()) - picture, kBetweenPhotos));
    }
    m_xml.BeginTable({u"PhotoTable"_s, false}, m_columns);
}

void WordPhotos::WriteRow(const PhotosBlock& block) {
    m_xml.BeginRow();
    for (size_t column = 0; column < m_columns.size(); ++column) {
        WordCell cell;
        cell.width = m_columns[column];
        m_xml.BeginCell(cell);
        const bool isText = block.grid.textBeside && column == 1;
        const size_t place = isText ? 0 : column;
        if (place >= block.photos.size()) {
            m_xml.Gap(kBetweenRows);
        } else if (isText) {
            WriteTexts(block.photos[place], block.grid, column + 1 == m_columns.size());
        } else {
            WritePicture(block.photos[place], block.grid);
            if (!block.grid.textBeside) {
                WriteTexts(block.photos[place], block.grid, column + 1 == m_columns.size());
            }
            m_xml.Gap(kBetweenRows);
        }
        m_xml.End();
    }
    m_xml.End();
}

void WordPhotos::WritePicture(const ReportPhoto& photo, const PhotoGrid& grid) {
    const PrintPicture picture = m_prints.Next(photo.file, grid.picture);
    if (!picture.IsThere()) {
        WriteLack(LackOf(photo), grid);
        return;
    }
    WordParagraph line;
    line.below = 0;
    if (grid.picturesOfPage == 1) {
        line.alignment = u"center"_s;
    }
    m_xml.BeginParagraph(line);
    m_xml.Picture({m_relations.AddPicture(picture.path),
                   WordPhotoSizeOf(picture, photo, grid, m_room.height()), photo.title, true});
    m_xml.End();
}

void WordPhotos::WriteLack(const QString& text, const PhotoGrid& grid) {
    const std::vector<int> columns{TwipsOf(grid.picture.width())};
    m_xml.BeginTable({u"LinedTable"_s, false}, columns);
    m_xml.BeginRow(false, true, TwipsOf(std::min(kLackHeight, grid.picture.height())));
    WordCell cell;
    cell.width = columns[0];
    cell.alignment = u"center"_s;
    m_xml.BeginCell(cell);
    WordParagraph line;
    line.style = u"Facts"_s;
    line.alignment = u"center"_s;
    WordLook look;
    look.color = QColor(0x6B, 0x6B, 0x6B);
    m_xml.Paragraph(line, text, look);
    m_xml.End();
    m_xml.End();
    m_xml.End();
    m_xml.Gap(1);
}

void WordPhotos::WriteTexts(const ReportPhoto& photo, const PhotoGrid& grid, bool isLast) {
    WordParagraph line;
    line.right = isLast ? 0 : kBetweenPhotos;
    if (grid.picturesOfPage == 1) {
        line.alignment = u"center"_s;
    }
    line.style = u"Caption"_s;
    m_xml.Paragraph(line, photo.title);
    line.style = u"Facts"_s;
    WordLook quiet;
    quiet.color = QColor(0x6B, 0x6B, 0x6B);
    for (const auto& [caption, value] : photo.facts) {
        m_xml.BeginParagraph(line);
        m_xml.Run(caption + u"："_s, quiet);
        m_xml.Run(value);
        m_xml.End();
    }
}

} // namespace host
