// What was filed, as a reminder message of the push channel.
#pragma once

#include "site/IFilings.h"

#include <string>

namespace host {

/// A JSON object (RFC 8259) in code page 936, in the form that the module reads for photos or, by
/// the filing's kind, for issues. Characters that the code page lacks are escaped (\uXXXX), so that
/// none is lost.
/// @param place  of the filing, as a person reads it.
[[nodiscard]] std::string PushMessage(const site::Filing& filing, const QString& place);

} // namespace host
