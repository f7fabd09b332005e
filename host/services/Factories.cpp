#include "services/Factories.h"

#include "host/services/ServiceSet.h"
#include "toolkit/Clock.h"

KX_DATA::IVeskPicMng* GetVeskPicMng() {
    return &host::TheServices().picMng;
}
KX_DATA::ITNQuestionMng* GetTNQuestionMng() {
    return &host::TheServices().questionMng;
}
KX_DATA::IPDFDrawingMng* GetPDFDrawingMng() {
    return &host::TheServices().drawingMng;
}
KX_DATA::ITNQRCodeMng* GetTNQRCodeMng() {
    return &host::TheServices().qrCodeMng;
}
KX_DATA::IRichTextDrafts* GetRichTextDrafts() {
    return &host::TheServices().richTextDrafts;
}
KX_DATA::IRichTextMsgMng* GetRichTextMsgMng() {
    return &host::TheServices().richTextMng;
}
KX_DATA::IKXAuthMng* GetKXAuthMng() {
    return &host::TheServices().authMng;
}
KX_DATA::INRQAuthMng* GetNRQAuthMng() {
    return &host::TheServices().actingUser;
}
KX_DATA::IKXGlobalData* GetKXGlobalData() {
    return &host::TheServices().globalData;
}
KX_DATA::IKXPathMng* GetKXPathMng() {
    return &host::TheServices().pathMng;
}
KX_DATA::ICommonPathMng* GetKXCommonPathMng() {
    return &host::TheServices().commonPathMng;
}
KX_DATA::IVeskPathTool* GetVeskPathTool() {
    return &host::TheServices().richPathTool;
}
KX_DATA::IProjCacheMng* GetProjCacheMng() {
    return &host::TheServices().cacheMng;
}
KX_DATA::IKXLocalCacheData* GetKXLocalCacheData() {
    return &host::TheServices().localCache;
}
KX_DATA::IKXSysMng* GetKXSysMng() {
    return &host::TheServices().sysMng;
}
KX_DATA::IKXHoopsModuleMng* GetKXHoopsModuleMng() {
    return &host::TheServices().hoopsMng;
}
KX_DATA::IKXFilesDownloadMng* GetKXFilesDownloadMng() {
    return &host::TheServices().downloadMng;
}
KX_DATA::IKXFilesUploadMng* GetKXFilesUploadMng() {
    return &host::TheServices().uploadMng;
}
KX_DATA::IMQFFileDownload* GetMQFFileDownLPtr() {
    return &host::TheServices().backgroundMng;
}
KX_DATA::IKXDocMng* GetKXDocMng() {
    return &host::TheServices().docMng;
}
KX_DATA::IKXReportDataMng* GetIKXReportDataMng() {
    return &host::TheServices().reportDataMng;
}
KX_DATA::IRichEditorAuth* GetRichEditorAuth() {
    return &host::TheServices().richEditorAuth;
}
KX_DATA::IRecentSearchMng* GetRecentSearchMng() {
    return &host::TheServices().recentMng;
}
KX_DATA::IConvertProjStateTool* GetConvertProjStateTool() {
    return &host::TheServices().stateTool;
}
KX_DATA::IExProgress* GetExProgress() {
    host::ServiceSet& services = host::TheServices();
    return services.around.progress != nullptr ? services.around.progress
                                               : &services.silentProgress;
}
KX_DATA::IKXProgressStrip* GetKXProgressStrip() {
    host::ServiceSet& services = host::TheServices();
    return services.around.strip != nullptr ? services.around.strip : &services.silentStrip;
}

KX_DATA::CSoapError* GetSoapError() {
    return &host::TheServices().soapError;
}

PIC_REPORT::IPicReportCtrl* GetPicReportCtrl() {
    return &host::TheServices().reportCtrl;
}
qint64 GetPresentSeconds() {
    return toolkit::Clock().NowSeconds();
}
