#include "host/ui/statistics/StatisticsChart.h"

#include <QDate>

namespace host {

using namespace Qt::StringLiterals;

QString NameOf(CountedKind kind) {
    switch (kind) {
    case CountedKind::BimPhotos:
        return u"BIM模型照片"_s;
    case CountedKind::PdfPhotos:
        return u"图纸照片"_s;
    case CountedKind::Issues:
        break;
    }
    return u"TN问题"_s;
}

QString NameOf(CountedBy grouping, CountedKind kind) {
    switch (grouping) {
    case CountedBy::Mark:
        return u"按标识"_s;
    case CountedBy::Place:
        return kind == CountedKind::PdfPhotos ? u"按图纸"_s : u"按楼层"_s;
    case CountedBy::State:
        return u"按状态"_s;
    case CountedBy::Week:
        break;
    }
    return u"按周"_s;
}

QString CountText(CountedKind kind, qint64 count) {
    return (kind == CountedKind::Issues ? u"问题 %1 个"_s : u"照片 %1 张"_s).arg(count);
}

QString ShareText(qint64 count, qint64 total) {
    if (total == 0) {
        return u"0%"_s;
    }
    return QString::number(100.0 * double(count) / double(total), 'f', 1) + u'%';
}

QString WeekName(const QDate& monday, const QDate& today) {
    const QDate sunday = monday.addDays(6);
    const QString from =
        monday.toString(monday.year() == today.year() ? u"M月d日"_s : u"yyyy年M月d日"_s);
    const bool isSameMonth = monday.month() == sunday.month();
    return from + u'–' + sunday.toString(isSameMonth ? u"d日"_s : u"M月d日"_s);
}

} // namespace host
