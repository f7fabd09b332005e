#include "host/app/ModelComponents.h"

#include "host/app/Faults.h"
#include "host/ui/LocateText.h"
#include "site/ICatalogue.h"
#include "site/IComponents.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

ComponentFacts FactsOf(const HostSession& session, const site::Component& component) {
    ComponentFacts facts;
    facts.title =
        component.kind.isEmpty() ? component.name : component.kind + u' ' + component.name;
    const PlaceAxes axes =
        AxesOfKey(session, component.ppid, component.floor, component.positionKey);
    const std::pair<QString, QString> first[] = {
        {u"名称"_s, component.name},
        {u"类型"_s, component.subName},
        {u"类别"_s, component.kind},
        {u"楼层"_s, component.floor.isEmpty() ? u"无楼层"_s : FloorCaption(component.floor)},
        {u"位置"_s,
         axes.axisX.isEmpty() ? u"不在轴网上"_s : u"%1轴 / %2轴"_s.arg(axes.axisX, axes.axisY)},
        {u"构件标识"_s, component.handle}};
    for (const auto& row : first) {
        if (!row.second.isEmpty()) {
            facts.rows.push_back(row);
        }
    }
    facts.rows.insert(facts.rows.end(), component.properties.begin(), component.properties.end());
    return facts;
}

} // namespace

QString PlaceAxes::Short() const {
    return axisX.isEmpty() ? QString() : u"%1-%2轴"_s.arg(axisX, axisY);
}

PlaceAxes AxesOfKey(const HostSession& session, qint32 ppid, const QString& floor,
                    const QString& positionKey) {
    site::ICatalogue& catalogue = session.Site().Catalogue();
    if (positionKey.isEmpty()) {
        return {};
    }
    for (const QString& x : catalogue.AxesX(ppid, floor)) {
        for (const auto& [y, key] : catalogue.AxesY(ppid, floor, x)) {
            if (key == positionKey) {
                return {x, y};
            }
        }
    }
    return {};
}

std::vector<PlanComponent> ReadPlanComponents(const HostSession& session, qint32 ppid,
                                              const QString& floor) {
    std::vector<PlanComponent> components;
    const site::Projects asked = ppid == 0 ? session.OpenPpids() : site::Projects{ppid};
    WithoutFault(session, [&] {
        for (const qint32 project : asked) {
            for (const site::Component& one : session.Site().Components().OnFloor(project, floor)) {
                components.push_back({one.handle, one.floor, one.positionKey, one.name, one.subName,
                                      one.kind, one.ppid});
            }
        }
    });
    return components;
}

ComponentFacts ReadComponentFacts(const HostSession& session, qint32 ppid, const QString& floor,
                                  const QString& handle) {
    ComponentFacts facts;
    WithoutFault(session, [&] {
        if (const auto found = session.Site().Components().Find(ppid, floor, handle)) {
            facts = FactsOf(session, *found);
        }
    });
    return facts;
}

} // namespace host
