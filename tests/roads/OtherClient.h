// Another client on the same data folder, by a connection of its own.
#pragma once

#include "services/PicRecords.h"
#include "site/sqlite/DataFolder.h"

#include <vector>

namespace roads {

/// What it does reaches the client under test through the database alone: nobody is told. Faults of
/// the data fail the test. Thread: user interface.
class OtherClient final {
public:
    explicit OtherClient(const QString& dataFolder);

    void DeletePhotos(const std::vector<qint32>& picIds);
    /// In the model and on the photos that hang there.
    void RenameFloor(qint32 ppid, const QString& from, const QString& to);
    /// As it stands in the database; empty for a photo that isn't there.
    [[nodiscard]] KX_DATA::BimPicDetail Photo(qint32 ppid, qint32 picId);
    /// While it is away, nothing of photos can be read or written by anybody.
    void TakePhotosAway();
    void BringPhotosBack();

private:
    site::DataFolder m_data;
};

} // namespace roads
