// A new issue on its way into the site.
#pragma once

#include "host/ui/issues/RaiseIssueDialog.h"

namespace host {

class HostSession;

/// Raises an issue of the current project with all of its pictures in one commit, by the person who
/// is signed in.
/// @return  Chinese, why nothing was filed; empty on success.
[[nodiscard]] QString FileDraft(const HostSession& session, const IssueDraft& draft);

} // namespace host
