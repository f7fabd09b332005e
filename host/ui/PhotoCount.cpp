#include "host/ui/PhotoCount.h"

#include <QLocale>

namespace host {

using namespace Qt::StringLiterals;

PhotoCount& PhotoCount::operator+=(const PhotoCount& other) {
    shown += other.shown;
    hidden += other.hidden;
    return *this;
}

PhotoCount& PhotoCount::operator-=(const PhotoCount& other) {
    shown -= other.shown;
    hidden -= other.hidden;
    return *this;
}

QString CountText(const PhotoCount& count) {
    const QString shown = QLocale::c().toString(count.shown);
    return count.hidden == 0 ? shown
                             : u"%1 + %2 隐藏"_s.arg(shown, QLocale::c().toString(count.hidden));
}

QString PhotosText(const PhotoCount& count) {
    return (count.hidden == 0 ? u"照片 %1 张"_s : u"照片 %1"_s).arg(CountText(count));
}

} // namespace host
