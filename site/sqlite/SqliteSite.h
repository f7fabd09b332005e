// A site in a data folder: the parts of it behind the interfaces.
#pragma once

#include "site/ISite.h"
#include "site/blobs/DraftFolder.h"
#include "site/sqlite/BimPhotos.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/BulkFiling.h"
#include "site/sqlite/Catalogue.h"
#include "site/sqlite/ChangeFeed.h"
#include "site/sqlite/Comments.h"
#include "site/sqlite/Components.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/Drawings.h"
#include "site/sqlite/FilingTable.h"
#include "site/sqlite/FolderBlobs.h"
#include "site/sqlite/FolderPicFiling.h"
#include "site/sqlite/FolderPlaces.h"
#include "site/sqlite/Issues.h"
#include "site/sqlite/ListQuery.h"
#include "site/sqlite/PanelCache.h"
#include "site/sqlite/PdfPhotos.h"
#include "site/sqlite/PhotoFactTable.h"
#include "site/sqlite/RichTexts.h"
#include "site/sqlite/Setup.h"
#include "site/sqlite/Statistics.h"

namespace site {

class SqliteSite final : public ISite {
public:
    /// The folder must be open, and outlive the site.
    explicit SqliteSite(DataFolder& dataFolder);
    explicit SqliteSite(std::unique_ptr<DataFolder> dataFolder);

    [[nodiscard]] IBimPhotos& BimPhotos() override { return m_bimPhotos; }
    [[nodiscard]] IPdfPhotos& PdfPhotos() override { return m_pdfPhotos; }
    [[nodiscard]] IPhotoFacts& PhotoFacts() override { return m_facts; }
    [[nodiscard]] IComments& Comments() override { return m_comments; }
    [[nodiscard]] IComponents& Components() override { return m_components; }
    [[nodiscard]] IDrafts& Drafts() override { return m_drafts; }
    [[nodiscard]] IDrawings& Drawings() override { return m_drawings; }
    [[nodiscard]] IIssues& Issues() override { return m_issues; }
    [[nodiscard]] IRichTexts& RichTexts() override { return m_richTexts; }
    [[nodiscard]] IPanelCounts& PanelCounts() override { return m_panel; }
    [[nodiscard]] ICatalogue& Catalogue() override { return m_catalogue; }
    [[nodiscard]] IBin& Bin() override { return m_bin; }
    [[nodiscard]] IBlobs& Blobs() override { return m_blobs; }
    [[nodiscard]] IPicFiling& PicFiling() override { return m_picFiling; }
    [[nodiscard]] ISetup& Setup() override { return m_setup; }
    [[nodiscard]] IBulkFiling& BulkFiling() override { return m_bulk; }
    [[nodiscard]] IStatistics& Statistics() override { return m_statistics; }
    [[nodiscard]] std::unique_ptr<IIntake> NewIntake() override;
    [[nodiscard]] IClientFolders& Folders() override { return m_places; }
    [[nodiscard]] IChanges& Changes() override { return m_feed; }
    [[nodiscard]] IFilings& Filings() override { return m_filings; }
    [[nodiscard]] qint64 Now() const override { return m_folder.Now(); }
    [[nodiscard]] QString Place() const override { return m_folder.Path(); }
    Limits SetLimits(Limits limits) override {
        return m_folder.Db().Patient().Set(std::move(limits));
    }
    void SetTold(Told listener) override { m_folder.SetTold(std::move(listener)); }

    /// For what stands on this engine: its tests and its measurements.
    [[nodiscard]] DataFolder& Folder() const { return m_folder; }

private:
    std::unique_ptr<DataFolder> m_owned; ///< null over somebody else's folder
    DataFolder& m_folder;
    ChangeFeed m_feed;
    ListQuery m_lists;
    site::BimPhotos m_bimPhotos;
    site::PdfPhotos m_pdfPhotos;
    PhotoFactTable m_facts;
    site::Comments m_comments;
    site::Components m_components;
    site::Drawings m_drawings;
    site::Bin m_bin; ///< before the issues, which put pictures into it
    site::Issues m_issues;
    site::RichTexts m_richTexts;
    PanelCache m_panel;
    site::Catalogue m_catalogue;
    FilingTable m_filings;
    FolderBlobs m_blobs;
    FolderPicFiling m_picFiling;
    FolderPlaces m_places;
    DraftFolder m_drafts;
    site::Setup m_setup;
    site::BulkFiling m_bulk;
    site::Statistics m_statistics;
};

} // namespace site
