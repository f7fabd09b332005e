// A rich text in a Word document.
#pragma once

#include "host/report/RecordText.h"

#include <functional>
#include <vector>

namespace host {

class WordLists;
class WordRelations;
class WordXml;
struct WordLook;

/// Writes what it takes. Headings come below those of the report, so that the contents don't list
/// them. Thread: one.
class WordRecord final : public IRecordTaker {
public:
    /// Gives a picture ready for print; an empty path: it can't be read.
    using GetPicture = std::function<QString(const RecordPicture& picture)>;

    WordRecord(WordXml& xml, WordRelations& relations, WordLists& lists, GetPicture getPicture);

    void BeginParagraph(const RecordParagraph& paragraph) override;
    void Text(const QString& text, const RecordLook& look) override;
    void Picture(const RecordPicture& picture) override;
    void EndParagraph() override;
    void BeginTable(const RecordTable& table) override;
    void BeginRow() override;
    void BeginCell(const RecordCell& cell) override;
    void EndCell() override;
    void EndRow() override;
    void EndTable() override;

private:
    void CloseCell();
    [[nodiscard]] WordLook LookOf(const RecordLook& look) const;

    WordXml& m_xml;
    WordRelations& m_relations;
    WordLists& m_lists;
    const GetPicture m_getPicture;
    /// Of open tables: one has more columns than Word has, and rows of one cell therefore.
    std::vector<bool> m_joinsCells;
    bool m_isInHeading = false;
    bool m_isEmptyCell = false; ///< Word wants a paragraph in each
};

} // namespace host
