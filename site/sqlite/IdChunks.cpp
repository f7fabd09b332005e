#include "site/sqlite/IdChunks.h"

#include "site/sqlite/Database.h"

#include <QStringList>

namespace site {

using namespace Qt::StringLiterals;

QString IdMarks() {
    QStringList marks;
    marks.fill(u"?"_s, kIdChunk);
    return marks.join(u", "_s);
}

void ForEachOfIds(Database& database, const QString& sql, const std::vector<qint64>& ids,
                  const std::function<void(const Statement&)>& take) {
    const auto chunk = static_cast<size_t>(kIdChunk);
    for (size_t first = 0; first < ids.size(); first += chunk) {
        QVariantList values;
        for (size_t i = first; i < first + chunk; ++i) {
            values << (i < ids.size() ? ids[i] : qint64{-1}); // no row has a negative id
        }
        database.ForEach(sql, values, take);
    }
}

} // namespace site
