#include "base/MarkBox.h"

namespace ZelvorNRQ_KXVeskPicture {

std::vector<qint32> FillMarkBox(CColorTxtComboBox& box, const std::vector<MarkEntry>& entries) {
    std::vector<qint32> markIds;
    std::vector<ColorAndName> shown;
    for (const MarkEntry& entry : entries) {
        markIds.push_back(entry.markId);
        shown.push_back(entry.shown);
    }
    box.OnInitialize(shown);
    return markIds;
}

} // namespace ZelvorNRQ_KXVeskPicture
