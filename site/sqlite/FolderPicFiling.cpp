#include "site/sqlite/FolderPicFiling.h"

#include "site/blobs/FileStore.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/IssuePics.h"

namespace site {

namespace {

constexpr int kFilingBusyMs = 5000;

} // namespace

FolderPicFiling::FolderPicFiling(const DataFolder& dataFolder)
    : m_database(dataFolder.DatabasePath()), m_store(dataFolder.StorePath()),
      m_bin(dataFolder.BinPath()), m_opening(dataFolder.Db().Log().Opening()) {}

bool FolderPicFiling::AddRectifyPics(const Projects& projects, const QString& questionId,
                                     const std::vector<KX_DATA::QuestionPicRecord>& pics,
                                     const Signature& by, const Limits& limits) {
    Database database(m_database, kFilingBusyMs);
    database.Log().SetOpening(m_opening);
    database.Patient().Set(limits);
    FileStore store(m_store, m_bin);
    Bin bin(database, store);
    return IssuePics(database, store, bin).AddRectifyPics(projects, questionId, pics, by);
}

} // namespace site
