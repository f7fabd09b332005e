// Texts of people as the files of a report may hold them.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace host {

/// Without what XML 1.0 (W3C, 2.2) has no place for: control characters but tab and line feed,
/// halves of surrogate pairs, U+FFFE, U+FFFF. Line breaks of all kinds become line feeds.
[[nodiscard]] QString WritableText(QStringView text);

/// The same in its lines; at least one.
[[nodiscard]] QStringList WritableLines(QStringView text);

} // namespace host
