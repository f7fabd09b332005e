#include "host/reminders/PushMessage.h"

#include "toolkit/GbkText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QJsonObject Common(const site::Filing& filing, const QString& place) {
    return {{u"ppid"_s, filing.ppid},       {u"markerId"_s, filing.markId},
            {u"username"_s, filing.person}, {u"pos"_s, place},
            {u"uuid"_s, filing.uuid},       {u"floor"_s, filing.floor}};
}

QJsonObject OfPhoto(const site::Filing& filing, const QString& place) {
    QJsonObject object = Common(filing, place);
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

QJsonObject OfIssue(const site::Filing& filing, const QString& place) {
    QJsonObject object = Common(filing, place);
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

std::string PushMessage(const site::Filing& filing, const QString& place) {
    const QJsonObject object =
        filing.kind == site::ChangeKind::Issue ? OfIssue(filing, place) : OfPhoto(filing, place);
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
