// The keywords searched lately.
#pragma once

#include <QString>

#include <vector>

/// The list after a search for `keyword`: it stands first and once, and at most six stay. An empty
/// keyword changes nothing.
[[nodiscard]] std::vector<QString> WithRecentKeyword(std::vector<QString> entries,
                                                     const QString& keyword);

/// The keyword that is searched: trimmed, and empty where the box holds its own hint.
[[nodiscard]] QString EffectiveKeyword(const QString& boxText, const QString& hint);
