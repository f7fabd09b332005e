#include "sheets/SheetTable.h"

#include <QDateTime>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kTimeForm = u"yyyy-MM-dd HH:mm";
constexpr qint64 kSecondsADay = 86'400;
constexpr int kNoNumber = 1'000'000;
const QDate kFirstDay(1970, 1, 1);

/// The digits from a place on; a number that no time has for anything else there.
int DigitsAt(const QString& text, qsizetype at, qsizetype count) {
    int number = 0;
    for (qsizetype i = at; i < at + count; ++i) {
        if (text[i] < u'0' || text[i] > u'9') {
            return kNoNumber;
        }
        number = number * 10 + (text[i].unicode() - u'0');
    }
    return number;
}

} // namespace

SheetTime SheetTimeOf(qint64 seconds) {
    return {seconds + QDateTime::fromSecsSinceEpoch(seconds).offsetFromUtc()};
}

std::optional<SheetTime> SheetTimeOf(const QString& text) {
    constexpr qsizetype kLength = 16;
    if (text.size() != kLength || text[4] != u'-' || text[7] != u'-' || text[10] != u' ' ||
        text[13] != u':') {
        return std::nullopt;
    }
    // QDateTime's reader of forms takes longer than writing the cell.
    const QDate day(DigitsAt(text, 0, 4), DigitsAt(text, 5, 2), DigitsAt(text, 8, 2));
    const QTime time(DigitsAt(text, 11, 2), DigitsAt(text, 14, 2));
    if (!day.isValid() || !time.isValid() || day.year() == kNoNumber) {
        return std::nullopt;
    }
    return SheetTime{kFirstDay.daysTo(day) * kSecondsADay + time.msecsSinceStartOfDay() / 1000};
}

QString TextOf(SheetTime time) {
    return QDateTime::fromSecsSinceEpoch(time.wallSeconds, Qt::UTC)
        .toString(QString::fromUtf16(kTimeForm));
}

} // namespace sheets
