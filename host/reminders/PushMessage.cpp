#include "host/reminders/PushMessage.h"

#include "toolkit/GbkText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Floor and place behind it, as lists show them.
QString PlaceOf(const site::Filing& filing) {
    return filing.floor.isEmpty() ? filing.posText : filing.floor + u"层"_s + filing.posText;
}

QJsonObject Common(const site::Filing& filing) {
    return {{u"ppid"_s, filing.ppid},       {u"markerId"_s, filing.markId},
            {u"username"_s, filing.person}, {u"pos"_s, PlaceOf(filing)},
            {u"uuid"_s, filing.uuid},       {u"floor"_s, filing.floor}};
}

QJsonObject OfPhoto(const site::Filing& filing) {
    QJsonObject object = Common(filing);
    object[u"picId"_s] = filing.picId;
    object[u"intersectionId"_s] = filing.positionKey;
    object[u"name"_s] = filing.name;
    QJsonArray labels;
    for (const QString& label : filing.labels) {
        labels.append(label);
    }
    object[u"labels"_s] = labels;
    return object;
}

QJsonObject OfIssue(const site::Filing& filing) {
    QJsonObject object = Common(filing);
    object[u"questionId"_s] = filing.questionId;
    object[u"questionName"_s] = filing.name;
    object[u"handle"_s] = filing.handle;
    object[u"compName"_s] = filing.componentName;
    return object;
}

QString Escaped(char16_t unit) {
    return u"\\u"_s + QString::number(unit, 16).rightJustified(4, u'0');
}

} // namespace

std::string PushMessage(const site::Filing& filing) {
    const QJsonObject object =
        filing.kind == site::ChangeKind::Issue ? OfIssue(filing) : OfPhoto(filing);
    const QString json = QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    const std::string whole = toolkit::ToGbk(json);
    if (toolkit::FromGbk(whole) == json) {
        return whole;
    }
    std::string text;
    for (const QChar unit : json) {
        std::string bytes = toolkit::ToGbk(QString(unit));
        if (toolkit::FromGbk(bytes) != QString(unit)) {
            bytes = Escaped(unit.unicode()).toStdString();
        }
        text += bytes;
    }
    return text;
}

} // namespace host
