// The small tables of a site: projects, people, marks, labels, floors, settings.
#pragma once

#include "services/DrawingRecords.h"
#include "services/EnvRecords.h"
#include "services/PicRecords.h"
#include "site/Records.h"

#include <map>
#include <vector>

namespace site {

/// Operations throw DataError. Thread: the site's.
class ICatalogue {
public:
    virtual ~ICatalogue() = default;

    [[nodiscard]] virtual std::vector<ProjectEntry> Projects() = 0;
    /// ppid 0 for an unknown project.
    [[nodiscard]] virtual ProjectEntry Project(qint32 ppid) = 0;
    [[nodiscard]] virtual std::vector<WorksetEntry> Worksets() = 0;
    /// Those who may sign in.
    [[nodiscard]] virtual std::vector<QString> People() = 0;
    /// None of somebody who may not sign in any more.
    [[nodiscard]] virtual std::vector<qint32> RightsOf(const QString& person) = 0;

    [[nodiscard]] virtual std::map<qint32, KX_DATA::MarkRecord> Marks() = 0;
    /// Their ids in the order that people gave them.
    [[nodiscard]] virtual std::vector<qint32> MarkOrder() = 0;
    [[nodiscard]] virtual std::vector<KX_DATA::LabelEntry> Labels() = 0;
    /// The id of the label, new or known; 0 for an empty name.
    virtual qint32 AddLabel(const QString& name) = 0;

    /// In the order of the floors.
    [[nodiscard]] virtual std::vector<QString> Floors(qint32 ppid) = 0;
    /// Axes of valid positions.
    [[nodiscard]] virtual std::vector<QString> AxesX(qint32 ppid, const QString& floor) = 0;
    [[nodiscard]] virtual std::vector<KX_DATA::AxisYEntry> AxesY(qint32 ppid, const QString& floor,
                                                                 const QString& axisX) = 0;

    [[nodiscard]] virtual std::vector<KX_DATA::CurrentDrawing> Drawings(qint32 ppid) = 0;
    /// An empty drawing for a checkpoint of none of the projects.
    [[nodiscard]] virtual CheckpointPlace PlaceOfCheckpoint(const site::Projects& projects,
                                                            qint32 checkpointId) = 0;

    /// Newest first.
    [[nodiscard]] virtual std::vector<QString> RecentSearches(const QString& person) = 0;
    virtual void SaveRecentSearches(const QString& person,
                                    const std::vector<QString>& keywords) = 0;

    virtual void LogAction(const LoggedAction& action) = 0;
    /// Latest first.
    [[nodiscard]] virtual std::vector<LoggedAction> Actions(qint32 limit) = 0;

    [[nodiscard]] virtual QString Setting(const QString& key) = 0;
    virtual void SetSetting(const QString& key, const QString& value) = 0;
};

} // namespace site
