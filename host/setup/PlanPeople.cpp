#include "host/setup/AxisList.h"
#include "host/setup/PlanDesk.h"
#include "host/setup/PlanEntries.h"
#include "host/setup/PlanLists.h"
#include "host/setup/SetupRoles.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString RightsText(const std::vector<qint32>& rights) {
    QStringList words;
    for (const auto& [right, word] : RightNames()) {
        if (std::find(rights.begin(), rights.end(), right) != rights.end()) {
            words << word;
        }
    }
    return words.isEmpty() ? u"无"_s : words.join(u'、');
}

/// Nothing, and it may be told: the line doesn't say any.
std::optional<std::vector<qint32>> RightsIn(PlanDesk& desk, const SetupRow& row) {
    std::optional<std::vector<qint32>> rights;
    if (const QString& role = row.Cell(column::kPersonRole); !role.isEmpty()) {
        QStringList known;
        for (const SetupRole& each : Roles()) {
            known << each.name;
            if (each.name == role) {
                rights = each.rights;
            }
        }
        if (!rights) {
            desk.Tell(SetupTable::Person, row.line,
                      u"没有角色“%1”，可用的角色：%2"_s.arg(role.left(40), known.join(u'、')));
        }
    }
    const QStringList words = ListedParts(row.Cell(column::kPersonRights));
    if (!words.isEmpty()) {
        rights = std::vector<qint32>();
    }
    for (const QString& word : words) {
        const auto known = std::find_if(RightNames().begin(), RightNames().end(),
                                        [&word](const auto& each) { return each.second == word; });
        if (known == RightNames().end()) {
            QStringList all;
            for (const auto& [right, each] : RightNames()) {
                all << each;
            }
            desk.Tell(SetupTable::Person, row.line,
                      u"没有权限“%1”，可用的权限：%2"_s.arg(word.left(40), all.join(u'、')));
        } else {
            rights->push_back(known->first);
        }
    }
    return rights;
}

/// Rights that no table can name stay.
std::vector<qint32> WithOthers(std::vector<qint32> rights, const std::vector<qint32>& before) {
    for (const qint32 right : before) {
        const bool isNamed = std::any_of(RightNames().begin(), RightNames().end(),
                                         [right](const auto& each) { return each.first == right; });
        if (!isNamed) {
            rights.push_back(right);
        }
    }
    std::sort(rights.begin(), rights.end());
    rights.erase(std::unique(rights.begin(), rights.end()), rights.end());
    return rights;
}

} // namespace

void PlanPeople(PlanDesk& desk) {
    constexpr SetupTable kTable = SetupTable::Person;
    std::vector<site::SetupPerson>& people = desk.plan.wanted.people;
    QHash<QString, size_t> places = PlacesOf(people);
    for (const SetupRow& row : desk.tables.Rows(kTable)) {
        const QString name = desk.NameOf(kTable, row, site::SetupList::Person);
        if (name.isEmpty()) {
            continue;
        }
        bool isNew = false;
        site::SetupPerson& person = EntryNamed(name, people, places, isNew);
        const size_t faults = desk.plan.faults.size();
        const auto said = RightsIn(desk, row);
        if (said) {
            const std::vector<qint32> rights = WithOthers(*said, person.rights);
            if (isNew) {
                desk.Add(kTable, name, RightsText(rights));
            } else if (rights != person.rights) {
                desk.Change(kTable, name, u"权限 "_s + RightsText(person.rights),
                            RightsText(rights));
            }
            person.rights = rights;
        } else if (isNew && desk.plan.faults.size() == faults) {
            desk.Tell(kTable, row.line, u"新人员“%1”没有角色，也没有权限"_s.arg(name));
        }
        bool isBlocked = !person.active;
        desk.TakeFlag(kTable, row, column::kPersonBlocked, isNew, isBlocked);
        person.active = !isBlocked;
    }
}

} // namespace host
