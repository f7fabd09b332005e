#include "tests/roads/FolderChanges.h"

#include "site/FloorOrder.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/Catalogue.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SiteWriter.h"

#include <QDateTime>

namespace roads {

using namespace Qt::StringLiterals;

QString OpenBeside(site::DataFolder& data) {
    site::DataFolder::Options options;
    options.cleanUp = false;
    const auto fault = data.Open(options);
    return fault ? fault->text : QString();
}

site::Projects AllProjects(site::DataFolder& data) {
    site::Projects projects;
    for (const site::ProjectEntry& project : site::Catalogue(data.Db()).Projects()) {
        projects.push_back(project.ppid);
    }
    return projects;
}

site::Signature OtherPerson() {
    return {u"李娜"_s, QDateTime::currentSecsSinceEpoch()};
}

int DeletePhotos(site::DataFolder& data, const std::vector<qint32>& picIds) {
    return site::Bin(data.Db(), data.Store())
        .DeleteBimPhotos(AllProjects(data), picIds, OtherPerson());
}

void RenameFloor(site::DataFolder& data, qint32 ppid, const QString& from, const QString& to) {
    site::SiteWriter(data).AddFloor(ppid, to);
    data.Db().Exec(u"UPDATE position SET floor = ? WHERE ppid = ? AND floor = ?"_s,
                   {to, ppid, from});
    data.Db().Exec(u"UPDATE bim_photo SET floor = ?, floor_sort = ? WHERE ppid = ? AND floor = ?"_s,
                   {to, site::FloorSortKey(to), ppid, from});
    data.Db().Exec(u"DELETE FROM floor WHERE ppid = ? AND name = ?"_s, {ppid, from});
}

void TakePhotosAway(site::DataFolder& data) {
    data.Db().Exec(u"ALTER TABLE bim_photo RENAME TO bim_photo_away"_s);
}

void BringPhotosBack(site::DataFolder& data) {
    data.Db().Exec(u"ALTER TABLE bim_photo_away RENAME TO bim_photo"_s);
}

} // namespace roads
