#include "services/Factories.h"

#include "host/services/AuthServices.h"
#include "host/services/CacheServices.h"
#include "host/services/FilesDownloadMng.h"
#include "host/services/FilesUploadMng.h"
#include "host/services/GlobalData.h"
#include "host/services/MQFFileDownload.h"
#include "host/services/PDFDrawingMng.h"
#include "host/services/PathServices.h"
#include "host/services/SmallServices.h"
#include "host/services/TNQuestionMng.h"
#include "host/services/UnbuiltServices.h"
#include "host/services/VeskPicMng.h"
#include "host/session/HostSession.h"

namespace {

// Services live as long as the process: the module keeps what it was given, and its workers may ask
// until they are joined, whatever else has ended by then.
template <typename Service> Service* Only() {
    static Service& service = *new Service;
    return &service;
}

} // namespace

KX_DATA::IVeskPicMng* GetVeskPicMng() {
    return Only<host::VeskPicMng>();
}
KX_DATA::ITNQuestionMng* GetTNQuestionMng() {
    return Only<host::TNQuestionMng>();
}
KX_DATA::IPDFDrawingMng* GetPDFDrawingMng() {
    return Only<host::PDFDrawingMng>();
}
KX_DATA::ITNQRCodeMng* GetTNQRCodeMng() {
    return Only<host::TNQRCodeMng>();
}
KX_DATA::IRichTextMsgMng* GetRichTextMsgMng() {
    return Only<host::RichTextMsgMng>();
}
KX_DATA::IKXAuthMng* GetKXAuthMng() {
    return Only<host::AuthMng>();
}
KX_DATA::INRQAuthMng* GetNRQAuthMng() {
    return Only<host::ActingUser>();
}
KX_DATA::IKXGlobalData* GetKXGlobalData() {
    return Only<host::GlobalData>();
}
KX_DATA::IKXPathMng* GetKXPathMng() {
    return Only<host::PathMng>();
}
KX_DATA::ICommonPathMng* GetKXCommonPathMng() {
    return Only<host::CommonPathMng>();
}
KX_DATA::IVeskPathTool* GetVeskPathTool() {
    return Only<host::VeskPathTool>();
}
KX_DATA::IProjCacheMng* GetProjCacheMng() {
    return Only<host::ProjCacheMng>();
}
KX_DATA::IKXLocalCacheData* GetKXLocalCacheData() {
    return Only<host::LocalCacheData>();
}
KX_DATA::IKXSysMng* GetKXSysMng() {
    return Only<host::SysMng>();
}
KX_DATA::IKXHoopsModuleMng* GetKXHoopsModuleMng() {
    return Only<host::HoopsModuleMng>();
}
KX_DATA::IKXFilesDownloadMng* GetKXFilesDownloadMng() {
    return Only<host::FilesDownloadMng>();
}
KX_DATA::IKXFilesUploadMng* GetKXFilesUploadMng() {
    return Only<host::FilesUploadMng>();
}
KX_DATA::IMQFFileDownload* GetMQFFileDownLPtr() {
    return Only<host::MQFFileDownload>();
}
KX_DATA::IKXDocMng* GetKXDocMng() {
    return Only<host::DocMng>();
}
KX_DATA::IKXReportDataMng* GetIKXReportDataMng() {
    return Only<host::ReportDataMng>();
}
KX_DATA::IRichEditorAuth* GetRichEditorAuth() {
    return Only<host::RichEditorAuth>();
}
KX_DATA::IRecentSearchMng* GetRecentSearchMng() {
    return Only<host::RecentSearchMng>();
}
KX_DATA::IConvertProjStateTool* GetConvertProjStateTool() {
    return Only<host::ConvertProjStateTool>();
}
KX_DATA::IExProgress* GetExProgress() {
    const host::HostSession* session = host::HostSession::Current();
    return session != nullptr && session->progress != nullptr ? session->progress
                                                              : Only<host::SilentProgress>();
}
PIC_REPORT::IPicReportCtrl* GetPicReportCtrl() {
    return Only<host::PicReportCtrl>();
}
