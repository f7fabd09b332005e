#include "tests/roads/OtherClient.h"

#include "site/sqlite/BimPhotos.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/roads/FolderChanges.h"

#include <gtest/gtest.h>

namespace roads {

OtherClient::OtherClient(const QString& dataFolder) : m_data(dataFolder) {
    EXPECT_EQ(OpenBeside(m_data), QString());
}

void OtherClient::DeletePhotos(const std::vector<qint32>& picIds) {
    EXPECT_EQ(roads::DeletePhotos(m_data, picIds), int(picIds.size()));
}

void OtherClient::RenameFloor(qint32 ppid, const QString& from, const QString& to) {
    roads::RenameFloor(m_data, ppid, from, to);
}

KX_DATA::BimPicDetail OtherClient::Photo(qint32 ppid, qint32 picId) {
    KX_DATA::BimPicDetail detail;
    static_cast<void>(site::SqliteSite(m_data).BimPhotos().Detail(ppid, picId, detail));
    return detail;
}

void OtherClient::TakePhotosAway() {
    roads::TakePhotosAway(m_data);
}

void OtherClient::BringPhotosBack() {
    roads::BringPhotosBack(m_data);
}

} // namespace roads
