// What the grid keeps of a column.
#pragma once

#include "toolkit/grid/MultiPageGrid.h"

struct CMultiPageGrid::Column {
    QString caption;
    QString tip;
    int width = 0;      ///< as told, device-independent pixels
    int userWidth = -1; ///< what the user dragged it to; -1: never
    int stretch = -1;   ///< share of free room; -1: by alignment and lock
    Qt::Alignment headerAlign = Qt::AlignCenter;
    Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter;
    bool locked = false;
    bool visible = true;
    int headerImage = -1;
    int state = 0;
};
