#include "tests/console/ModuleFixture.h"

#include "base/PictureLog.h"
#include "console/VeskPicMngDlg.h"
#include "editors/PdfPicEditDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "issues/RectifyUpload.h"
#include "issues/TNPicEditDlg.h"
#include "issues/TNPicViewWrap.h"
#include "reminder/marks/KXVeskPicDataImpl.h"
#include "tests/support/WaitFor.h"
#include "viewers/BimPicViewWrap.h"
#include "viewers/Decoders.h"
#include "viewers/DownloadWorker.h"
#include "viewers/PdfPicViewWrap.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

void ForgetModule() {
    CVeskPicMngDlg::ReleaseInstance();
    CBimPicViewWrap::ReleaseInstance();
    CPdfPicViewWrap::ReleaseInstance();
    CPdfPicEditDlg::ReleaseInstance();
    CTNPicEditDlg::ReleaseInstance();
    CTNPicViewWrap::ReleaseInstance();
    CKXVeskPicDataImpl::ReleaseInstance();
    CKXVeskPictureImpl::ReleaseInstance();
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(QString());
    ZelvorNRQ_KXVeskPicture::ResetLogCycle();
}

} // namespace

ModuleFixture::ModuleFixture() {
    ForgetModule();
    host.paths.root = folder.Path();
    Facade().SetPicSink(&sink);
    host.Log().Clear();
}

ModuleFixture::~ModuleFixture() {
    if (CVeskPicMngDlg::HasInstance()) {
        Console().CloseConsole();
    }
    if (CBimPicViewWrap::HasInstance()) {
        CBimPicViewWrap::Instance().DestroyViews();
    }
    if (CPdfPicViewWrap::HasInstance()) {
        CPdfPicViewWrap::Instance().DestroyViews();
    }
    if (CTNPicEditDlg::HasInstance()) {
        CTNPicEditDlg::Instance().Destroy();
    }
    if (CTNPicViewWrap::HasInstance()) {
        CTNPicViewWrap::Instance().Destroy();
    }
    issues::JoinUploads();
    support::RunPendingEvents();
    // They use the services, which end with the test.
    gallery::JoinDownloadWorkers();
    gallery::JoinDecoders();
    ForgetModule();
}

CKXVeskPictureImpl& ModuleFixture::Facade() {
    return CKXVeskPictureImpl::Instance();
}

CVeskPicMngDlg& ModuleFixture::Console() {
    return CVeskPicMngDlg::Instance();
}

QString ModuleFixture::ModuleLog() const {
    QStringDecoder decode("GBK");
    return decode(folder.Read(u"log/VeskPicture.log"_s));
}
