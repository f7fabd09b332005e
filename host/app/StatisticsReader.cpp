#include "host/app/StatisticsReader.h"

#include "host/session/HostSession.h"
#include "host/session/PanelNames.h"
#include "host/ui/LocateText.h"
#include "site/IStatistics.h"
#include "site/RectifyStates.h"
#include "toolkit/Look.h"

#include <QDateTime>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWeeks = 26;

site::ListKind ListKindOf(CountedKind kind) {
    switch (kind) {
    case CountedKind::BimPhotos:
        return site::ListKind::BimPhotos;
    case CountedKind::PdfPhotos:
        return site::ListKind::PdfPhotos;
    case CountedKind::Issues:
        break;
    }
    return site::ListKind::Issues;
}

/// All time: what is older than the weeks, the weeks, and what a wrong clock has put after them.
std::vector<qint64> WeekBounds(qint64 now) {
    const QDate monday = QDateTime::fromSecsSinceEpoch(WeekOf(now)).date();
    std::vector<qint64> bounds{kBeginOfTime};
    for (int week = kWeeks - 1; week >= -1; --week) {
        bounds.push_back(monday.addDays(-7LL * week).startOfDay().toSecsSinceEpoch());
    }
    bounds.push_back(kEndOfTime);
    return bounds;
}

QString Quoted(const QString& name) {
    return u"“%1”"_s.arg(name);
}

class ChartMaker final {
public:
    ChartMaker(HostSession& session, CountedKind kind) : m_session(session) {
        m_made.chart.kind = kind;
    }

    void AddMarks(const std::vector<site::NumberCount>& marks) {
        const auto& table = m_session.Tables().Marks();
        for (const site::NumberCount& counted : marks) {
            const auto known = table.find(counted.number);
            const bool isKnown = known != table.end();
            const QString name = isKnown               ? known->second.name
                                 : counted.number == 0 ? u"无标识"_s
                                                       : u"标识 %1"_s.arg(counted.number);
            CountedPart part{Quoted(name), {}, NumberOfMark(counted.number)};
            part.preset.mark = counted.number;
            Add({name, counted.count,
                 isKnown ? toolkit::ColorFromBgr(known->second.color) : QColor()},
                part);
        }
    }

    void AddPlaces(const std::vector<site::PlaceCount>& places) {
        for (const site::PlaceCount& counted : places) {
            if (m_made.chart.kind == CountedKind::PdfPhotos) {
                CountedPart part{u"图纸"_s + Quoted(counted.name), {}};
                part.drawingId = counted.id;
                Add({counted.name, counted.count, {}}, part);
                continue;
            }
            const bool hasFloor = !counted.name.isEmpty();
            CountedPart part{hasFloor ? FloorCaption(counted.name) : u"没有楼层"_s, {}};
            part.preset.floor = counted.name;
            Add({hasFloor ? FloorCaption(counted.name) : PanelGroupName(counted.name),
                 counted.count,
                 {}},
                part);
        }
    }

    void AddStates(const std::vector<site::NumberCount>& states) {
        for (const site::NumberCount& counted : states) {
            const QString known = site::StateName(counted.number);
            const QString name = known.isEmpty() ? u"状态 %1"_s.arg(counted.number) : known;
            CountedPart part{Quoted(name), {}, NumberOfState(counted.number)};
            part.preset.state = counted.number;
            Add({name, counted.count, {}}, part);
        }
    }

    void AddWeeks(const std::vector<qint64>& counts, const std::vector<qint64>& bounds) {
        const QDate today = QDateTime::fromSecsSinceEpoch(m_session.Site().Now()).date();
        for (size_t at = 0; at < counts.size(); ++at) {
            const bool isFirst = at == 0;
            const bool isLast = at + 1 == counts.size();
            if ((isFirst || isLast) && counts[at] == 0) {
                continue;
            }
            const QString name =
                isFirst  ? u"更早"_s
                : isLast ? u"更晚"_s
                         : WeekName(QDateTime::fromSecsSinceEpoch(bounds[at]).date(), today);
            CountedPart part{name, {}};
            part.number = isFirst  ? NumberBefore(bounds[at + 1])
                          : isLast ? NumberFrom(bounds[at])
                                   : NumberOfWeek(bounds[at]);
            part.preset.modified = {bounds[at], bounds[at + 1] - 1};
            Add({name, counts[at], {}}, part);
        }
    }

    [[nodiscard]] CountedChart Take() { return std::move(m_made); }
    void SetTotal(qint64 total) { m_made.chart.total = total; }

private:
    void Add(const StatisticsBar& bar, const CountedPart& part) {
        m_made.chart.bars.push_back(bar);
        m_made.parts.push_back(part);
    }

    HostSession& m_session;
    CountedChart m_made;
};

CountedChart Nothing(CountedKind kind, const QString& hint) {
    CountedChart made;
    made.chart.kind = kind;
    made.chart.hint = hint;
    return made;
}

} // namespace

CountedChart ReadStatistics(HostSession& session, CountedKind kind, CountedBy grouping) {
    const site::Projects open = session.OpenPpids();
    if (open.empty()) {
        return Nothing(kind, u"没有打开的工程。"_s);
    }
    // The weeks are asked for one by one.
    const std::vector<qint64> bounds =
        grouping == CountedBy::Week ? WeekBounds(session.Site().Now()) : std::vector<qint64>();
    const site::SiteStatistics found =
        session.Site().Statistics().Of(ListKindOf(kind), open, bounds);
    qint64 total = 0;
    for (const site::NumberCount& counted : found.states) {
        total += counted.count;
    }
    if (total == 0) {
        return Nothing(kind, u"打开的工程里还没有%1。"_s.arg(NameOf(kind)));
    }
    ChartMaker maker(session, kind);
    maker.SetTotal(total);
    switch (grouping) {
    case CountedBy::Mark:
        maker.AddMarks(found.marks);
        break;
    case CountedBy::Place:
        maker.AddPlaces(found.places);
        break;
    case CountedBy::State:
        maker.AddStates(found.states);
        break;
    case CountedBy::Week:
        maker.AddWeeks(found.weeks, bounds);
        break;
    }
    return maker.Take();
}

} // namespace host
