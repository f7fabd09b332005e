// The parts of a Word document beside its text.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTextListFormat>

#include <map>
#include <vector>

namespace host {

struct ReportSheet;

/// Lists of the text, as numbering.xml tells of them.
class WordLists final {
public:
    /// @param list  its number in the rich text. Gives its number in the document, from 1.
    [[nodiscard]] int NumberOf(int list, QTextListFormat::Style style);
    [[nodiscard]] QByteArray Xml() const;

private:
    std::map<int, int> m_numbers;
    std::vector<int> m_kinds; ///< places in the table of kinds, one for each number
};

/// Parts that are the same in every document: name in the package and content.
struct WordPart {
    const char* name;
    const char* xml;
};
[[nodiscard]] const std::vector<WordPart>& FixedWordParts();

[[nodiscard]] QByteArray WordStyles(const ReportSheet& sheet);
[[nodiscard]] QByteArray WordHeader(const ReportSheet& sheet);
/// With the number of the page.
[[nodiscard]] QByteArray WordFooter(const ReportSheet& sheet);
/// Title and author (Dublin Core, as ISO/IEC 29500-2 wants it).
[[nodiscard]] QByteArray WordProperties(const ReportSheet& sheet);

} // namespace host
