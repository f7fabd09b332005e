// The issue viewer on an issue with very many pictures.
#pragma once

#include <QStringList>

namespace bench {

class Report;
class WatchedApplication;

/// Opens it until the first picture is painted, beside the best statements for the same rows and a
/// bare decode of that picture. False: the issue can't be filed.
[[nodiscard]] bool MeasureIssueOpening(WatchedApplication& application, const QStringList& photos,
                                       Report& report);

} // namespace bench
