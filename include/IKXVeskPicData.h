// The module's second interface: what the host's mark panel offers.
#pragma once

#include "services/MarkGroups.h"

#include <vector>

namespace ZelvorNRQ_KXVeskPicture {

/// Filter and mark data. `from`, `to` and `filterArg` are the host's and are passed on untouched.
class IKXVeskPicData {
public:
    virtual void GetPicFilterData(qint64 from, qint64 to, quint8 flag,
                                  KX_DATA::MarkFilterArg& filterArg,
                                  std::vector<KX_DATA::PicFilterEntry>& entries) = 0;
    virtual void GetIssueFilterData(qint64 from, qint64 to, quint8 flag,
                                    KX_DATA::MarkFilterArg& filterArg,
                                    std::vector<KX_DATA::PicFilterEntry>& entries) = 0;
    virtual qint32 GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                                       KX_DATA::MarkFilterArg& filterArg,
                                       std::vector<qint32>& picIds) = 0;

protected:
    ~IKXVeskPicData() = default;
};

} // namespace ZelvorNRQ_KXVeskPicture
