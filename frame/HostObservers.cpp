#include "frame/HostObservers.h"

#include "base/OpenProject.h"
#include "base/PictureLog.h"
#include "console/VeskPicMngDlg.h"
#include "editors/PdfPicEditDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "issues/TNPicEditDlg.h"
#include "reminder/marks/KXVeskPicDataImpl.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "viewers/BimPicViewWrap.h"
#include "viewers/PdfPicViewWrap.h"

using namespace Qt::StringLiterals;

CVeskPicProjChangeObs::CVeskPicProjChangeObs() {
    QString folder;
    GetKXCommonPathMng()->GetLogFolder(folder);
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(folder + u"VeskPicture.log"_s);
}

QString CVeskPicProjChangeObs::GetObsName() const {
    return u"ProjChange"_s;
}

QString CVeskPicProjChangeObs::GetObsClassName() const {
    return u"CVeskPicProjChangeObs"_s;
}

void CVeskPicProjChangeObs::OnProjChange() {
    CVeskPicMngDlg::Instance().CloseConsole();
    CBimPicViewWrap::Instance().DestroyViews();
    CPdfPicViewWrap::Instance().DestroyViews();
    CPdfPicEditDlg::Instance().Destroy();
    CKXVeskPicDataImpl::Instance().Clear();
    const auto project = ZelvorNRQ_KXVeskPicture::CurrentProject();
    ZelvorNRQ_KXVeskPicture::LogProjectChange(project ? &project->name : nullptr,
                                              project ? project->ppid : 0);
}

QString CViewBimPicObs::GetObsName() const {
    return u"ViewBimPic"_s;
}

QString CViewBimPicObs::GetObsClassName() const {
    return u"CViewBimPicObs"_s;
}

void CViewBimPicObs::ViewBimPic(const qint32* ppid, const QString& floor,
                                const QString& positionKey, qint32 markId) {
    CKXVeskPictureImpl::Instance().OpenBimPicView(*ppid, floor, positionKey, markId);
}

void CViewBimPicObs::OpenIssueEdit(qint32 mode) {
    CTNPicEditDlg::Instance().OnPickFinished(mode);
}

void CViewBimPicObs::LocateIssue(qint32 ppid, const QString& questionId) {
    CKXVeskPictureImpl::Instance().LocateIssue(ppid, questionId);
}
