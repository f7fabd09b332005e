// The small tables of a site: projects, people, marks, labels, floors.
#pragma once

#include "services/DrawingRecords.h"
#include "services/EnvRecords.h"
#include "services/PicRecords.h"

#include <QString>

#include <map>
#include <vector>

namespace site {

class Database;

/// Of a mark that the table doesn't have: the ground on which it would stand.
inline constexpr qint32 kNoMarkColor = 0xFAFAFA;

struct ProjectEntry {
    qint32 ppid = 0;
    QString name;
    qint32 major = 0; ///< 1 to 4, the trade
};

struct WorksetEntry {
    qint32 id = 0;
    QString name;
    std::vector<qint32> ppids;
};

/// Where a checkpoint is, as a person knows it.
struct CheckpointPlace {
    QString drawing; ///< name
    qint32 number = 0;
};

struct LoggedAction {
    qint64 at = 0; ///< seconds since 1970
    QString person;
    qint32 ppid = 0;
    QString action;
};

/// Operations throw DataError. Thread: the database's.
class Catalogue final {
public:
    explicit Catalogue(Database& owner) : database(owner) {}

    [[nodiscard]] std::vector<ProjectEntry> Projects();
    /// ppid 0 for an unknown project.
    [[nodiscard]] ProjectEntry Project(qint32 ppid);
    [[nodiscard]] std::vector<WorksetEntry> Worksets();
    [[nodiscard]] std::vector<QString> People();
    [[nodiscard]] std::vector<qint32> RightsOf(const QString& person);

    [[nodiscard]] std::map<qint32, KX_DATA::MarkRecord> Marks();
    [[nodiscard]] std::vector<KX_DATA::LabelEntry> Labels();
    /// The id of the label, new or known; 0 for an empty name.
    qint32 AddLabel(const QString& name);

    /// In the order of the floors.
    [[nodiscard]] std::vector<QString> Floors(qint32 ppid);
    /// Axes of valid positions.
    [[nodiscard]] std::vector<QString> AxesX(qint32 ppid, const QString& floor);
    [[nodiscard]] std::vector<KX_DATA::AxisYEntry> AxesY(qint32 ppid, const QString& floor,
                                                         const QString& axisX);

    [[nodiscard]] std::vector<KX_DATA::CurrentDrawing> Drawings(qint32 ppid);
    /// An empty drawing for an unknown checkpoint.
    [[nodiscard]] CheckpointPlace PlaceOfCheckpoint(qint32 checkpointId);

    /// Newest first.
    [[nodiscard]] std::vector<QString> RecentSearches(const QString& person);
    void SaveRecentSearches(const QString& person, const std::vector<QString>& keywords);

    void LogAction(const LoggedAction& action);
    /// Latest first.
    [[nodiscard]] std::vector<LoggedAction> Actions(qint32 limit);

    [[nodiscard]] QString Setting(const QString& key);
    void SetSetting(const QString& key, const QString& value);

private:
    Database& database;
};

} // namespace site
