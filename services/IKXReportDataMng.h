// What the model tells of components.
#pragma once

#include "services/IssueRecords.h"

namespace KX_DATA {

class IKXReportDataMng {
public:
    virtual ~IKXReportDataMng() = default;

    /// Non-zero on success.
    virtual qint32 GetComponentInfo(const ComponentInfoQuery& query,
                                    std::vector<ComponentInfo>& components) = 0;
};

} // namespace KX_DATA
