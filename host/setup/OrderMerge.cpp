#include "host/setup/OrderMerge.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <limits>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// 一 to 九十九; 0 for anything else.
int ChineseNumber(const QString& text) {
    static const QString digits = u"一二三四五六七八九"_s;
    static const QRegularExpression form(
        u"^(?:([二三四五六七八九])?(十))?([一二三四五六七八九])?$"_s);
    const auto match = form.match(text);
    if (!match.hasMatch()) {
        return 0;
    }
    const int tens = match.capturedLength(1) > 0 ? int(digits.indexOf(match.captured(1))) + 1
                                                 : int(match.capturedLength(2));
    const int ones = match.capturedLength(3) > 0 ? int(digits.indexOf(match.captured(3))) + 1 : 0;
    return tens * 10 + ones;
}

} // namespace

QStringList MergedOrder(const QStringList& present, const QStringList& named) {
    const QSet<QString> known(present.begin(), present.end());
    const QSet<QString> wanted(named.begin(), named.end());
    QStringList both;
    QHash<QString, QStringList> behind; // what comes new, by the known one before it
    QStringList ahead;                  // before the first known one
    for (const QString& name : named) {
        if (known.contains(name)) {
            both << name;
        } else {
            (both.isEmpty() ? ahead : behind[both.back()]) << name;
        }
    }
    QStringList merged;
    qsizetype next = 0;
    for (const QString& name : present) {
        const QString placed = wanted.contains(name) ? both[next++] : name;
        if (!both.isEmpty() && placed == both.front()) {
            merged << ahead;
        }
        merged << placed << behind.value(placed);
    }
    return both.isEmpty() ? merged + ahead : merged;
}

std::optional<double> FloorHeight(const QString& name) {
    static const QRegularExpression form(u"^(-|负|地下|B)?(?:F|第)?(\\d{1,3}(?:\\.\\d{1,2})?|"
                                         "[一二三四五六七八九十]{1,3})(?:F|层|楼)?$"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(name);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    bool isNumber = false;
    double height = match.captured(2).toDouble(&isNumber);
    if (!isNumber) {
        height = ChineseNumber(match.captured(2));
    }
    if (!isNumber && height == 0) {
        return std::nullopt;
    }
    return match.capturedLength(1) > 0 ? -height : height;
}

QStringList MergedFloors(const QStringList& present, const QStringList& named) {
    const QSet<QString> known(present.begin(), present.end());
    const bool byHeight = std::all_of(named.begin(), named.end(), [&known](const QString& name) {
        return !known.contains(name) && FloorHeight(name);
    });
    if (!byHeight) {
        return MergedOrder(present, named);
    }
    std::vector<double> highest; // up to each of the present floors
    for (const QString& floor : present) {
        const double before =
            highest.empty() ? -std::numeric_limits<double>::infinity() : highest.back();
        highest.push_back(std::max(before, FloorHeight(floor).value_or(before)));
    }
    std::vector<QStringList> below(highest.size() + 1); // what comes new, before each of them
    for (const QString& name : named) {
        const auto higher = std::upper_bound(highest.begin(), highest.end(), *FloorHeight(name));
        below[size_t(higher - highest.begin())] << name;
    }
    QStringList merged;
    for (size_t i = 0; i < highest.size(); ++i) {
        merged << below[i] << present[qsizetype(i)];
    }
    return merged << below.back();
}

std::vector<MisplacedFloor> MisplacedFloors(const QStringList& floors) {
    std::vector<MisplacedFloor> misplaced;
    std::optional<double> highest;
    QString below;
    for (const QString& floor : floors) {
        const std::optional<double> height = FloorHeight(floor);
        if (height && highest && *height < *highest) {
            misplaced.push_back({floor, below});
        } else if (height) {
            highest = height;
            below = floor;
        }
    }
    return misplaced;
}

} // namespace host
