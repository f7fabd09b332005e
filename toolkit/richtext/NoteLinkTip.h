// What a link tells of itself.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QString>

namespace toolkit {

class NoteDocument;

/// Bytes in words for people, as "1.5 MB"; units of 1024.
[[nodiscard]] TOOLKIT_EXPORT QString SizeWords(quint64 bytes);
/// Of an attachment its name and its size, as far as that is known; of any other the address. Then
/// how it is opened. Plain text in lines.
[[nodiscard]] TOOLKIT_EXPORT QString LinkTip(const NoteDocument& document, const QString& address,
                                             bool isReadOnly);

} // namespace toolkit
