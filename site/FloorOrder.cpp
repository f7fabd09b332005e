#include "site/FloorOrder.h"

#include <QRegularExpression>

namespace site {

using namespace Qt::StringLiterals;

QString FloorSortKey(const QString& floor) {
    if (floor.isEmpty()) {
        return u"0"_s;
    }
    static const QRegularExpression number(u"^[+-]?[0-9]{1,5}(\\.[0-9]{1,3})?$"_s);
    if (!number.match(floor).hasMatch()) {
        return u"2"_s + floor;
    }
    // Moved above zero, as digits of one width sort like their values.
    constexpr double kShift = 100000.0;
    const QString digits = QString::number(floor.toDouble() + kShift, 'f', 3);
    return u"1"_s + digits.rightJustified(10, u'0') + u" "_s + floor;
}

QString PositionText(const QString& axisX, const QString& axisY) {
    return axisX.isEmpty() && axisY.isEmpty() ? QString() : axisX + u'/' + axisY;
}

} // namespace site
