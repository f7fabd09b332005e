#include "site/sqlite/SqliteSite.h"

#include "site/OpenSite.h"
#include "site/blobs/FolderLook.h"
#include "site/sqlite/SiteWriter.h"

namespace site {

SqliteSite::SqliteSite(DataFolder& dataFolder)
    : m_folder(dataFolder), m_feed(m_folder.Db()), m_lists(m_folder.Db()),
      m_bimPhotos(m_folder.Db(), m_lists), m_pdfPhotos(m_folder.Db(), m_lists),
      m_facts(m_folder.Db()), m_comments(m_folder.Db()), m_components(m_folder.Db()),
      m_drawings(m_folder.Db()), m_bin(m_folder.Db(), m_folder.Store()),
      m_issues(m_folder.Db(), m_lists, m_folder.Store(), m_bin),
      m_richTexts(m_folder.Db(), m_folder.Store()), m_panel(m_folder.Db()),
      m_catalogue(m_folder.Db()), m_filings(m_folder.Db()), m_blobs(m_folder),
      m_picFiling(m_folder), m_places(m_folder),
      m_drafts(m_folder.Path() + u'/' + place::kDrafts, [this] { return m_folder.Now(); }),
      m_setup(m_folder.Db()), m_bulk(m_folder.Db()), m_statistics(m_folder.Db()) {}

SqliteSite::SqliteSite(std::unique_ptr<DataFolder> dataFolder) : SqliteSite(*dataFolder) {
    m_owned = std::move(dataFolder);
}

std::unique_ptr<IIntake> SqliteSite::NewIntake() {
    return std::make_unique<SiteWriter>(m_folder);
}

OpenedSite OpenSite(const QString& place, const OpenOptions& options) {
    auto folder = std::make_unique<DataFolder>(place);
    if (auto fault = folder->Open(options)) {
        return {nullptr, std::move(fault)};
    }
    return {std::make_unique<SqliteSite>(std::move(folder)), std::nullopt};
}

} // namespace site
