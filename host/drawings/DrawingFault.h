// What a drawing's file can't be used for, and how a person is told.
#pragma once

#include <QMetaType>
#include <QString>

namespace host {

/// Numbers cross between the client and the reader.
enum class DrawingFault : quint8 {
    None = 0,
    Missing,      ///< no such file, or not to be read
    NotPdf,       ///< something else
    Damaged,      ///< begins as one, but can't be understood
    Encrypted,    ///< wants a password
    NoPages,      ///< an empty document
    TooManyPages, ///< more than kMostSheets
    PageTooLarge, ///< a side longer than kLongestSide
    FileTooLarge, ///< more bytes than kLargestDrawing
    Crashed,      ///< the reader ended over it, or ran out of memory
    Stalled,      ///< the reader took too long
    NoReader,     ///< the reader can't be started
};

inline constexpr int kMostSheets = 300;
/// Points, 1/72 inch: 3.5 m, four times an A0 sheet's long side.
inline constexpr double kLongestSide = 10000;
inline constexpr qint64 kLargestDrawing = qint64(300) * 1024 * 1024;

/// One sentence, Chinese; empty for None.
[[nodiscard]] QString DrawingFaultText(DrawingFault fault);

} // namespace host

Q_DECLARE_METATYPE(host::DrawingFault)
