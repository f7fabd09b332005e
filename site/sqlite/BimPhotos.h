// BIM photos in the database.
#pragma once

#include "site/IBimPhotos.h"

namespace site {

class Database;
class ListQuery;

class BimPhotos final : public IBimPhotos {
public:
    BimPhotos(Database& owner, ListQuery& pages) : m_database(owner), m_lists(pages) {}

    [[nodiscard]] Page<KX_DATA::BimPicRow> PageOf(const ListFilter& filter,
                                                  const PageAsked& asked) override;
    [[nodiscard]] std::vector<KX_DATA::BimPicRow> Rows(const Projects& projects,
                                                       const std::vector<qint64>& picIds) override;
    [[nodiscard]] std::optional<Revision> Detail(qint32 ppid, qint32 picId,
                                                 KX_DATA::BimPicDetail& detail) override;
    [[nodiscard]] std::vector<KX_DATA::PicFileEntry>
    Files(const Projects& projects, const std::vector<qint32>& picIds) override;
    [[nodiscard]] std::vector<KX_DATA::PicFileEntry>
    FilesByPosition(qint32 ppid, const QString& positionKey, qint32 markId) override;
    int SetStatus(qint32 ppid, const std::vector<qint32>& picIds, qint32 status,
                  std::vector<NamedPhoto>* changed = nullptr) override;
    [[nodiscard]] Saved Update(qint32 ppid, const KX_DATA::BimPicUpdate& update,
                               const Signature& by, std::optional<Revision> seen) override;
    [[nodiscard]] std::vector<KX_DATA::LabelEntry> UsedLabels() override;
    [[nodiscard]] std::vector<qint32> UsedMarks() override;

private:
    [[nodiscard]] std::optional<Revision> DetailWithoutLabels(qint32 ppid, qint32 picId,
                                                              KX_DATA::BimPicDetail& detail);
    [[nodiscard]] std::vector<KX_DATA::BimPicRow> RowsOf(const std::vector<qint64>& picIds);
    void AddLabels(std::vector<KX_DATA::BimPicRow>& rows);
    struct Place {
        QString floor;
        QString axisX;
        QString axisY;
    };
    /// Where a photo with that key is.
    [[nodiscard]] Place PlaceFor(qint32 ppid, const QString& key, const KX_DATA::BimPicDetail& old);
    void SetLabels(qint32 ppid, qint32 picId, const std::vector<QString>& labelIds);

    Database& m_database;
    ListQuery& m_lists;
};

} // namespace site
