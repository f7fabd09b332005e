// A text as the proposed name of a file.
#pragma once

#include <QChar>
#include <QString>

namespace host {

/// The beginning of a text without what a file system might refuse: nothing that Windows forbids,
/// no space or dot at either end. Never cut within a character.
/// @param most     length, UTF-16 units; 80 leave room for an ending within 255 bytes of UTF-8.
/// @param instead  stands for each character that is not allowed.
/// @return         empty if nothing is left.
[[nodiscard]] QString FileNameFrom(const QString& text, qsizetype most, QChar instead = u'_');

} // namespace host
