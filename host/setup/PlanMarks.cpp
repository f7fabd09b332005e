#include "host/setup/OrderMerge.h"
#include "host/setup/PlanDesk.h"
#include "host/setup/PlanEntries.h"
#include "host/setup/PlanLists.h"

#include <QRegularExpression>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// 0xBBGGRR; nothing for what is no colour.
std::optional<qint32> ColorOf(const QString& cell) {
    static const QRegularExpression form(u"^#?([0-9A-Fa-f]{2})([0-9A-Fa-f]{2})([0-9A-Fa-f]{2})$"_s);
    const auto match = form.match(cell);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    constexpr int kHex = 16;
    return match.captured(1).toInt(nullptr, kHex) | match.captured(2).toInt(nullptr, kHex) << 8 |
           match.captured(3).toInt(nullptr, kHex) << 16;
}

QString ColorText(qint32 color) {
    return u"#%1%2%3"_s.arg(color & 0xFF, 2, 16, QChar(u'0'))
        .arg(color >> 8 & 0xFF, 2, 16, QChar(u'0'))
        .arg(color >> 16 & 0xFF, 2, 16, QChar(u'0'))
        .toUpper();
}

/// Adds the marks' lines one by one.
class MarkPlanner final {
public:
    explicit MarkPlanner(PlanDesk& desk)
        : m_desk(desk), m_marks(desk.plan.wanted.marks), m_places(PlacesOf(m_marks)) {
        for (size_t i = 0; i < m_marks.size(); ++i) {
            m_byNumber.insert(m_marks[i].id, i);
        }
        for (const SetupRow& row : desk.tables.Rows(SetupTable::Mark)) {
            m_inFile.insert(row.Cell(column::kName));
        }
    }

    void Take(const SetupRow& row) {
        const QString name = m_desk.NameOf(SetupTable::Mark, row, site::SetupList::Mark);
        if (name.isEmpty() || !TakeNumber(row, name)) {
            return;
        }
        bool isNew = false;
        site::SetupMark& mark = EntryNamed(name, m_marks, m_places, isNew);
        m_named << name;
        TakeColor(row, isNew, mark);
    }
    void Order() {
        const QStringList before = NamesIn(m_marks);
        const QSet<QString> present(m_present.begin(), m_present.end());
        QStringList old;
        for (const QString& name : before) {
            if (present.contains(name)) {
                old << name;
            }
        }
        const QStringList after = MergedOrder(old, m_named);
        std::vector<site::SetupMark> ordered;
        for (const QString& name : after) {
            ordered.push_back(m_marks[m_places[name]]);
        }
        QStringList kept = after;
        kept.removeIf([&present](const QString& name) { return !present.contains(name); });
        if (kept != old) {
            m_desk.Move(SetupTable::Mark, {}, after);
        }
        m_marks = std::move(ordered);
    }

private:
    /// A number names a mark that there is, under whatever name. False: told.
    bool TakeNumber(const SetupRow& row, const QString& name) {
        const QString& cell = row.Cell(column::kMarkNumber);
        if (cell.isEmpty()) {
            return true;
        }
        const auto known = m_byNumber.constFind(cell.toInt());
        QString fault;
        if (cell.toInt() <= 0 || known == m_byNumber.constEnd()) {
            fault = u"没有编号为“%1”的标识；新标识的编号由系统给定，请空着"_s.arg(cell.left(40));
        } else if (m_marks[*known].name == name) {
            return true;
        } else if (m_places.contains(name) || m_inFile.contains(m_marks[*known].name)) {
            fault = u"编号 %1 是标识“%2”的"_s.arg(cell, m_marks[*known].name);
        }
        if (!fault.isEmpty()) {
            m_desk.Tell(SetupTable::Mark, row.line, fault);
            return false;
        }
        site::SetupMark& mark = m_marks[*known];
        m_desk.Change(SetupTable::Mark, mark.name, u"名称 "_s + mark.name, name);
        m_places.remove(mark.name);
        m_places.insert(name, *known);
        m_present.replace(m_present.indexOf(mark.name), name);
        mark.name = name;
        return true;
    }
    void TakeColor(const SetupRow& row, bool isNew, site::SetupMark& mark) {
        const QString& cell = row.Cell(column::kMarkColor);
        const std::optional<qint32> color = ColorOf(cell);
        if (!cell.isEmpty() && !color) {
            m_desk.Tell(SetupTable::Mark, row.line,
                        u"颜色“%1”不对，请写成 #RRGGBB"_s.arg(cell.left(40)));
        } else if (!color && isNew) {
            m_desk.Tell(SetupTable::Mark, row.line, u"新标识“%1”没有颜色"_s.arg(mark.name));
        } else if (isNew) {
            m_desk.Add(SetupTable::Mark, mark.name, ColorText(*color));
        } else if (color && *color != mark.color) {
            m_desk.Change(SetupTable::Mark, mark.name, u"颜色 "_s + ColorText(mark.color),
                          ColorText(*color));
        }
        mark.color = color.value_or(mark.color);
    }

    PlanDesk& m_desk;
    std::vector<site::SetupMark>& m_marks;
    QHash<QString, size_t> m_places;
    QHash<qint32, size_t> m_byNumber;
    QSet<QString> m_inFile;
    QStringList m_named;
    QStringList m_present = NamesIn(m_marks);
};

} // namespace

void PlanMarks(PlanDesk& desk) {
    if (desk.tables.Rows(SetupTable::Mark).empty()) {
        return;
    }
    MarkPlanner planner(desk);
    for (const SetupRow& row : desk.tables.Rows(SetupTable::Mark)) {
        planner.Take(row);
    }
    planner.Order();
}

} // namespace host
