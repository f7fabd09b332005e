#include "host/app/ReadTicks.h"

#include "host/session/HostSession.h"
#include "host/session/PanelNames.h"
#include "site/IPanelCounts.h"

#include <algorithm>

namespace host {

namespace {

using MarkPlaces = std::map<qint32, std::vector<TickedPlace>>;

MarkPlaces MarksOf(const site::PanelFloor& floor, const PanelItemNames& names, bool withPhotos,
                   const std::function<bool(qint32)>& isTicked) {
    MarkPlaces marks;
    for (const site::PanelPlace& place : floor.places) {
        for (const site::PanelMark& mark : place.marks) {
            // A mark without photos in its list would stand for all of its photos.
            if (mark.count == 0 || !isTicked(mark.markId)) {
                continue;
            }
            std::vector<TickedPlace>& places = marks[mark.markId];
            if (withPhotos) {
                places.push_back({names.NameOf(place), mark.picIds});
            }
        }
    }
    return marks;
}

} // namespace

TickedPhotos ReadTickedPhotos(const HostSession& session, const site::PanelFilter& filter,
                              const PhotoTicks& ticks) {
    TickedPhotos ticked;
    const PanelItemNames names(session, filter);
    for (const site::PanelFloor& floor : session.Site().PanelCounts().Photos(filter)) {
        const QString group = PanelGroupName(floor.name);
        const Qt::CheckState state = ticks.ofGroup(group);
        if (state == Qt::Unchecked || !site::HasShownPhotos(floor)) {
            continue;
        }
        if (state == Qt::Checked && !filter.HasLimits()) {
            ticked[group];
            continue;
        }
        // On no floor the photos of several projects hang on one item, so that a list couldn't say
        // which of them it counts.
        const bool withPhotos =
            filter.HasLimits() && !(floor.name.isEmpty() && filter.ppids.size() > 1);
        MarkPlaces marks = MarksOf(floor, names, withPhotos,
                                   [&](qint32 markId) { return ticks.ofMark(group, markId); });
        if (!marks.empty()) {
            ticked[group] = std::move(marks);
        }
    }
    return ticked;
}

TickedIssues ReadTickedIssues(const HostSession& session, const site::PanelFilter& filter,
                              const IssueTicks& ticks) {
    std::vector<const site::PanelIssue*> ticked;
    for (const site::PanelIssueFloor& floor : session.Site().PanelCounts().Issues(filter)) {
        const QString group = PanelGroupName(floor.name);
        for (const site::PanelIssue& issue : floor.issues) {
            if (ticks(group, issue.markId, issue.questionId)) {
                ticked.push_back(&issue);
            }
        }
    }
    // In order, so that every one finds its place in the map at the end.
    std::sort(ticked.begin(), ticked.end(),
              [](const site::PanelIssue* one, const site::PanelIssue* other) {
                  return one->questionId < other->questionId;
              });
    TickedIssues shown;
    for (const site::PanelIssue* issue : ticked) {
        shown.emplace_hint(shown.end(), issue->questionId, issue->markId);
    }
    return shown;
}

} // namespace host
