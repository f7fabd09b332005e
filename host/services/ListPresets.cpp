#include "host/services/ListPresets.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Nobody types it, and keys of the site have none.
constexpr QChar kSign{0x1f};

constexpr qint32 kFirstState = -100;
constexpr qint32 kFirstWeek = -10'000;
constexpr qint32 kFirstBefore = -1'000'000;
constexpr qint32 kFirstFrom = -2'000'000;
constexpr qint32 kFirstMark = -10'000'000;
/// A Monday.
const QDate kWeekZero(2000, 1, 3);

std::optional<std::pair<qint64, qint64>> PairOf(const QJsonValue& value) {
    const QJsonArray pair = value.toArray();
    if (pair.size() != 2) {
        return std::nullopt;
    }
    return std::pair(pair[0].toInteger(), pair[1].toInteger());
}

QDate MondayOf(const QDate& day) {
    return day.addDays(1 - day.dayOfWeek());
}

qint32 CountOfWeek(qint64 firstSecond) {
    const QDate monday = MondayOf(QDateTime::fromSecsSinceEpoch(firstSecond).date());
    return static_cast<qint32>(kWeekZero.daysTo(monday) / 7);
}

qint64 WeekOfCount(qint32 count) {
    return kWeekZero.addDays(7LL * count).startOfDay().toSecsSinceEpoch();
}

} // namespace

QString KeyOfPreset(const ListPreset& preset) {
    QJsonObject object;
    if (preset.mark) {
        object.insert(u"mark"_s, *preset.mark);
    }
    if (preset.floor) {
        object.insert(u"floor"_s, *preset.floor);
    }
    if (preset.state) {
        object.insert(u"state"_s, *preset.state);
    }
    if (preset.modified) {
        object.insert(u"modified"_s, QJsonArray{preset.modified->first, preset.modified->second});
    }
    if (preset.unfiled) {
        object.insert(u"unfiled"_s, true);
    }
    if (preset.filed) {
        object.insert(u"filed"_s, QJsonArray{preset.filed->first, preset.filed->last});
        object.insert(u"person"_s, preset.filed->person);
    }
    return kSign + QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

std::optional<ListPreset> PresetOfKey(const QString& key) {
    if (!key.startsWith(kSign)) {
        return std::nullopt;
    }
    const QJsonObject object = QJsonDocument::fromJson(key.mid(1).toUtf8()).object();
    ListPreset preset;
    if (object.contains(u"mark"_s)) {
        preset.mark = object.value(u"mark"_s).toInt();
    }
    if (object.contains(u"floor"_s)) {
        preset.floor = object.value(u"floor"_s).toString();
    }
    if (object.contains(u"state"_s)) {
        preset.state = object.value(u"state"_s).toInt();
    }
    preset.modified = PairOf(object.value(u"modified"_s));
    preset.unfiled = object.value(u"unfiled"_s).toBool();
    if (const auto run = PairOf(object.value(u"filed"_s))) {
        preset.filed =
            site::FiledRun{run->first, run->second, object.value(u"person"_s).toString()};
    }
    return preset;
}

qint32 NumberOfMark(qint32 mark) {
    return kFirstMark - mark;
}

qint32 NumberOfState(qint32 state) {
    return kFirstState - state;
}

qint32 NumberOfWeek(qint64 firstSecond) {
    return kFirstWeek - CountOfWeek(firstSecond);
}

qint32 NumberBefore(qint64 firstSecond) {
    return kFirstBefore - CountOfWeek(firstSecond);
}

qint32 NumberFrom(qint64 firstSecond) {
    return kFirstFrom - CountOfWeek(firstSecond);
}

std::optional<ListPreset> PresetOfNumber(qint32 number) {
    ListPreset preset;
    if (number <= kFirstMark) {
        preset.mark = kFirstMark - number;
    } else if (number <= kFirstFrom) {
        preset.modified = {WeekOfCount(kFirstFrom - number), kEndOfTime};
    } else if (number <= kFirstBefore) {
        preset.modified = {kBeginOfTime, WeekOfCount(kFirstBefore - number) - 1};
    } else if (number <= kFirstWeek) {
        const qint64 first = WeekOfCount(kFirstWeek - number);
        preset.modified = {first, EndOfWeek(first)};
    } else if (number <= kFirstState) {
        preset.state = kFirstState - number;
    } else {
        return std::nullopt;
    }
    return preset;
}

void Limit(site::ListFilter& filter, const ListPreset& preset) {
    if (preset.mark) {
        filter.nothing = filter.nothing || (filter.markId && filter.markId != preset.mark);
        filter.markId = preset.mark;
    }
    if (preset.floor) {
        filter.floor = preset.floor;
    }
    if (preset.state) {
        filter.nothing = filter.nothing || (filter.state && filter.state != preset.state);
        filter.state = preset.state;
    }
    if (preset.modified) {
        const auto before = filter.modified.value_or(*preset.modified);
        filter.modified = {std::max(before.first, preset.modified->first),
                           std::min(before.second, preset.modified->second)};
    }
    filter.unfiled = filter.unfiled || preset.unfiled;
    if (preset.filed) {
        filter.filed = preset.filed;
    }
}

qint64 WeekOf(qint64 second) {
    return MondayOf(QDateTime::fromSecsSinceEpoch(second).date()).startOfDay().toSecsSinceEpoch();
}

qint64 EndOfWeek(qint64 firstSecond) {
    const QDate monday = QDateTime::fromSecsSinceEpoch(firstSecond).date();
    return monday.addDays(7).startOfDay().toSecsSinceEpoch() - 1;
}

} // namespace host
