#include "site/sqlite/Components.h"

#include "site/sqlite/Database.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace site {

using namespace Qt::StringLiterals;

namespace {

const QString kComponentSql =
    u"SELECT ppid, handle, floor, position_key, name, sub_name, kind, properties FROM component"
    " WHERE ppid = ? AND floor = ?"_s;

// Pairs, so that their order stays: [["构件名称", "KZ-1"], ...].
QString PropertiesText(const Component& component) {
    QJsonArray pairs;
    for (const auto& [caption, value] : component.properties) {
        pairs.append(QJsonArray{caption, value});
    }
    return QString::fromUtf8(QJsonDocument(pairs).toJson(QJsonDocument::Compact));
}

Component ComponentOf(const Statement& read) {
    Component component{read.Int(0),  read.Text(1), read.Text(2), read.Text(3),
                        read.Text(4), read.Text(5), read.Text(6), {}};
    const QJsonArray pairs = QJsonDocument::fromJson(read.Text(7).toUtf8()).array();
    for (const auto& pair : pairs) {
        component.properties.emplace_back(pair[0].toString(), pair[1].toString());
    }
    return component;
}

} // namespace

std::vector<Component> Components::OnFloor(qint32 ppid, const QString& floor) {
    std::vector<Component> found;
    m_database.ForEach(kComponentSql + u" ORDER BY position_key, handle"_s, {ppid, floor},
                       [&](const Statement& read) { found.push_back(ComponentOf(read)); });
    return found;
}

std::optional<Component> Components::Find(qint32 ppid, const QString& floor,
                                          const QString& handle) {
    std::optional<Component> found;
    m_database.ForEach(kComponentSql + u" AND handle = ?"_s, {ppid, floor, handle},
                       [&](const Statement& read) { found = ComponentOf(read); });
    return found;
}

void WriteComponent(Database& database, const Component& component) {
    database.Exec(u"INSERT INTO component (ppid, handle, floor, position_key, name, sub_name, kind,"
                  " properties) VALUES (?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (ppid, handle) DO"
                  " UPDATE SET floor = excluded.floor, position_key = excluded.position_key,"
                  " name = excluded.name, sub_name = excluded.sub_name, kind = excluded.kind,"
                  " properties = excluded.properties"_s,
                  {component.ppid, component.handle, component.floor, component.positionKey,
                   component.name, component.subName, component.kind, PropertiesText(component)});
    database.Log().Note(ChangeKind::Place, component.ppid, 0);
}

} // namespace site
