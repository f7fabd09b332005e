// Numbers of a workbook as a person sees them.
#pragma once

#include <QString>

namespace sheets {

/// What a number's form makes of it.
enum class NumberForm {
    Plain,   ///< the number itself
    Date,    ///< a day or a time
    Dressed, ///< something else than the number: a percentage, letters, leading zeros, fractions
};

/// Of a form that a workbook brings with it (ISO/IEC 29500-1, 18.8.31); the first section counts.
[[nodiscard]] NumberForm NumberFormOf(const QString& code);
/// Of one that every workbook has, by its number (18.8.30).
[[nodiscard]] NumberForm NumberFormOf(int number);

/// Without a needless fraction, 15 digits at most as spreadsheets show them; what is no number
/// stays as it is.
[[nodiscard]] QString NumberText(const QString& stored);

} // namespace sheets
