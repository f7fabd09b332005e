#include "host/setup/AxisList.h"

#include <QRegularExpression>
#include <QSet>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostListed = 1'000;

const QRegularExpression& PartSeparator() {
    static const QRegularExpression separator(u"[、,，;；\n]"_s);
    return separator;
}

/// Appends what there isn't yet.
void AddOnce(const QStringList& more, QStringList& names, QSet<QString>& taken) {
    for (const QString& name : more) {
        if (!taken.contains(name)) {
            taken.insert(name);
            names << name;
        }
    }
}

ListedNames NumberRange(const QString& before, qint64 from, qint64 to, const QString& part) {
    if (from >= to) {
        return {{}, u"“%1”不是从小到大的范围"_s.arg(part)};
    }
    if (to - from >= kMostListed) {
        return {{}, u"“%1”超过 %2 个"_s.arg(part).arg(kMostListed)};
    }
    ListedNames listed;
    for (qint64 number = from; number <= to; ++number) {
        listed.names << before + QString::number(number);
    }
    return listed;
}

ListedNames LetterRange(const QString& before, QChar from, QChar to, const QString& part) {
    if (from >= to || from.isUpper() != to.isUpper()) {
        return {{}, u"“%1”不是从小到大的范围"_s.arg(part)};
    }
    static constexpr QStringView kUnused = u"IOZioz";
    ListedNames listed;
    for (char16_t letter = from.unicode(); letter <= to.unicode(); ++letter) {
        if (letter == from || letter == to || !kUnused.contains(QChar(letter))) {
            listed.names << before + QChar(letter);
        }
    }
    return listed;
}

/// One part of a list: a name, or the names of a range.
ListedNames AxesOfPart(const QString& part) {
    static const QRegularExpression numbers(
        u"^(?:(\\d{1,18})-(\\d{1,18})|(.*?)(\\d{1,18})[~～至]\\3(\\d{1,18}))$"_s);
    static const QRegularExpression letters(
        u"^(?:([A-Za-z])-([A-Za-z])|(.*?)([A-Za-z])[~～至]\\3([A-Za-z]))$"_s);
    for (const bool isNumber : {true, false}) {
        const auto match = (isNumber ? numbers : letters).match(part);
        if (match.hasMatch()) {
            const int shift = match.capturedLength(1) > 0 ? 1 : 4;
            const QString from = match.captured(shift);
            const QString to = match.captured(shift + 1);
            return isNumber
                       ? NumberRange(match.captured(3), from.toLongLong(), to.toLongLong(), part)
                       : LetterRange(match.captured(3), from.front(), to.front(), part);
        }
    }
    if (part.contains(QRegularExpression(u"[~～]"_s))) {
        return {{}, u"看不懂范围“%1”"_s.arg(part)};
    }
    return {{part}, {}};
}

} // namespace

QStringList ListedParts(const QString& cell) {
    QStringList parts;
    for (const QString& part : cell.split(PartSeparator())) {
        if (const QString tidy = part.trimmed(); !tidy.isEmpty()) {
            parts << tidy;
        }
    }
    return parts;
}

ListedNames ListedAxes(const QString& cell) {
    ListedNames all;
    QSet<QString> taken;
    for (const QString& part : ListedParts(cell)) {
        const ListedNames one = AxesOfPart(part);
        if (!one.fault.isEmpty()) {
            return one;
        }
        AddOnce(one.names, all.names, taken);
        if (all.names.size() > kMostListed) {
            return {{}, u"轴线超过 %1 条"_s.arg(kMostListed)};
        }
    }
    return all;
}

FloorNames::FloorNames(const QStringList& known) : m_known(known) {
    for (qsizetype i = 0; i < known.size(); ++i) {
        m_places[known[i]] = i;
    }
}

ListedNames FloorNames::OfPart(const QString& part) const {
    static constexpr QStringView kRangeSigns = u"-~～至";
    if (Has(part)) {
        return {{part}, {}};
    }
    for (qsizetype at = 1; at + 1 < part.size(); ++at) {
        if (kRangeSigns.contains(part[at])) {
            const qsizetype from = m_places.value(part.left(at).trimmed(), -1);
            const qsizetype to = m_places.value(part.mid(at + 1).trimmed(), -1);
            if (from >= 0 && to >= 0) {
                return from <= to ? ListedNames{m_known.sliced(from, to - from + 1), {}}
                                  : ListedNames{{}, u"“%1”不是从低到高的范围"_s.arg(part)};
            }
        }
    }
    return {{}, u"没有楼层“%1”"_s.arg(part.left(40))};
}

ListedNames FloorNames::Listed(const QString& cell) const {
    ListedNames all;
    QSet<QString> taken;
    for (const QString& part : ListedParts(cell)) {
        const bool isAll = part == u"全部"_s && !Has(part);
        const ListedNames one = isAll ? ListedNames{m_known, {}} : OfPart(part);
        if (!one.fault.isEmpty()) {
            return one;
        }
        AddOnce(one.names, all.names, taken);
    }
    return all;
}

bool IsPlainAxis(const QString& axis) {
    const ListedNames listed = ListedAxes(axis);
    return listed.fault.isEmpty() && listed.names == QStringList{axis};
}

} // namespace host
