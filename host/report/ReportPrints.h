// The pictures of a report in their order, each a step of its making.
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/RecordText.h"
#include "host/report/ReportBlocks.h"
#include "host/report/ReportFile.h"

#include <map>
#include <memory>

namespace host {

/// Asks for all of them at once, so that they are made while others are written. Thread: one.
class ReportPrints final {
public:
    /// Steps are the pictures of the sheet and of its rich texts, and `more`. Throws an empty
    /// ReportFault if it shall end, as Next and Step.
    ReportPrints(const ReportSheet& sheet, PrintPictures& pictures, const ReportSteps& steps,
                 int more = 2);

    /// One step. A picture that isn't there has no path.
    [[nodiscard]] PrintPicture Next(const QString& file, const QSizeF& box);
    /// A step that isn't a picture.
    void Step();
    /// Of a block of the sheet.
    [[nodiscard]] const RecordText& Record(const RecordBlock& block) const;

private:
    void Prepare(const QString& file, const QSizeF& box);
    void PrepareRecord(const RecordBlock& block, const QSizeF& room);

    PrintPictures& m_pictures;
    const ReportSteps& m_steps;
    std::map<const RecordBlock*, std::unique_ptr<RecordText>> m_records;
    int m_done = 0;
    int m_total;
};

/// How large a photograph stands on paper: as many dots per inch as it was made for, 1/96 inch.
[[nodiscard]] inline QSizeF PrintSizeOf(const PrintPicture& picture) {
    return QSizeF(picture.size) * (kReportDpi / kPrintDpi);
}

/// Whether the block is a heading with which a page begins: of the rich text, and of photographs
/// that fill a page each.
[[nodiscard]] bool HeadsPage(const ReportSheet& sheet, size_t place);

/// What is told where a photograph isn't; `lack` where that says it.
[[nodiscard]] QString LackOf(const ReportPhoto& photo);

} // namespace host
