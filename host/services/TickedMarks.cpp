#include "host/services/TickedMarks.h"

#include "host/services/PicPanelTree.h"
#include "site/IPanelCounts.h"
#include "toolkit/GbkText.h"

#include <algorithm>

namespace host {

namespace {

using MarkPhotos = std::map<qint32, std::vector<KX_DATA::ShownPicItem>>;

MarkPhotos MarksOf(const site::PanelFloor& floor, const PanelItemNames& names, bool withPhotos,
                   const std::function<bool(qint32)>& isTicked) {
    MarkPhotos marks;
    for (const site::PanelPlace& place : floor.places) {
        std::string name;
        for (const site::PanelMark& mark : place.marks) {
            // A mark without photos in its list would stand for all of its photos.
            if (mark.count == 0 || !isTicked(mark.markId)) {
                continue;
            }
            std::vector<KX_DATA::ShownPicItem>& photos = marks[mark.markId];
            if (!withPhotos) {
                continue;
            }
            if (name.empty()) {
                name = names.NameOf(place);
            }
            for (const qint32 picId : mark.picIds) {
                photos.push_back({name, picId});
            }
        }
    }
    return marks;
}

} // namespace

KX_DATA::ShownPicMarks TickedPics(HostSession& session, const site::PanelFilter& filter,
                                  const PicTicks& ticks) {
    KX_DATA::ShownPicMarks shown;
    const PanelItemNames names(session, filter);
    for (const site::PanelFloor& floor : session.Site().PanelCounts().Photos(filter)) {
        const QString group = PanelGroupName(floor.name);
        const Qt::CheckState state = ticks.ofGroup(group);
        if (state == Qt::Unchecked || !site::HasShownPhotos(floor)) {
            continue;
        }
        if (state == Qt::Checked && !filter.HasLimits()) {
            shown[toolkit::ToGbk(group)];
            continue;
        }
        // On no floor the photos of several projects hang on one item, so that a list couldn't say
        // which of them it counts.
        const bool withPhotos =
            filter.HasLimits() && !(floor.name.isEmpty() && filter.ppids.size() > 1);
        MarkPhotos marks = MarksOf(floor, names, withPhotos,
                                   [&](qint32 markId) { return ticks.ofMark(group, markId); });
        if (!marks.empty()) {
            shown[toolkit::ToGbk(group)][QString()] = std::move(marks);
        }
    }
    return shown;
}

KX_DATA::ShownIssueMarks TickedIssues(HostSession& session, const site::PanelFilter& filter,
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
    KX_DATA::ShownIssueMarks shown;
    for (const site::PanelIssue* issue : ticked) {
        shown.emplace_hint(shown.end(), issue->questionId, issue->markId);
    }
    return shown;
}

} // namespace host
