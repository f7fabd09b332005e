#include "editors/MarkChoice.h"

#include "base/MarkBox.h"
#include "base/Status.h"
#include "services/Factories.h"
#include "services/IKXLocalCacheData.h"
#include "toolkit/Look.h"

namespace ZelvorNRQ_KXVeskPicture {

std::map<qint32, KX_DATA::MarkRecord> FetchMarks() {
    std::map<qint32, KX_DATA::MarkRecord> table;
    if (!GetKXLocalCacheData()->GetMarkTable(table)) {
        throw e_VeskPicMngStatus::MarksFailed;
    }
    return table;
}

std::vector<qint32> FillMarkBox(CColorTxtComboBox& box,
                                const std::map<qint32, KX_DATA::MarkRecord>& table) {
    std::vector<MarkEntry> marks;
    for (const auto& [markId, mark] : table) {
        marks.push_back({markId, {mark.color, mark.name}});
    }
    return FillMarkBox(box, marks);
}

void KeepTextInTip(QComboBox& box) {
    const QString purpose = box.toolTip();
    QObject::connect(&box, &QComboBox::currentTextChanged, &box,
                     [&box, purpose](const QString& text) {
                         const QString tip = text.isEmpty() ? purpose : text + u'\n' + purpose;
                         box.setToolTip(toolkit::PlainTip(tip));
                     });
}

} // namespace ZelvorNRQ_KXVeskPicture
