// Who is signed in and what they may do.
#pragma once

#include "services/EnvRecords.h"

namespace KX_DATA {

/// Numbers of the rights in use. A right that is absent hides its controls.
inline constexpr qint32 kRightAddLabels = 5;
inline constexpr qint32 kRightEdit = 21;
inline constexpr qint32 kRightDelete = 22;
inline constexpr qint32 kRightShowHide = 38;

class IKXAuthMng {
public:
    virtual ~IKXAuthMng() = default;

    /// Login name, 8-bit text in code page 936.
    virtual void GetUserName(std::string& name) = 0;
    virtual bool HasRight(qint32 right) = 0;
};

/// The acting user, as the issue tracker knows them.
class INRQAuthMng {
public:
    virtual ~INRQAuthMng() = default;

    virtual LoginInfo GetLoginInfo() = 0;
};

} // namespace KX_DATA
