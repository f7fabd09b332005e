// What Qt's PDF writer can't do, done to its file by qpdf: pictures as they are, bookmarks, links.
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/ReportFile.h"
#include "host/report/ReportPages.h"

#include <QImage>

namespace host {

/// An image of one line whose width names a photograph: index + 1.
[[nodiscard]] QImage StandIn(int index);

struct PdfParts {
    std::vector<PrintPicture> photos; ///< by the index of their stand-ins
    const ReportPages& pages;
};

/// Reads `painted` and writes `whole`; memory doesn't grow with the photographs. Throws
/// ReportFault.
void PutPartsIn(const QString& painted, const QString& whole, const PdfParts& parts,
                const ReportFile& file, const ReportSteps& steps);

} // namespace host
