// Copying a file so that nobody ever sees half of it.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QString>

namespace toolkit {

enum class CopyOutcome {
    Copied,
    SameFile,     ///< source and target are one file: nothing was done
    TargetExists, ///< and must not be replaced: nothing was done
    Failed,       ///< the target is as it was, nothing is left behind
};

enum class IfExists { Keep, Replace };

/// Copies under a temporary name of its own beside the target, then renames. The folder must exist.
/// Thread: any.
TOOLKIT_EXPORT CopyOutcome CopyFileWhole(const QString& source, const QString& target,
                                         IfExists ifExists);

} // namespace toolkit
