#include "host/ui/marks/MarkTicks.h"

#include <QJsonArray>

#include <algorithm>
#include <tuple>
#include <utility>

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

bool MarkEntry::operator<(const MarkEntry& other) const {
    return std::tie(group, markId, key) < std::tie(other.group, other.markId, other.key);
}

void MarkTicks::SetAll(bool on) {
    rest = on;
    floors.clear();
}

void MarkTicks::SetFloor(const QString& group, bool on) {
    floors[group] = {on, {}};
}

void MarkTicks::SetMark(const QString& group, qint32 markId, bool on) {
    MarkFor(group, markId) = {on, {}, {}};
}

void MarkTicks::SetEntry(const QString& group, qint32 markId, const QString& key, bool on) {
    Mark& mark = MarkFor(group, markId);
    mark.away.erase(key);
    if (on == mark.rest)
        mark.others.erase(key);
    else
        mark.others.insert(key);
}

bool MarkTicks::RestOf(const QString& group) const {
    const auto floor = floors.find(group);
    return floor == floors.end() ? rest : floor->second.rest;
}

bool MarkTicks::RestOf(const QString& group, qint32 markId) const {
    const Mark* mark = FindMark(group, markId);
    return mark == nullptr ? RestOf(group) : mark->rest;
}

const MarkTicks::Mark* MarkTicks::FindMark(const QString& group, qint32 markId) const {
    const auto floor = floors.find(group);
    if (floor == floors.end())
        return nullptr;
    const auto mark = floor->second.marks.find(markId);
    return mark == floor->second.marks.end() ? nullptr : &mark->second;
}

MarkTicks::Mark& MarkTicks::MarkFor(const QString& group, qint32 markId) {
    Floor& floor = floors.try_emplace(group, Floor{rest, {}}).first->second;
    return floor.marks.try_emplace(markId, Mark{floor.rest, {}, {}}).first->second;
}

void MarkTicks::TidyFloor(const MarkTreeFloor& treeFloor) {
    const auto found = floors.find(treeFloor.group);
    if (found == floors.end())
        return;
    Floor& floor = found->second;
    for (const MarkTreeMark& treeMark : treeFloor.marks) {
        const auto mark = floor.marks.find(treeMark.markId);
        const Qt::CheckState state = StateOf(treeFloor, treeMark);
        if (mark == floor.marks.end() || state == Qt::PartiallyChecked)
            continue;
        // Where all that is listed turned round, what isn't listed is as the rest now.
        if (mark->second.rest != (state == Qt::Checked))
            mark->second = {state == Qt::Checked, {}, {}};
    }
    const Qt::CheckState state = StateOf(treeFloor);
    if (state == Qt::PartiallyChecked)
        return;
    floor.rest = state == Qt::Checked;
    std::erase_if(floor.marks, [&](const auto& mark) { return mark.second.IsPlain(floor.rest); });
}

void MarkTicks::Tidy(const MarkTree& tree) {
    CommonState all;
    for (const MarkTreeFloor& floor : tree) {
        TidyFloor(floor);
        all.Add(StateOf(floor));
    }
    if (!all.HasAny() || all.Get() == Qt::PartiallyChecked)
        return;
    rest = all.Get() == Qt::Checked;
    std::erase_if(floors, [&](const auto& floor) {
        return floor.second.rest == rest && floor.second.marks.empty();
    });
}

std::set<MarkEntry> MarkTicks::Exceptions() const {
    std::set<MarkEntry> exceptions;
    for (const auto& [group, floor] : floors) {
        for (const auto& [markId, mark] : floor.marks) {
            for (const std::set<QString>* keys : {&mark.others, &mark.away}) {
                for (const QString& key : *keys)
                    exceptions.insert({group, markId, key});
            }
        }
    }
    return exceptions;
}

void MarkTicks::SetUnlisted(const std::set<MarkEntry>& unlisted) {
    for (auto& [group, floor] : floors) {
        for (auto& [markId, mark] : floor.marks) {
            std::set<QString> all = std::move(mark.others);
            all.merge(mark.away);
            mark.others.clear();
            mark.away.clear();
            for (const QString& key : all)
                (unlisted.contains({group, markId, key}) ? mark.away : mark.others).insert(key);
        }
    }
}

void MarkTicks::Forget(const std::set<MarkEntry>& gone) {
    for (const MarkEntry& entry : gone) {
        if (FindMark(entry.group, entry.markId) == nullptr)
            continue;
        Mark& mark = MarkFor(entry.group, entry.markId);
        mark.others.erase(entry.key);
        mark.away.erase(entry.key);
    }
}

bool MarkTicks::IsMarkTicked(const QString& group, qint32 markId) const {
    return RestOf(group, markId);
}

bool MarkTicks::IsEntryTicked(const QString& group, qint32 markId, const QString& key) const {
    const Mark* mark = FindMark(group, markId);
    if (mark == nullptr)
        return RestOf(group);
    return (mark->others.contains(key) || mark->away.contains(key)) != mark->rest;
}

Qt::CheckState MarkTicks::StateOf(const MarkTreeFloor& floor, const MarkTreeMark& mark) const {
    const Mark* found = FindMark(floor.group, mark.markId);
    if (found == nullptr)
        return Checked(RestOf(floor.group));
    if (found->others.empty())
        return Checked(found->rest);
    return qint32(found->others.size()) >= mark.count ? Checked(!found->rest)
                                                      : Qt::PartiallyChecked;
}

Qt::CheckState MarkTicks::StateOf(const MarkTreeFloor& floor) const {
    CommonState state;
    for (const MarkTreeMark& mark : floor.marks)
        state.Add(StateOf(floor, mark));
    return state.HasAny() ? state.Get() : Checked(RestOf(floor.group));
}

qint32 MarkTicks::TickedCount(const MarkTree& tree) const {
    qint32 count = 0;
    for (const MarkTreeFloor& floor : tree) {
        for (const MarkTreeMark& mark : floor.marks) {
            const Mark* found = FindMark(floor.group, mark.markId);
            const auto others =
                found == nullptr ? 0 : std::min(mark.count, qint32(found->others.size()));
            count += RestOf(floor.group, mark.markId) ? mark.count - others : others;
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
            for (const std::set<QString>* keys : {&mark.others, &mark.away}) {
                for (const QString& key : *keys)
                    others.append(key);
            }
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
            for (const auto& key : markObject[kOthers].toArray())
                mark.others.insert(key.toString());
        }
    }
    return ticks;
}

} // namespace host
