// Takes a report's blocks one after the other and finds their places.
#pragma once

#include "host/report/ReportPages.h"

#include <functional>

namespace host {

/// Thread: one.
class PageMaker final {
public:
    PageMaker(const ReportSheet& sheet, bool withRecord);

    [[nodiscard]] ReportPages Make();

private:
    /// A column of a row whose cells flow over pages together.
    struct Cell {
        double left = 0;
        double top = 0; ///< below the row's own, on its first page
        TextColumn text;
        int nextLine = 0;
    };
    struct Row {
        std::vector<Cell> cells;
        double leastHeight = 0; ///< of what stands beside the texts on the first page
        double padding = 0;     ///< above and below the texts
    };

    void Add(const TitleBlock& block);
    void Add(const HeadingBlock& block);
    void Add(const ParagraphBlock& block);
    void Add(const FactsBlock& block);
    void Add(const ContentsBlock& block);
    void Add(const PhotosBlock& block);
    void Add(const TableBlock& block);
    void Add(const ImageBlock& block);
    void Add(const RecordBlock& block);

    void NewPage();
    /// A height on one page, with the headings that wait for what follows them.
    void Require(double height);
    void PlaceHeadings();
    [[nodiscard]] double HeadingsHeight() const;
    [[nodiscard]] double Left() const { return m_made.shape.text.bottom() - m_y; }
    [[nodiscard]] bool IsPageEmpty() const { return m_made.pages.back().items.empty(); }
    template <class Item> void Put(Item item) {
        m_made.pages.back().items.emplace_back(std::move(item));
    }
    void PutText(const TextColumn& text, double left);
    /// The row from where the page stands; told for each page that it has a part on.
    using RowPart = std::function<void(double top, double height)>;
    void Flow(Row row, const RowPart& onPart);
    [[nodiscard]] static double HeightOf(const Row& row);
    [[nodiscard]] Row TableRow(const TableBlock& table, const QStringList& texts,
                               TextLook look) const;
    void PutTableRow(const TableBlock& table, Row row, const QColor& fill);
    void FillContents();

    const ReportSheet& m_sheet;
    const bool m_withRecord;
    ReportPages m_made;
    double m_y = 0;
    std::vector<HeadingBlock> m_waiting; ///< for what follows them
    struct ContentsLine {
        int page = 0;
        double top = 0;
    };
    std::vector<ContentsLine> m_contents;
};

} // namespace host
