// The client's own folders beside the database.
#pragma once

#include "site/IClientFolders.h"

namespace site {

class DataFolder;

class FolderPlaces final : public IClientFolders {
public:
    explicit FolderPlaces(DataFolder& dataFolder) : m_folder(dataFolder) {}

    [[nodiscard]] QString CacheOf(qint32 ppid, Cache what) const override;
    [[nodiscard]] QString RichText(const QString& key) const override;
    [[nodiscard]] QString Opened() const override;
    [[nodiscard]] QString Work() const override;
    [[nodiscard]] QString Logs() const override;
    [[nodiscard]] std::unique_ptr<IWorkshop>
    Workshop(std::function<bool(const QString&)> isOurs) override;

private:
    [[nodiscard]] QString Made(const QString& below) const;

    DataFolder& m_folder;
};

} // namespace site
