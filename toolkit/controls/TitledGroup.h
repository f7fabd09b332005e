// A frame with its title in the upper line.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QGroupBox>

/// Its frame begins at half the title's height, so that what is told to stand close under the
/// title stands within the frame. Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT CTitledGroup final : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};
