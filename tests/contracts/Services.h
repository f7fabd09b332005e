// All services of one site, each by its contract.
#pragma once

#include "services/CSoapError.h"
#include "services/IConvertProjStateTool.h"
#include "services/IExProgress.h"
#include "services/IKXAuthMng.h"
#include "services/IKXDocMng.h"
#include "services/IKXFilesMng.h"
#include "services/IKXGlobalData.h"
#include "services/IKXLocalCacheData.h"
#include "services/IKXPathMng.h"
#include "services/IKXProgressStrip.h"
#include "services/IKXReportDataMng.h"
#include "services/IKXSysMng.h"
#include "services/IKXView.h"
#include "services/IPDFDrawingMng.h"
#include "services/IPicReportCtrl.h"
#include "services/IProjCacheMng.h"
#include "services/IRecentSearchMng.h"
#include "services/IRichEditorAuth.h"
#include "services/IRichTextDrafts.h"
#include "services/IRichTextMsgMng.h"
#include "services/ITNQRCodeMng.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"

namespace contracts {

/// One line a contract: the check of the table of operations reads them, and finds an operation's
/// tests by calls like `on.pics->QueryBimPics(`. None is null.
struct Services {
    KX_DATA::IVeskPicMng* pics = nullptr;
    KX_DATA::ITNQuestionMng* issues = nullptr;
    KX_DATA::IPDFDrawingMng* drawings = nullptr;
    KX_DATA::ITNQRCodeMng* qrCodes = nullptr;
    KX_DATA::IRichTextMsgMng* richTexts = nullptr;
    KX_DATA::IRichTextDrafts* drafts = nullptr;
    KX_DATA::IKXAuthMng* auth = nullptr;
    KX_DATA::INRQAuthMng* acting = nullptr;
    KX_DATA::IKXGlobalData* global = nullptr;
    KX_DATA::IKXPathMng* paths = nullptr;
    KX_DATA::ICommonPathMng* commonPaths = nullptr;
    KX_DATA::IVeskPathTool* richPaths = nullptr;
    KX_DATA::IProjCacheMng* cache = nullptr;
    KX_DATA::IProjCacheHandle* project = nullptr;
    KX_DATA::IProjModelHandle* model = nullptr;
    KX_DATA::IKXLocalCacheData* marks = nullptr;
    KX_DATA::IKXSysMng* sys = nullptr;
    KX_DATA::IKXHoopsModuleMng* hoops = nullptr;
    KX_DATA::IKXFilesDownloadMng* downloads = nullptr;
    KX_DATA::IKXFilesUploadMng* uploads = nullptr;
    KX_DATA::IMQFFileDownload* background = nullptr;
    KX_DATA::IKXDocMng* docs = nullptr;
    KX_DATA::IKXReportDataMng* reportData = nullptr;
    KX_DATA::IRichEditorAuth* richAuth = nullptr;
    KX_DATA::IRecentSearchMng* recent = nullptr;
    KX_DATA::IConvertProjStateTool* states = nullptr;
    KX_DATA::IExProgress* progress = nullptr;
    PIC_REPORT::IPicReportCtrl* reports = nullptr;
    KX_DATA::IKXProgressStrip* strip = nullptr;
    KX_DATA::CSoapError* soapError = nullptr;
};

} // namespace contracts
