// The tabs of the issue viewer.
#pragma once

#include "toolkit/controls/TabWnd.h"

/// Its strip is lower than usual. The name is what it is. Thread: user interface.
class CTest final : public CBCGPTabWnd {
public:
    using CBCGPTabWnd::CBCGPTabWnd;

protected:
    [[nodiscard]] int CalcTabsHeight() const override { return 30; }
};
