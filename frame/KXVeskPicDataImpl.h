// The module's data provider.
#pragma once

#include "base/SingletonTmpl.h"
#include "include/IKXVeskPicData.h"

/// What the host's mark panel offers. Lives from the first factory call to process exit.
/// Thread: user interface.
class CKXVeskPicDataImpl final : public ZelvorNRQ_KXVeskPicture::IKXVeskPicData,
                                 public NRQUtility::SingletonTmpl<CKXVeskPicDataImpl> {
public:
    void GetPicFilterData(qint64 from, qint64 to, quint8 flag, KX_DATA::MarkFilterArg& filterArg,
                          std::vector<KX_DATA::PicFilterEntry>& entries) override;
    void GetIssueFilterData(qint64 from, qint64 to, quint8 flag, KX_DATA::MarkFilterArg& filterArg,
                            std::vector<KX_DATA::PicFilterEntry>& entries) override;
    qint32 GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                               KX_DATA::MarkFilterArg& filterArg,
                               std::vector<qint32>& picIds) override;
};
