// Filing of uploaded pictures by any thread.
#pragma once

#include "site/IPicFiling.h"

namespace site {

class DataFolder;

/// Each operation has a connection and a store of its own.
class FolderPicFiling final : public IPicFiling {
public:
    explicit FolderPicFiling(const DataFolder& dataFolder);

    [[nodiscard]] bool AddRectifyPics(const Projects& projects, const QString& questionId,
                                      const std::vector<KX_DATA::QuestionPicRecord>& pics,
                                      const Signature& by, const Limits& limits) override;

private:
    const QString m_database;
    const QString m_store;
    const QString m_bin;
    const qint64 m_opening;
};

} // namespace site
