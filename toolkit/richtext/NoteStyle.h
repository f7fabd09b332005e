// The looks that a document may have, in the words of CSS.
#pragma once

#include <QString>

namespace toolkit {

/// How a link to an attachment begins; the store name follows, then "/" and the name of the file as
/// it was attached, percent-encoded.
inline const QString kAttachmentScheme = QStringLiteral("attachment:");

/// Of the declarations of a style attribute those that say how their own element looks and load
/// nothing; as they were written, each with a ";". Thread: any.
[[nodiscard]] QString CleanNoteStyle(const QString& style);

} // namespace toolkit
