// What is ticked in the mark panel, in the form in which the module asks for it.
#pragma once

#include "host/session/HostSession.h"
#include "site/PanelFilter.h"

#include <functional>

namespace host {

/// How the ticks of the panel are asked for; groups are named as in the panel's lists.
struct PicTicks {
    std::function<Qt::CheckState(const QString& group)> ofGroup;
    std::function<bool(const QString& group, qint32 markId)> ofMark;
};

/// A floor that is ticked as a whole has an empty inner map, a mark an empty list. Under limits of
/// time each mark has its photos, since viewers cut their lists by them; they come in the order of
/// the items. Throws DataError.
[[nodiscard]] KX_DATA::ShownPicMarks
TickedPics(HostSession& session, const site::PanelFilter& filter, const PicTicks& ticks);

using IssueTicks =
    std::function<bool(const QString& group, qint32 markId, const QString& questionId)>;

/// By question id, with the mark as the value. Throws DataError.
[[nodiscard]] KX_DATA::ShownIssueMarks
TickedIssues(HostSession& session, const site::PanelFilter& filter, const IssueTicks& ticks);

} // namespace host
