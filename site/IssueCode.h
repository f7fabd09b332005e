// The text in the QR code of an issue.
#pragma once

#include "site/IIssues.h"

namespace site {

/// What all texts begin with.
[[nodiscard]] QString IssueCodeStart();
/// "kxissue:1:<project>:<id>". The id is that of the code, or of the issue where it has no code.
[[nodiscard]] QString IssueCode(qint32 ppid, const QString& id);
/// Project and id in such a text; nothing for any other.
[[nodiscard]] std::optional<IssueRef> ReadIssueCode(const QString& text);

} // namespace site
