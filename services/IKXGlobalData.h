// Projects, worksets and settings that hold for the whole client.
#pragma once

#include "services/EnvRecords.h"

#include <vector>

namespace KX_DATA {

class IKXGlobalData {
public:
    virtual ~IKXGlobalData() = default;

    /// First field of each picture download record.
    virtual void GetClientVersionText(QString& text) = 0;
    /// Display name of a filter group.
    virtual void GetGroupName(QString& name, qint32 groupId) = 0;
    virtual bool IsTNReminderEnabled() = 0;
    /// True while a workset of several projects is open.
    virtual bool IsWorksetMode() = 0;
    /// Projects for which reminders count.
    virtual void GetOpenProjectIds(std::vector<qint32>& ids) = 0;
    /// Projects of the workset; without one the open project alone.
    virtual void GetWorksetProjects(std::vector<WorksetProject>& projects) = 0;
    /// Fills and returns `name`; empty for an unknown project.
    virtual const QString& GetProjectName(QString& name, qint32 ppid) = 0;
};

} // namespace KX_DATA
