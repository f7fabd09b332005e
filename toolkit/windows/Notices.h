// Short notes for the person that ask nothing: the host shows them in its message bar.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QString>

#include <functional>

namespace toolkit {

using NoticeSink = std::function<void(const QString&)>;

/// Where notes go; empty: nowhere. Gives the sink before. Thread: user interface, as below.
TOOLKIT_EXPORT NoticeSink SetNoticeSink(NoticeSink sink);
/// A complete sentence in Chinese, plain text.
TOOLKIT_EXPORT void ShowNotice(const QString& text);

} // namespace toolkit
