// The services' factory functions of the test programs.
#include "services/Factories.h"

#include "tests/support/ScriptedHost.h"
#include "toolkit/Clock.h"

using support::ScriptedHost;

KX_DATA::IVeskPicMng* GetVeskPicMng() {
    return &ScriptedHost::Current().pics;
}

KX_DATA::ITNQuestionMng* GetTNQuestionMng() {
    return &ScriptedHost::Current().questions;
}

KX_DATA::IPDFDrawingMng* GetPDFDrawingMng() {
    return &ScriptedHost::Current().drawings;
}

KX_DATA::ITNQRCodeMng* GetTNQRCodeMng() {
    return &ScriptedHost::Current().qrCodes;
}

KX_DATA::IRichTextDrafts* GetRichTextDrafts() {
    return &ScriptedHost::Current().drafts;
}

KX_DATA::IRichTextMsgMng* GetRichTextMsgMng() {
    return &ScriptedHost::Current().richTexts;
}

KX_DATA::IKXAuthMng* GetKXAuthMng() {
    return &ScriptedHost::Current().auth;
}

KX_DATA::INRQAuthMng* GetNRQAuthMng() {
    return &ScriptedHost::Current().auth;
}

KX_DATA::IKXGlobalData* GetKXGlobalData() {
    return &ScriptedHost::Current().global;
}

KX_DATA::IKXPathMng* GetKXPathMng() {
    return &ScriptedHost::Current().paths;
}

KX_DATA::ICommonPathMng* GetKXCommonPathMng() {
    return &ScriptedHost::Current().paths;
}

KX_DATA::IVeskPathTool* GetVeskPathTool() {
    return &ScriptedHost::Current().paths;
}

KX_DATA::IProjCacheMng* GetProjCacheMng() {
    return &ScriptedHost::Current().project;
}

KX_DATA::IKXLocalCacheData* GetKXLocalCacheData() {
    return &ScriptedHost::Current().marks;
}

KX_DATA::IKXSysMng* GetKXSysMng() {
    return &ScriptedHost::Current().sys;
}

KX_DATA::IKXHoopsModuleMng* GetKXHoopsModuleMng() {
    return &ScriptedHost::Current().view;
}

KX_DATA::IKXFilesDownloadMng* GetKXFilesDownloadMng() {
    return &ScriptedHost::Current().files;
}

KX_DATA::IKXFilesUploadMng* GetKXFilesUploadMng() {
    return &ScriptedHost::Current().files;
}

KX_DATA::IMQFFileDownload* GetMQFFileDownLPtr() {
    return &ScriptedHost::Current().files;
}

KX_DATA::IKXDocMng* GetKXDocMng() {
    return &ScriptedHost::Current().docs;
}

KX_DATA::IKXReportDataMng* GetIKXReportDataMng() {
    return &ScriptedHost::Current().reportData;
}

KX_DATA::IRichEditorAuth* GetRichEditorAuth() {
    return &ScriptedHost::Current().richAuth;
}

KX_DATA::IRecentSearchMng* GetRecentSearchMng() {
    return &ScriptedHost::Current().recent;
}

KX_DATA::IConvertProjStateTool* GetConvertProjStateTool() {
    return &ScriptedHost::Current().states;
}

KX_DATA::IKXProgressStrip* GetKXProgressStrip() {
    return &ScriptedHost::Current().strip;
}

KX_DATA::CSoapError* GetSoapError() {
    return &ScriptedHost::Current().soapError;
}

KX_DATA::IExProgress* GetExProgress() {
    return &ScriptedHost::Current().progress;
}

PIC_REPORT::IPicReportCtrl* GetPicReportCtrl() {
    return &ScriptedHost::Current().reports;
}

qint64 GetPresentSeconds() {
    return toolkit::Clock().NowSeconds();
}
