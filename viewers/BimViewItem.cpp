#include "viewers/BimViewItem.h"

#include <algorithm>
#include <set>

namespace gallery {

using namespace Qt::StringLiterals;

namespace {

/// The ticked photos of a place; null where the marks don't know it.
const std::vector<KX_DATA::ShownPicItem>* TickedAt(const KX_DATA::ShownPicMarks& shown,
                                                   const std::string& group, qint32 markId) {
    const auto floor = shown.find(group);
    if (floor == shown.end()) {
        return nullptr;
    }
    const auto second = floor->second.find(QString());
    if (second == floor->second.end()) {
        return nullptr;
    }
    const auto mark = second->second.find(markId);
    return mark == second->second.end() ? nullptr : &mark->second;
}

} // namespace

QString PositionOf(const KX_DATA::BimPicDetail& detail) {
    return detail.floor.isEmpty() ? QString()
                                  : u"%1层 %2/%3"_s.arg(detail.floor, detail.axisX, detail.axisY);
}

QString JoinLabels(const std::vector<KX_DATA::LabelEntry>& labels, QChar separator) {
    QString names;
    for (const KX_DATA::LabelEntry& label : labels) {
        names += label.labelName + separator;
    }
    return names;
}

QString BimViewTitle(const QString& name, int index, int count) {
    return u"%1   (%2/%3)"_s.arg(name, QString::number(index + 1), QString::number(count));
}

QString FloorGroup(const QString& floor) {
    return floor.isEmpty() ? u"其他"_s : floor;
}

void KeepShown(std::vector<KX_DATA::PicFileEntry>& files, const KX_DATA::ShownPicMarks& shown,
               const std::string& group, qint32 markId) {
    const auto* ticked = TickedAt(shown, group, markId);
    if (ticked == nullptr || ticked->empty()) {
        return;
    }
    std::set<qint32> ids;
    for (const KX_DATA::ShownPicItem& item : *ticked) {
        ids.insert(item.picId);
    }
    std::erase_if(files,
                  [&](const KX_DATA::PicFileEntry& file) { return !ids.contains(file.picId); });
}

} // namespace gallery
