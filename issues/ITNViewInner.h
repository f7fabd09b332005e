// What the pages of the issue viewer ask of the window around them.
#pragma once

#include <QtCore/qglobal.h>

/// Thread: user interface.
class ITNViewInner {
public:
    virtual ~ITNViewInner() = default;
    /// 0: changes are allowed.
    [[nodiscard]] virtual qint32 IsReadOnly() const = 0;
};
