// What writes the rows of a list into a file.
#pragma once

#include "sheets/SheetTable.h"

#include <atomic>
#include <functional>

namespace sheets {

/// What was not written as it stood.
struct SheetNotes {
    qint64 rows = 0;
    qint64 cutTexts = 0;        ///< longer than a cell may be; they end with "…"
    qint64 missingPictures = 0; ///< can't be fetched or are no pictures
    qint64 leftOutPictures = 0; ///< beyond the most that a file takes
    int sheets = 1;
};

/// Bytes of a small JPEG, empty for a picture that can't be had.
using PictureSource = std::function<QByteArray(const SheetPicture&)>;

/// Begin, rows, End, each once and in this order; destroyed before End has returned it leaves
/// nothing behind, and what was there before stays. Throws SheetFault. Thread: one at a time.
class ISheetFile {
public:
    virtual ~ISheetFile() = default;

    virtual void Begin(const SheetLayout& layout) = 0;
    /// Of as many cells as there are columns.
    virtual void Add(const SheetRow& row) = 0;
    /// The file stands under its name. Throws SheetCancelled, too, as soon as `cancelled` is seen.
    [[nodiscard]] virtual SheetNotes End(const std::atomic<bool>& cancelled) = 0;
};

} // namespace sheets
