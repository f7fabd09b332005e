// The photographs of a report in a Word document.
#pragma once

#include "host/report/ReportPrints.h"
#include "host/report/WordXml.h"

namespace host {

class WordRelations;

/// Rows of photographs, those that follow each other in one table; where one fills a page, each
/// begins one. Thread: one.
class WordPhotos final {
public:
    /// @param room  of the page's text, 1/96 inch.
    WordPhotos(WordXml& xml, WordRelations& relations, ReportPrints& prints, const QSizeF& room)
        : m_xml(xml), m_relations(relations), m_prints(prints), m_room(room) {}

    void Write(const PhotosBlock& block);
    /// Nothing follows directly. Does nothing where nothing was written.
    void End();

private:
    void BeginTable(const PhotoGrid& grid);
    void WriteRow(const PhotosBlock& block);
    void WritePicture(const ReportPhoto& photo, const PhotoGrid& grid);
    void WriteLack(const QString& text, const PhotoGrid& grid);
    void WriteTexts(const ReportPhoto& photo, const PhotoGrid& grid, bool isLast);

    WordXml& m_xml;
    WordRelations& m_relations;
    ReportPrints& m_prints;
    const QSizeF m_room;
    std::vector<int> m_columns; ///< twentieths of a point; empty: no table is begun
};

} // namespace host
