// A rich text in a web page.
#pragma once

#include "host/report/RecordText.h"

#include <functional>
#include <map>
#include <vector>

namespace host {

class WebText;

/// Writes what it takes anew: none of the rich text's own markup. Headings come below those of the
/// report. Thread: one.
class WebRecord final : public IRecordTaker {
public:
    /// Writes a picture, or what is told instead of it.
    using WritePicture = std::function<void(const RecordPicture& picture)>;

    WebRecord(WebText& text, WritePicture writePicture);

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
    /// Behind the last of it.
    void End() { CloseLists(0); }

private:
    struct OpenList {
        int list;
        int level;
        QString element;
    };

    void OpenItem(const RecordParagraph& paragraph);
    void CloseLists(size_t left);
    [[nodiscard]] size_t FirstListHere() const;

    WebText& m_text;
    const WritePicture m_writePicture;
    std::vector<OpenList> m_lists;    ///< in each other, each with an open item
    std::vector<size_t> m_listsAbove; ///< lists that are open around each open cell
    std::map<int, int> m_counts;      ///< items of each list so far
    std::vector<bool> m_skipped;      ///< for each open cell: it is covered
    QString m_end;                    ///< of the open paragraph
    bool m_isEmpty = false;
};

} // namespace host
