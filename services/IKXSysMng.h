// The record of what users did.
#pragma once

#include <QString>

namespace KX_DATA {

class IKXSysMng {
public:
    virtual ~IKXSysMng() = default;

    virtual void WriteActionLog(const QString& action) = 0;
};

} // namespace KX_DATA
