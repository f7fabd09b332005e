#include "host/ui/marks/MarkTicks.h"

#include <QJsonArray>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

const QString kRest = u"rest"_s;
const QString kFloors = u"floors"_s;
const QString kMarks = u"marks"_s;
const QString kOthers = u"others"_s;

/// One state if all are in it, else the one between.
class CommonState {
public:
    void Add(Qt::CheckState state) {
        common = !hasAny || common == state ? state : Qt::PartiallyChecked;
        hasAny = true;
    }
    [[nodiscard]] bool HasAny() const { return hasAny; }
    [[nodiscard]] Qt::CheckState Get() const { return common; }

private:
    Qt::CheckState common = Qt::Unchecked;
    bool hasAny = false;
};

Qt::CheckState Checked(bool on) {
    return on ? Qt::Checked : Qt::Unchecked;
}

} // namespace

void MarkTicks::SetAll(bool on) {
    rest = on;
    floors.clear();
}

void MarkTicks::SetFloor(const QString& group, bool on) {
    floors[group] = {on, {}};
}

void MarkTicks::SetMark(const QString& group, qint32 markId, bool on) {
    MarkFor(group, markId) = {on, {}};
}

void MarkTicks::SetEntry(const QString& group, qint32 markId, const QString& key, bool on) {
    Mark& mark = MarkFor(group, markId);
    if (on == mark.rest)
        mark.others.erase(key);
    else
        mark.others.insert(key);
}

MarkTicks::Floor MarkTicks::FloorOf(const QString& group) const {
    const auto floor = floors.find(group);
    return floor == floors.end() ? Floor{rest, {}} : floor->second;
}

MarkTicks::Mark MarkTicks::MarkOf(const QString& group, qint32 markId) const {
    const auto floor = floors.find(group);
    if (floor == floors.end())
        return {rest, {}};
    const auto mark = floor->second.marks.find(markId);
    return mark == floor->second.marks.end() ? Mark{floor->second.rest, {}} : mark->second;
}

MarkTicks::Mark& MarkTicks::MarkFor(const QString& group, qint32 markId) {
    Floor& floor = floors.try_emplace(group, Floor{rest, {}}).first->second;
    return floor.marks.try_emplace(markId, Mark{floor.rest, {}}).first->second;
}

void MarkTicks::TidyFloor(const MarkTreeFloor& treeFloor) {
    const Qt::CheckState state = StateOf(treeFloor);
    const auto floor = floors.find(treeFloor.group);
    if (floor == floors.end())
        return;
    if (state != Qt::PartiallyChecked) {
        floor->second = {state == Qt::Checked, {}};
        return;
    }
    for (const MarkTreeMark& mark : treeFloor.marks) {
        const Qt::CheckState markState = StateOf(treeFloor, mark);
        if (markState != Qt::PartiallyChecked && floor->second.marks.contains(mark.markId))
            floor->second.marks[mark.markId] = {markState == Qt::Checked, {}};
    }
}

void MarkTicks::Tidy(const MarkTree& tree) {
    CommonState all;
    for (const MarkTreeFloor& floor : tree) {
        TidyFloor(floor);
        all.Add(StateOf(floor));
    }
    if (all.HasAny() && all.Get() != Qt::PartiallyChecked)
        SetAll(all.Get() == Qt::Checked);
}

void MarkTicks::KeepEntries(const std::function<bool(const QString& key)>& exists) {
    for (auto& [group, floor] : floors) {
        for (auto& [markId, mark] : floor.marks)
            std::erase_if(mark.others, [&](const QString& key) { return !exists(key); });
    }
}

bool MarkTicks::IsMarkTicked(const QString& group, qint32 markId) const {
    return MarkOf(group, markId).rest;
}

bool MarkTicks::IsEntryTicked(const QString& group, qint32 markId, const QString& key) const {
    const Mark mark = MarkOf(group, markId);
    return mark.others.contains(key) != mark.rest;
}

Qt::CheckState MarkTicks::StateOf(const MarkTreeFloor& floor, const MarkTreeMark& mark) const {
    const Mark found = MarkOf(floor.group, mark.markId);
    if (found.others.empty())
        return Checked(found.rest);
    return qint32(found.others.size()) >= mark.count ? Checked(!found.rest) : Qt::PartiallyChecked;
}

Qt::CheckState MarkTicks::StateOf(const MarkTreeFloor& floor) const {
    CommonState state;
    for (const MarkTreeMark& mark : floor.marks)
        state.Add(StateOf(floor, mark));
    return state.HasAny() ? state.Get() : Checked(FloorOf(floor.group).rest);
}

qint32 MarkTicks::TickedCount(const MarkTree& tree) const {
    qint32 count = 0;
    for (const MarkTreeFloor& floor : tree) {
        for (const MarkTreeMark& mark : floor.marks) {
            const Mark found = MarkOf(floor.group, mark.markId);
            const auto others = std::min(mark.count, qint32(found.others.size()));
            count += found.rest ? mark.count - others : others;
        }
    }
    return count;
}

QJsonObject MarkTicks::ToJson() const {
    QJsonObject floorsJson;
    for (const auto& [group, floor] : floors) {
        QJsonObject marksJson;
        for (const auto& [markId, mark] : floor.marks) {
            QJsonArray others;
            for (const QString& key : mark.others)
                others.append(key);
            marksJson[QString::number(markId)] = QJsonObject{{kRest, mark.rest}, {kOthers, others}};
        }
        floorsJson[group] = QJsonObject{{kRest, floor.rest}, {kMarks, marksJson}};
    }
    return {{kRest, rest}, {kFloors, floorsJson}};
}

MarkTicks MarkTicks::FromJson(const QJsonObject& json) {
    MarkTicks ticks;
    ticks.rest = json[kRest].toBool(true);
    const QJsonObject floorsJson = json[kFloors].toObject();
    for (auto floorJson = floorsJson.begin(); floorJson != floorsJson.end(); ++floorJson) {
        const QJsonObject one = floorJson.value().toObject();
        Floor& floor = ticks.floors[floorJson.key()];
        floor.rest = one[kRest].toBool(true);
        const QJsonObject marksJson = one[kMarks].toObject();
        for (auto markJson = marksJson.begin(); markJson != marksJson.end(); ++markJson) {
            const QJsonObject markObject = markJson.value().toObject();
            Mark& mark = floor.marks[markJson.key().toInt()];
            mark.rest = markObject[kRest].toBool(true);
            for (const QJsonValue& key : markObject[kOthers].toArray())
                mark.others.insert(key.toString());
        }
    }
    return ticks;
}

} // namespace host
