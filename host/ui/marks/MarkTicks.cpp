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
        m_common = !m_hasAny || m_common == state ? state : Qt::PartiallyChecked;
        m_hasAny = true;
    }
    [[nodiscard]] bool HasAny() const { return m_hasAny; }
    [[nodiscard]] Qt::CheckState Get() const { return m_common; }

private:
    Qt::CheckState m_common = Qt::Unchecked;
    bool m_hasAny = false;
};

Qt::CheckState Checked(bool on) {
    return on ? Qt::Checked : Qt::Unchecked;
}

} // namespace

bool MarkEntry::operator<(const MarkEntry& other) const {
    return std::tie(group, markId, key) < std::tie(other.group, other.markId, other.key);
}

void MarkTicks::SetAll(bool on) {
    m_rest = on;
    m_floors.clear();
}

void MarkTicks::SetFloor(const QString& group, bool on) {
    m_floors[group] = {on, {}};
}

void MarkTicks::SetMark(const QString& group, qint32 markId, bool on) {
    MarkFor(group, markId) = {on, {}, {}};
}

void MarkTicks::SetEntry(const QString& group, qint32 markId, const QString& key, bool on) {
    Mark& mark = MarkFor(group, markId);
    mark.away.erase(key);
    if (on == mark.rest) {
        mark.others.erase(key);
    } else {
        mark.others.insert(key);
    }
}

bool MarkTicks::RestOf(const QString& group) const {
    const auto floor = m_floors.find(group);
    return floor == m_floors.end() ? m_rest : floor->second.rest;
}

bool MarkTicks::RestOf(const QString& group, qint32 markId) const {
    const Mark* mark = FindMark(group, markId);
    return mark == nullptr ? RestOf(group) : mark->rest;
}

const MarkTicks::Mark* MarkTicks::FindMark(const QString& group, qint32 markId) const {
    const auto floor = m_floors.find(group);
    if (floor == m_floors.end()) {
        return nullptr;
    }
    const auto mark = floor->second.marks.find(markId);
    return mark == floor->second.marks.end() ? nullptr : &mark->second;
}

MarkTicks::Mark& MarkTicks::MarkFor(const QString& group, qint32 markId) {
    Floor& floor = m_floors.try_emplace(group, Floor{m_rest, {}}).first->second;
    return floor.marks.try_emplace(markId, Mark{floor.rest, {}, {}}).first->second;
}

void MarkTicks::TidyFloor(const MarkTreeFloor& treeFloor) {
    const auto found = m_floors.find(treeFloor.group);
    if (found == m_floors.end()) {
        return;
    }
    Floor& floor = found->second;
    for (const MarkTreeMark& treeMark : treeFloor.marks) {
        const auto mark = floor.marks.find(treeMark.markId);
        const Qt::CheckState state = StateOf(treeFloor, treeMark);
        if (mark == floor.marks.end() || state == Qt::PartiallyChecked) {
            continue;
        }
        // Where all that is listed turned round, what isn't listed is as the rest now.
        if (mark->second.rest != (state == Qt::Checked)) {
            mark->second = {state == Qt::Checked, {}, {}};
        }
    }
    const Qt::CheckState state = StateOf(treeFloor);
    if (state == Qt::PartiallyChecked) {
        return;
    }
    floor.rest = state == Qt::Checked;
    std::erase_if(floor.marks, [&](const auto& mark) { return mark.second.IsPlain(floor.rest); });
}

void MarkTicks::Tidy(const MarkTree& tree) {
    CommonState all;
    for (const MarkTreeFloor& floor : tree) {
        TidyFloor(floor);
        all.Add(StateOf(floor));
    }
    if (!all.HasAny() || all.Get() == Qt::PartiallyChecked) {
        return;
    }
    m_rest = all.Get() == Qt::Checked;
    std::erase_if(m_floors, [&](const auto& floor) {
        return floor.second.rest == m_rest && floor.second.marks.empty();
    });
}

std::set<MarkEntry> MarkTicks::Exceptions() const {
    std::set<MarkEntry> exceptions;
    for (const auto& [group, floor] : m_floors) {
        for (const auto& [markId, mark] : floor.marks) {
            for (const std::set<QString>* keys : {&mark.others, &mark.away}) {
                for (const QString& key : *keys) {
                    exceptions.insert({group, markId, key});
                }
            }
        }
    }
    return exceptions;
}

void MarkTicks::SetUnlisted(const std::set<MarkEntry>& unlisted) {
    for (auto& [group, floor] : m_floors) {
        for (auto& [markId, mark] : floor.marks) {
            std::set<QString> all = std::move(mark.others);
            all.merge(mark.away);
            mark.others.clear();
            mark.away.clear();
            for (const QString& key : all) {
                (unlisted.contains({group, markId, key}) ? mark.away : mark.others).insert(key);
            }
        }
    }
}

void MarkTicks::Forget(const std::set<MarkEntry>& gone) {
    for (const MarkEntry& entry : gone) {
        if (FindMark(entry.group, entry.markId) == nullptr) {
            continue;
        }
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
    if (mark == nullptr) {
        return RestOf(group);
    }
    return (mark->others.contains(key) || mark->away.contains(key)) != mark->rest;
}

Qt::CheckState MarkTicks::StateOf(const MarkTreeFloor& floor, const MarkTreeMark& mark) const {
    const Mark* found = FindMark(floor.group, mark.markId);
    if (found == nullptr) {
        return Checked(RestOf(floor.group));
    }
    if (found->others.empty()) {
        return Checked(found->rest);
    }
    return qint32(found->others.size()) >= mark.count ? Checked(!found->rest)
                                                      : Qt::PartiallyChecked;
}

Qt::CheckState MarkTicks::StateOf(const MarkTreeFloor& floor) const {
    CommonState state;
    for (const MarkTreeMark& mark : floor.marks) {
        state.Add(StateOf(floor, mark));
    }
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
    for (const auto& [group, floor] : m_floors) {
        QJsonObject marksJson;
        for (const auto& [markId, mark] : floor.marks) {
            QJsonArray others;
            for (const std::set<QString>* keys : {&mark.others, &mark.away}) {
                for (const QString& key : *keys) {
                    others.append(key);
                }
            }
            marksJson[QString::number(markId)] = QJsonObject{{kRest, mark.rest}, {kOthers, others}};
        }
        floorsJson[group] = QJsonObject{{kRest, floor.rest}, {kMarks, marksJson}};
    }
    return {{kRest, m_rest}, {kFloors, floorsJson}};
}

MarkTicks MarkTicks::FromJson(const QJsonObject& json) {
    MarkTicks ticks;
    ticks.m_rest = json[kRest].toBool(true);
    const QJsonObject floorsJson = json[kFloors].toObject();
    for (auto floorJson = floorsJson.begin(); floorJson != floorsJson.end(); ++floorJson) {
        const QJsonObject one = floorJson.value().toObject();
        Floor& floor = ticks.m_floors[floorJson.key()];
        floor.rest = one[kRest].toBool(true);
        const QJsonObject marksJson = one[kMarks].toObject();
        for (auto markJson = marksJson.begin(); markJson != marksJson.end(); ++markJson) {
            const QJsonObject markObject = markJson.value().toObject();
            Mark& mark = floor.marks[markJson.key().toInt()];
            mark.rest = markObject[kRest].toBool(true);
            for (const auto& key : markObject[kOthers].toArray()) {
                mark.others.insert(key.toString());
            }
        }
    }
    return ticks;
}

} // namespace host
