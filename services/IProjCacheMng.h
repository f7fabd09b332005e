// The open project, its drawing, and what the user has ticked in the mark panel.
#pragma once

#include "services/DrawingRecords.h"
#include "services/EnvRecords.h"
#include "services/MarkGroups.h"

namespace KX_DATA {

class IProjCacheHandle {
public:
    virtual ~IProjCacheHandle() = default;

    /// Null when no project is open.
    virtual const ProjectRecord* GetProjectRecord() = 0;
    /// The one that the host has open; -1 and no name: none. Thread: user interface.
    virtual void GetCurrentDrawing(CurrentDrawing& drawing) = 0;
    /// Number of the trade that the project belongs to.
    virtual qint32 GetProjectMajor() = 0;
};

class IProjModelHandle {
public:
    virtual ~IProjModelHandle() = default;

    virtual const ShownPicMarks& GetShownPicMarks() = 0;
    virtual const ShownIssueMarks& GetShownIssueMarks() = 0;
};

class IProjCacheMng {
public:
    virtual ~IProjCacheMng() = default;

    virtual IProjCacheHandle* GetCurrentProject() = 0;
    virtual IProjModelHandle* GetCurrentModel() = 0;
};

} // namespace KX_DATA
