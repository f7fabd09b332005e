#include "frame/KXVeskPicDataImpl.h"

#include "base/MissingDialogs.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"

using ZelvorNRQ_KXVeskPicture::AnswerAsCancelled;
using ZelvorNRQ_KXVeskPicture::MissingDialog;

void CKXVeskPicDataImpl::GetPicFilterData(qint64, qint64, quint8, KX_DATA::MarkFilterArg&,
                                          std::vector<KX_DATA::PicFilterEntry>&) {
    AnswerAsCancelled(MissingDialog::MarkData);
}

void CKXVeskPicDataImpl::GetIssueFilterData(qint64, qint64, quint8, KX_DATA::MarkFilterArg&,
                                            std::vector<KX_DATA::PicFilterEntry>&) {
    AnswerAsCancelled(MissingDialog::MarkData);
}

qint32 CKXVeskPicDataImpl::GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<qint32>& picIds) {
    return GetVeskPicMng()->GetBimPicMarkerList(from, to, flag, markId, filterArg, picIds);
}
