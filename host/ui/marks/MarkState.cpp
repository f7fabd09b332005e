#include "host/ui/marks/MarkState.h"

#include <QDateTime>
#include <QJsonDocument>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QJsonObject PageJson(const MarkPageState& page) {
    return {{u"shown"_s, page.shown},
            {u"limited"_s, page.days.limited},
            {u"from"_s, page.days.from.toString(Qt::ISODate)},
            {u"to"_s, page.days.to.toString(Qt::ISODate)},
            {u"ticks"_s, page.ticks.ToJson()}};
}

MarkPageState PageFrom(const QJsonObject& json) {
    MarkPageState page;
    page.shown = json[u"shown"_s].toBool(true);
    page.days.from = QDate::fromString(json[u"from"_s].toString(), Qt::ISODate);
    page.days.to = QDate::fromString(json[u"to"_s].toString(), Qt::ISODate);
    page.days.limited = json[u"limited"_s].toBool(false) && page.days.from.isValid() &&
                        page.days.from <= page.days.to;
    page.ticks = MarkTicks::FromJson(json[u"ticks"_s].toObject());
    return page;
}

} // namespace

std::pair<qint64, qint64> SecondsOf(const MarkDays& days) {
    return {days.from.startOfDay().toSecsSinceEpoch(), days.to.endOfDay().toSecsSinceEpoch()};
}

QString ToText(const MarkState& state) {
    const QJsonObject json{{u"photos"_s, PageJson(state.photos)},
                           {u"issues"_s, PageJson(state.issues)}};
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

MarkState MarkStateFrom(const QString& text) {
    const QJsonObject json = QJsonDocument::fromJson(text.toUtf8()).object();
    return {PageFrom(json[u"photos"_s].toObject()), PageFrom(json[u"issues"_s].toObject())};
}

} // namespace host
