// The small tables of a site in its database.
#pragma once

#include "site/ICatalogue.h"

namespace site {

class Database;

class Catalogue final : public ICatalogue {
public:
    explicit Catalogue(Database& owner) : m_database(owner) {}

    [[nodiscard]] std::vector<ProjectEntry> Projects() override;
    [[nodiscard]] ProjectEntry Project(qint32 ppid) override;
    [[nodiscard]] std::vector<WorksetEntry> Worksets() override;
    [[nodiscard]] std::vector<QString> People() override;
    [[nodiscard]] std::vector<qint32> RightsOf(const QString& person) override;
    [[nodiscard]] std::map<qint32, KX_DATA::MarkRecord> Marks() override;
    [[nodiscard]] std::vector<qint32> MarkOrder() override;
    [[nodiscard]] std::vector<KX_DATA::LabelEntry> Labels() override;
    qint32 AddLabel(const QString& name) override;
    [[nodiscard]] std::vector<QString> Floors(qint32 ppid) override;
    [[nodiscard]] std::vector<QString> AxesX(qint32 ppid, const QString& floor) override;
    [[nodiscard]] std::vector<KX_DATA::AxisYEntry> AxesY(qint32 ppid, const QString& floor,
                                                         const QString& axisX) override;
    [[nodiscard]] std::vector<KX_DATA::CurrentDrawing> Drawings(qint32 ppid) override;
    [[nodiscard]] CheckpointPlace PlaceOfCheckpoint(const site::Projects& projects,
                                                    qint32 checkpointId) override;
    [[nodiscard]] std::vector<QString> RecentSearches(const QString& person) override;
    void SaveRecentSearches(const QString& person, const std::vector<QString>& keywords) override;
    void LogAction(const LoggedAction& action) override;
    [[nodiscard]] std::vector<LoggedAction> Actions(qint32 limit) override;
    [[nodiscard]] QString Setting(const QString& key) override;
    void SetSetting(const QString& key, const QString& value) override;

private:
    Database& m_database;
};

} // namespace site
