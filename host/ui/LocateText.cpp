#include "host/ui/LocateText.h"

namespace host {

using namespace Qt::StringLiterals;

std::optional<LocateTarget> ParseLocateText(const QString& text) {
    const qsizetype picDash = text.lastIndexOf(u'-');
    const qsizetype markDash = picDash > 0 ? text.lastIndexOf(u'-', picDash - 1) : -1;
    if (markDash < 0) {
        return std::nullopt;
    }
    LocateTarget target;
    bool isMark = false;
    bool isPic = false;
    target.floor = text.left(markDash);
    target.markId = text.mid(markDash + 1, picDash - markDash - 1).toInt(&isMark);
    target.picId = text.mid(picDash + 1).toInt(&isPic);
    if (!isMark || !isPic) {
        return std::nullopt;
    }
    return target;
}

QString FloorCaption(const QString& floor) {
    if (floor.isEmpty()) {
        return u"无楼层"_s;
    }
    bool isNumber = false;
    floor.toInt(&isNumber);
    return isNumber ? floor + u"层"_s : floor;
}

} // namespace host
