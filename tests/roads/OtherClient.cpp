#include "tests/roads/OtherClient.h"

#include "site/FloorOrder.h"
#include "site/sqlite/BimPhotos.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SiteWriter.h"
#include "site/sqlite/SqliteSite.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace roads {

using namespace Qt::StringLiterals;

OtherClient::OtherClient(const QString& dataFolder) : m_data(dataFolder) {
    site::DataFolder::Options options;
    options.cleanUp = false;
    EXPECT_FALSE(m_data.Open(options));
}

void OtherClient::DeletePhotos(const std::vector<qint32>& picIds) {
    site::SqliteSite engine(m_data);
    site::Projects projects;
    for (const site::ProjectEntry& project : engine.Catalogue().Projects()) {
        projects.push_back(project.ppid);
    }
    const site::Signature by{u"李娜"_s, QDateTime::currentSecsSinceEpoch()};
    EXPECT_EQ(engine.Bin().DeleteBimPhotos(projects, picIds, by), int(picIds.size()));
}

void OtherClient::RenameFloor(qint32 ppid, const QString& from, const QString& to) {
    site::SiteWriter(m_data).AddFloor(ppid, to);
    m_data.Db().Exec(u"UPDATE position SET floor = ? WHERE ppid = ? AND floor = ?"_s,
                     {to, ppid, from});
    m_data.Db().Exec(
        u"UPDATE bim_photo SET floor = ?, floor_sort = ? WHERE ppid = ? AND floor = ?"_s,
        {to, site::FloorSortKey(to), ppid, from});
    m_data.Db().Exec(u"DELETE FROM floor WHERE ppid = ? AND name = ?"_s, {ppid, from});
}

KX_DATA::BimPicDetail OtherClient::Photo(qint32 ppid, qint32 picId) {
    KX_DATA::BimPicDetail detail;
    static_cast<void>(site::SqliteSite(m_data).BimPhotos().Detail(ppid, picId, detail));
    return detail;
}

void OtherClient::TakePhotosAway() {
    m_data.Db().Exec(u"ALTER TABLE bim_photo RENAME TO bim_photo_away"_s);
}

void OtherClient::BringPhotosBack() {
    m_data.Db().Exec(u"ALTER TABLE bim_photo_away RENAME TO bim_photo"_s);
}

} // namespace roads
