// The table of marks.
#pragma once

#include "services/EnvRecords.h"

#include <map>

namespace KX_DATA {

class IKXLocalCacheData {
public:
    virtual ~IKXLocalCacheData() = default;

    virtual bool GetMarkTable(std::map<qint32, MarkRecord>& table) = 0;
    virtual bool GetMarkInfo(qint32 markId, MarkRecord& record) = 0;
};

} // namespace KX_DATA
