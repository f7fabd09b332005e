// The files of a data folder: the store's, with what the database says of them.
#pragma once

#include "site/IBlobs.h"

namespace site {

class DataFolder;

/// Each operation has a connection and a store of its own, so that any thread may ask at any time.
class FolderBlobs final : public IBlobs {
public:
    explicit FolderBlobs(const DataFolder& dataFolder);

    [[nodiscard]] TransferOutcome Fetch(const QString& uuid, const QString& localPath,
                                        const TransferTerms& terms) override;
    [[nodiscard]] bool IsFetched(const QString& uuid, const QString& localPath) const override;
    [[nodiscard]] qint64 SizeOf(const QString& uuid, const Limits& limits) override;
    /// Stores the file and writes its row, owned by nothing yet.
    [[nodiscard]] KX_DATA::UploadResult Upload(const QString& path,
                                               const TransferTerms& terms) override;

private:
    [[nodiscard]] QString StoredMd5(const QString& uuid, const Limits& limits) const;

    const QString m_database;
    const QString m_store;
    const QString m_bin;
    const DataFolder& m_folder; ///< for the time, which any thread may ask for
    const qint64 m_opening;
};

} // namespace site
