#include "site/SetupRules.h"

#include <QStringEncoder>

#include <algorithm>
#include <set>
#include <tuple>

namespace site {

using namespace Qt::StringLiterals;

bool MaySetUp(const SetupPerson& person) {
    return person.active && std::find(person.rights.begin(), person.rights.end(), kRightSetup) !=
                                person.rights.end();
}

namespace {

constexpr qint32 kMostColor = 0xFFFFFF;
constexpr qint32 kMostMajor = 4;

/// Joins of emoji and of some scripts are spelling; other signs that nobody sees make names that
/// look the same, run backwards, or come back from the database without their beginning.
bool IsControl(QChar letter) {
    constexpr QChar kNonJoiner(0x200C);
    constexpr QChar kJoiner(0x200D);
    return letter.category() == QChar::Other_Control || letter == QChar::LineSeparator ||
           letter == QChar::ParagraphSeparator ||
           (letter.category() == QChar::Other_Format && letter != kNonJoiner && letter != kJoiner);
}

/// Half a pair of surrogates is no text that a database could give back.
bool HasControls(const QString& text) {
    return !text.isValidUtf16() || std::any_of(text.begin(), text.end(), IsControl);
}

/// Login names cross the services as 8-bit text.
bool FitsCodePage(const QString& name) {
    QStringEncoder encoder("GBK", QStringConverter::Flag::Stateless);
    const QByteArray bytes = encoder.encode(name);
    return !encoder.isValid() || (!encoder.hasError() && !bytes.isEmpty());
}

/// One letter-case: "a1" and "A1" are the same to people.
QString Folded(const QString& name) {
    return name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

/// Collects what is wrong with the entries of one list.
class ListCheck final {
public:
    ListCheck(std::vector<SetupFault>& faults, SetupList list, QString project = {})
        : m_faults(faults), m_list(list), m_project(std::move(project)) {}

    void Tell(int at, const QString& text) { m_faults.push_back({m_list, at, m_project, text}); }

    /// Of one entry; the names of a list are asked in their order.
    void Name(int at, const QString& name, int most = kMostNameLetters) {
        if (TellSpelling(at, name, NameOf(m_list) + u"名称"_s, most)) {
            return;
        }
        if (!m_known.insert(Folded(name)).second) {
            Tell(at, u"%1“%2”重复了，名称不能相同。"_s.arg(NameOf(m_list), name));
        }
    }

    /// True if something is wrong with how it is written.
    bool TellSpelling(int at, const QString& name, const QString& what, int most) {
        if (name.isEmpty()) {
            Tell(at, u"第 %1 个%2是空的，请填写。"_s.arg(QString::number(at + 1), what));
        } else if (name != name.trimmed() || HasControls(name)) {
            Tell(at, u"%1“%2”含有首尾空格或控制字符，请去掉。"_s.arg(what, name.simplified()));
        } else if (name.size() > most) {
            Tell(at, u"%1“%2...”太长，最多 %3 个字。"_s.arg(what, name.left(20),
                                                            QString::number(most)));
        } else {
            return false;
        }
        return true;
    }

private:
    std::vector<SetupFault>& m_faults;
    const SetupList m_list;
    const QString m_project;
    std::set<QString> m_known;
};

void CheckProjects(const SetupState& wanted, std::vector<SetupFault>& faults) {
    ListCheck check(faults, SetupList::Project);
    int at = 0;
    for (const SetupProject& project : wanted.projects) {
        check.Name(at, project.name);
        if (project.major < 1 || project.major > kMostMajor) {
            check.Tell(at, u"工程“%1”的专业不对，请选择 1 到 4。"_s.arg(project.name));
        }
        ++at;
    }
}

void CheckWorksets(const SetupState& wanted, std::vector<SetupFault>& faults) {
    std::set<QString> known;
    for (const SetupProject& project : wanted.projects) {
        known.insert(project.name);
    }
    ListCheck check(faults, SetupList::Workset);
    int at = 0;
    for (const SetupWorkset& workset : wanted.worksets) {
        check.Name(at, workset.name);
        if (workset.projects.empty()) {
            check.Tell(at, u"工作集“%1”里没有工程，请至少选择一个。"_s.arg(workset.name));
        }
        std::set<QString> own;
        for (const QString& project : workset.projects) {
            if (!known.contains(project)) {
                check.Tell(at, u"工作集“%1”中的工程“%2”不存在。"_s.arg(workset.name, project));
            } else if (!own.insert(project).second) {
                check.Tell(at, u"工作集“%1”中工程“%2”重复了。"_s.arg(workset.name, project));
            }
        }
        ++at;
    }
}

QString NobodyLeft() {
    return u"至少要有一位未停用的人员有“设置”的权限，否则再也没有人能修改设置。"_s;
}

void CheckPeople(const SetupState& wanted, std::vector<SetupFault>& faults) {
    ListCheck check(faults, SetupList::Person);
    int at = 0;
    for (const SetupPerson& person : wanted.people) {
        check.Name(at, person.name);
        if (!FitsCodePage(person.name)) {
            check.Tell(at,
                       u"姓名“%1”中有代码页 936（GBK）没有的字，请换一种写法。"_s.arg(person.name));
        }
        ++at;
    }
    if (std::none_of(wanted.people.begin(), wanted.people.end(), MaySetUp)) {
        check.Tell(0, NobodyLeft());
    }
}

void CheckMarksAndLabels(const SetupState& wanted, std::vector<SetupFault>& faults) {
    ListCheck marks(faults, SetupList::Mark);
    int at = 0;
    for (const SetupMark& mark : wanted.marks) {
        marks.Name(at, mark.name);
        if (mark.color < 0 || mark.color > kMostColor) {
            marks.Tell(at, u"标识“%1”的颜色不对。"_s.arg(mark.name));
        }
        ++at;
    }
    ListCheck labels(faults, SetupList::Label);
    at = 0;
    for (const SetupLabel& label : wanted.labels) {
        labels.Name(at++, label.name);
    }
}

void CheckCrossings(const SetupGrid& grid, std::vector<SetupFault>& faults) {
    std::set<QString> floors;
    for (const SetupFloor& floor : grid.floors) {
        floors.insert(floor.name);
    }
    ListCheck check(faults, SetupList::Crossing, grid.project);
    std::set<std::tuple<QString, QString, QString>> known;
    int at = 0;
    for (const SetupCrossing& crossing : grid.crossings) {
        const QString shown = u"%1 %2/%3"_s.arg(crossing.floor, crossing.axisX, crossing.axisY);
        const bool isSpelled =
            !check.TellSpelling(at, crossing.axisX, u"X轴"_s, kMostAxisLetters) &&
            !check.TellSpelling(at, crossing.axisY, u"Y轴"_s, kMostAxisLetters);
        if (!floors.contains(crossing.floor)) {
            check.Tell(at, u"交点“%1”的楼层不存在。"_s.arg(shown));
        } else if (isSpelled &&
                   !known.emplace(crossing.floor, Folded(crossing.axisX), Folded(crossing.axisY))
                        .second) {
            check.Tell(at, u"交点“%1”重复了。"_s.arg(shown));
        }
        ++at;
    }
}

void CheckGrids(const SetupState& wanted, std::vector<SetupFault>& faults) {
    for (const SetupGrid& grid : wanted.grids) {
        ListCheck floors(faults, SetupList::Floor, grid.project);
        const bool isKnown =
            std::any_of(wanted.projects.begin(), wanted.projects.end(),
                        [&](const SetupProject& project) { return project.name == grid.project; });
        if (!isKnown) {
            floors.Tell(0, u"楼层和轴线的工程“%1”不存在。"_s.arg(grid.project));
        }
        int at = 0;
        for (const SetupFloor& floor : grid.floors) {
            floors.Name(at++, floor.name);
        }
        CheckCrossings(grid, faults);
    }
}

} // namespace

QString NameOf(SetupList list) {
    switch (list) {
    case SetupList::Project:
        return u"工程"_s;
    case SetupList::Workset:
        return u"工作集"_s;
    case SetupList::Person:
        return u"人员"_s;
    case SetupList::Mark:
        return u"标识"_s;
    case SetupList::Label:
        return u"标签"_s;
    case SetupList::Floor:
        return u"楼层"_s;
    case SetupList::Crossing:
        break;
    }
    return u"轴线交点"_s;
}

std::vector<SetupFault> FaultsOf(const SetupState& wanted) {
    std::vector<SetupFault> faults;
    CheckProjects(wanted, faults);
    CheckWorksets(wanted, faults);
    CheckPeople(wanted, faults);
    CheckMarksAndLabels(wanted, faults);
    CheckGrids(wanted, faults);
    return faults;
}

std::vector<SetupFault> FaultsOf(const SetupState& seen, const SetupState& wanted) {
    std::vector<SetupFault> before = FaultsOf(seen);
    // A new site has nobody, and mustn't stay so.
    std::erase_if(before, [](const SetupFault& fault) { return fault.text == NobodyLeft(); });
    std::vector<SetupFault> faults;
    for (SetupFault& fault : FaultsOf(wanted)) {
        const auto same = std::find_if(before.begin(), before.end(), [&](const SetupFault& each) {
            return each.list == fault.list && each.project == fault.project &&
                   each.text == fault.text;
        });
        if (same == before.end()) {
            faults.push_back(std::move(fault));
        } else {
            before.erase(same); // a second one of the kind is new
        }
    }
    return faults;
}

QString TidyName(const QString& name) {
    return name.normalized(QString::NormalizationForm_C).trimmed();
}

} // namespace site
