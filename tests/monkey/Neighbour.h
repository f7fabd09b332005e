// Another client on the same folder, which changes things without telling anybody.
#pragma once

#include "site/sqlite/DataFolder.h"
#include "tests/monkey/Deeds.h"

namespace monkey {

/// By a connection of its own. What the data refuses is no fault. Thread: user interface.
class Neighbour final {
public:
    explicit Neighbour(const QString& dataFolder);
    ~Neighbour();
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    /// One change by the dice; what was done, for the history.
    QString Change(const Deed& deed);
    /// Undoes what lets no client start.
    void BringPhotosBack();

private:
    struct Row {
        QString name;
        QString (Neighbour::*change)(const Deed& deed);
    };
    static const std::vector<Row>& Table();
    QString DeletePhoto(const Deed& deed);
    QString DeleteIssue(const Deed& deed);
    QString FilePhoto(const Deed& deed);
    QString RenamePhoto(const Deed& deed);
    QString HidePhoto(const Deed& deed);
    QString RenameFloor(const Deed& deed);
    QString ChangeMark(const Deed& deed);
    QString DamageFile(const Deed& deed);
    QString PhotosAway(const Deed& deed);
    QString EmptyBin(const Deed& deed);
    [[nodiscard]] QVariant OneOf(const QString& column, const QString& table, const Deed& deed);

    site::DataFolder m_data;
    bool m_photosAway = false;
};

} // namespace monkey
