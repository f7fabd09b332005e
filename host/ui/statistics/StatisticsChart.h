// What the statistics dock shows: bars with their names and counts.
#pragma once

#include <QColor>
#include <QString>

#include <vector>

class QDate;

namespace host {

enum class CountedKind { BimPhotos, PdfPhotos, Issues };
/// Place: of drawing photos their drawing, of others their floor.
enum class CountedBy { Mark, Place, State, Week };

struct StatisticsBar {
    QString name;
    qint64 count = 0;
    QColor color; ///< invalid: the accent

    bool operator==(const StatisticsBar&) const = default;
};

struct StatisticsChart {
    CountedKind kind = CountedKind::BimPhotos;
    std::vector<StatisticsBar> bars; ///< from above
    qint64 total = 0;
    QString hint; ///< why there is no bar
};

/// "BIM模型照片", "图纸照片", "TN问题".
[[nodiscard]] QString NameOf(CountedKind kind);
/// "按标识", ...; for drawing photos "按图纸" instead of "按楼层".
[[nodiscard]] QString NameOf(CountedBy grouping, CountedKind kind);
/// "照片 12 张", "问题 3 个".
[[nodiscard]] QString CountText(CountedKind kind, qint64 count);
/// "12.3%"; a total of 0 gives "0%".
[[nodiscard]] QString ShareText(qint64 count, qint64 total);

/// "11月16日–22日" of the week that begins on a Monday, with the year unless it is that of `today`.
[[nodiscard]] QString WeekName(const QDate& monday, const QDate& today);

} // namespace host
