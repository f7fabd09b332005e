// Fills a data folder with very many rows, without files, to measure and to test with.
#pragma once

#include <QtGlobal>

#include <functional>

namespace site {
class DataFolder;
} // namespace site

namespace bulk {

struct BulkSize {
    qint32 bimPhotos = 0;
    qint32 pdfPhotos = 0;
    qint32 issues = 0;
    qint32 projects = 5;
    qint32 bigShare = 80; ///< percent of all rows that the first project has
};

/// Told how many rows are written, of how many.
using BulkProgress = std::function<void(qint64 done, qint64 all)>;

/// Writes projects 1 to `projects`, a workset of all of them, a user with all rights named
/// "bench", 12 marks, 60 labels, floors, and the rows: the same ones for the same size, spread
/// unevenly like real ones. The folder must be open and empty. About a minute for a million photos.
/// Throws DataError.
void FillBulkSite(site::DataFolder& folder, const BulkSize& size,
                  const BulkProgress& progress = {});

} // namespace bulk
