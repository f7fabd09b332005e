#include "host/data/PicPanel.h"

#include "host/data/Database.h"

#include <QStringList>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString Limits(const PanelFilter& filter, QVariantList& values) {
    QStringList marks;
    for (const qint32 ppid : filter.ppids) {
        marks << u"?"_s;
        values << ppid;
    }
    QString text = u" WHERE status = 0 AND ppid IN (%1)"_s.arg(marks.join(u", "_s));
    if (filter.timed) {
        text += u" AND modified BETWEEN ? AND ?"_s;
        values << filter.from << filter.to;
    }
    if (!filter.person.isEmpty()) {
        text += u" AND modifier = ?"_s;
        values << filter.person;
    }
    return text;
}

} // namespace

std::vector<PanelCount> PicPanel::Counts(const PanelFilter& filter) {
    std::vector<PanelCount> counts;
    QVariantList values;
    const QString limits = Limits(filter, values);
    database.ForEach(
        u"SELECT floor, position_key, pos_text, mark_id, count(*) FROM bim_photo"_s + limits +
            u" GROUP BY floor_sort, floor, position_key, pos_text, mark_id"
            " ORDER BY floor_sort, pos_text, position_key, mark_id"_s,
        values, [&](const Statement& row) {
            counts.push_back({row.Text(0), row.Text(1), row.Text(2), row.Int(3), row.Int(4)});
        });
    return counts;
}

std::vector<qint32> PicPanel::PicsOfMark(const PanelFilter& filter, qint32 markId) {
    std::vector<qint32> picIds;
    QVariantList values;
    const QString limits = Limits(filter, values);
    values << markId;
    database.ForEach(u"SELECT id FROM bim_photo"_s + limits +
                         u" AND mark_id = ? ORDER BY modified DESC, id DESC"_s,
                     values, [&](const Statement& row) { picIds.push_back(row.Int(0)); });
    return picIds;
}

} // namespace host
