#include "host/ui/FileNames.h"

#include <QRegularExpression>

namespace host {

using namespace Qt::StringLiterals;

QString FileNameFrom(const QString& text, qsizetype most, QChar instead) {
    static const QRegularExpression forbidden(uR"([\x00-\x1f\x7f<>:"/\\|?*])"_s);
    static const QRegularExpression edges(uR"(^[\s.]+|[\s.]+$)"_s);
    QString name = text.left(most);
    if (!name.isEmpty() && name.back().isHighSurrogate()) {
        name.chop(1); // its other half was cut off
    }
    name.replace(forbidden, instead);
    return name.simplified().remove(edges);
}

} // namespace host
