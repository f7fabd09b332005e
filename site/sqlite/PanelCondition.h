// The limits of the mark panel in SQL.
#pragma once

#include "site/PanelFilter.h"

#include <QString>
#include <QVariant>

namespace site {

/// Condition on the shown rows of one project within the limits; appends the values of its places.
[[nodiscard]] QString PanelCondition(const PanelFilter& filter, qint32 ppid, QVariantList& values);

} // namespace site
