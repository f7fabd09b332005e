// How the module obtains each service. Declared here, defined by whoever loads the module: the host
// with its own services, or the tests with scripted ones. Nothing is ever freed by the module.
#pragma once

#include <QtCore/qglobal.h>

namespace PIC_REPORT {
class IPicReportCtrl;
}

namespace KX_DATA {
class CSoapError;
class ICommonPathMng;
class IConvertProjStateTool;
class IExProgress;
class IKXAuthMng;
class IKXDocMng;
class IKXFilesDownloadMng;
class IKXFilesUploadMng;
class IKXGlobalData;
class IKXHoopsModuleMng;
class IKXLocalCacheData;
class IKXPathMng;
class IKXProgressStrip;
class IKXReportDataMng;
class IKXSysMng;
class IMQFFileDownload;
class INRQAuthMng;
class IPDFDrawingMng;
class IProjCacheMng;
class IRecentSearchMng;
class IRichEditorAuth;
class IRichTextDrafts;
class IRichTextMsgMng;
class ITNQRCodeMng;
class ITNQuestionMng;
class IVeskPathTool;
class IVeskPicMng;
} // namespace KX_DATA

#if defined(_WIN32)
#define KX_HOST_FUNCTION extern "C" __declspec(dllexport)
#else
#define KX_HOST_FUNCTION extern "C" __attribute__((visibility("default")))
#endif

KX_HOST_FUNCTION KX_DATA::IVeskPicMng* GetVeskPicMng();
KX_HOST_FUNCTION KX_DATA::ITNQuestionMng* GetTNQuestionMng();
KX_HOST_FUNCTION KX_DATA::IPDFDrawingMng* GetPDFDrawingMng();
KX_HOST_FUNCTION KX_DATA::ITNQRCodeMng* GetTNQRCodeMng();
KX_HOST_FUNCTION KX_DATA::IRichTextMsgMng* GetRichTextMsgMng();
KX_HOST_FUNCTION KX_DATA::IRichTextDrafts* GetRichTextDrafts();
KX_HOST_FUNCTION KX_DATA::IKXAuthMng* GetKXAuthMng();
KX_HOST_FUNCTION KX_DATA::INRQAuthMng* GetNRQAuthMng();
KX_HOST_FUNCTION KX_DATA::IKXGlobalData* GetKXGlobalData();
KX_HOST_FUNCTION KX_DATA::IKXPathMng* GetKXPathMng();
KX_HOST_FUNCTION KX_DATA::ICommonPathMng* GetKXCommonPathMng();
KX_HOST_FUNCTION KX_DATA::IVeskPathTool* GetVeskPathTool();
KX_HOST_FUNCTION KX_DATA::IProjCacheMng* GetProjCacheMng();
KX_HOST_FUNCTION KX_DATA::IKXLocalCacheData* GetKXLocalCacheData();
KX_HOST_FUNCTION KX_DATA::IKXSysMng* GetKXSysMng();
KX_HOST_FUNCTION KX_DATA::IKXHoopsModuleMng* GetKXHoopsModuleMng();
KX_HOST_FUNCTION KX_DATA::IKXFilesDownloadMng* GetKXFilesDownloadMng();
KX_HOST_FUNCTION KX_DATA::IKXFilesUploadMng* GetKXFilesUploadMng();
KX_HOST_FUNCTION KX_DATA::IMQFFileDownload* GetMQFFileDownLPtr();
KX_HOST_FUNCTION KX_DATA::IKXDocMng* GetKXDocMng();
KX_HOST_FUNCTION KX_DATA::IKXReportDataMng* GetIKXReportDataMng();
KX_HOST_FUNCTION KX_DATA::IRichEditorAuth* GetRichEditorAuth();
KX_HOST_FUNCTION KX_DATA::IRecentSearchMng* GetRecentSearchMng();
KX_HOST_FUNCTION KX_DATA::IConvertProjStateTool* GetConvertProjStateTool();
KX_HOST_FUNCTION KX_DATA::IExProgress* GetExProgress();
KX_HOST_FUNCTION KX_DATA::IKXProgressStrip* GetKXProgressStrip();
KX_HOST_FUNCTION KX_DATA::CSoapError* GetSoapError();
KX_HOST_FUNCTION PIC_REPORT::IPicReportCtrl* GetPicReportCtrl();

/// The present time for records that begin with it: seconds since 1970. Thread: any.
KX_HOST_FUNCTION qint64 GetPresentSeconds();
