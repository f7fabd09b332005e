// Keywords searched lately, newest first.
#pragma once

#include <QString>

#include <vector>

namespace KX_DATA {

class IRecentSearchMng {
public:
    virtual ~IRecentSearchMng() = default;

    virtual void SaveRecent(const std::vector<QString>& keywords) = 0;
    virtual void GetRecent(std::vector<QString>& keywords) = 0;
};

} // namespace KX_DATA
