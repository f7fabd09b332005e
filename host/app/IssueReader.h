// An issue on its way from the data to the client's windows.
#pragma once

#include "host/ui/issues/IssueWindow.h"
#include "site/IIssues.h"

namespace host {

class HostSession;

/// Nothing for an issue that isn't there. May throw DataError.
[[nodiscard]] std::optional<IssueFacts> ReadIssueFacts(const HostSession& session,
                                                       const site::IssueRef& issue);
/// A line of the history: "名称：“甲” → “乙”", "添加图片 2 张：a.jpg、b.jpg".
[[nodiscard]] QString DeedText(const site::IssueChange& change);

/// What a text from a QR code stands for among the open projects.
struct CodeLookup {
    std::optional<site::IssueRef> issue;
    QString lack; ///< Chinese, why there is none
};
/// May throw DataError.
[[nodiscard]] CodeLookup LookUpCode(const HostSession& session, const QString& text);

} // namespace host
