// What the issue editor saves, without its window.
#pragma once

#include "services/IssueRecords.h"

#include <QString>

namespace issues {

/// The word for the number of a project's trade; empty for any other number.
[[nodiscard]] QString MajorWord(qint32 major);

/// Names that belong to the trades "土建", "钢筋" and "安装". Nobody reads them; required as is.
inline constexpr QStringView kDefaultNames[] = {u"tjdefault", u"gjdefault", u"azdefault"};

/// @param major  see MajorWord.
[[nodiscard]] KX_DATA::QRCodeQuery QueryOf(const KX_DATA::PickedComponent& component,
                                           const QString& major, qint32 ppid);

/// The record of an issue that nobody has changed.
[[nodiscard]] KX_DATA::IssueUpdate UpdateOf(const KX_DATA::QuestionDetail& question);

} // namespace issues
