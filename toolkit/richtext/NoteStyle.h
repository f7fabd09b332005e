// The looks that a document may have, in the words of CSS.
#pragma once

#include <QString>

namespace toolkit {

/// Of the declarations of a style attribute those that say how their own element looks and load
/// nothing; as they were written, each with a ";". Thread: any.
[[nodiscard]] QString CleanNoteStyle(const QString& style);

} // namespace toolkit
