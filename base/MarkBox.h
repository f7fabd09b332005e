// The box in which a mark is chosen by its colour and name.
#pragma once

#include "toolkit/controls/ColorTxtComboBox.h"

#include <QtCore/qglobal.h>

#include <vector>

namespace ZelvorNRQ_KXVeskPicture {

/// One entry; `markId` is 0 where it stands for all marks.
struct MarkEntry {
    qint32 markId = 0;
    ColorAndName shown;
};

/// Replaces the entries and selects the first. Gives their marks, in their order.
[[nodiscard]] std::vector<qint32> FillMarkBox(CColorTxtComboBox& box,
                                              const std::vector<MarkEntry>& entries);

} // namespace ZelvorNRQ_KXVeskPicture
