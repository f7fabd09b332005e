// The wait cursor while a call blocks.
#pragma once

#include "toolkit/ToolkitExport.h"

namespace toolkit {

/// Shows while it lives; several may stand one in the other. Not across a question to the person.
/// Thread: user interface.
class TOOLKIT_EXPORT WaitCursor final {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace toolkit
