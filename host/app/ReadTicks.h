// What the ticks of the mark panel stand for, from the data.
#pragma once

#include "host/session/Ticked.h"
#include "site/PanelFilter.h"

#include <QtCore/qnamespace.h>

#include <functional>

namespace host {

class HostSession;

/// How the ticks of the panel are asked for; groups are named as in the panel's lists.
struct PhotoTicks {
    std::function<Qt::CheckState(const QString& group)> ofGroup;
    std::function<bool(const QString& group, qint32 markId)> ofMark;
};

/// Under limits of time each mark has its photos, since viewers cut their lists by them; they come
/// in the order of the items. Throws DataError.
[[nodiscard]] TickedPhotos ReadTickedPhotos(const HostSession& session,
                                            const site::PanelFilter& filter,
                                            const PhotoTicks& ticks);

using IssueTicks =
    std::function<bool(const QString& group, qint32 markId, const QString& questionId)>;

/// Throws DataError.
[[nodiscard]] TickedIssues ReadTickedIssues(const HostSession& session,
                                            const site::PanelFilter& filter,
                                            const IssueTicks& ticks);

} // namespace host
