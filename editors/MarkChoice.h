// The box of an editor in which the mark is chosen.
#pragma once

#include "services/EnvRecords.h"
#include "toolkit/controls/ColorTxtComboBox.h"

#include <QtCore/qglobal.h>

#include <map>
#include <vector>

namespace ZelvorNRQ_KXVeskPicture {

/// All marks by their ids. Raises MarksFailed.
[[nodiscard]] std::map<qint32, KX_DATA::MarkRecord> FetchMarks();
/// Replaces the entries, in the order of the ids, which come back. Nothing or the first is
/// selected.
[[nodiscard]] std::vector<qint32> FillMarkBox(CColorTxtComboBox& box,
                                              const std::map<qint32, KX_DATA::MarkRecord>& table);

/// From now on the tip of a box holds its present text, which it may have no room for, above what
/// the tip says now.
void KeepTextInTip(QComboBox& box);

} // namespace ZelvorNRQ_KXVeskPicture
