// All services of a program.
#pragma once

#include "host/services/AuthServices.h"
#include "host/services/CacheServices.h"
#include "host/services/ComponentServices.h"
#include "host/services/FilesDownloadMng.h"
#include "host/services/FilesUploadMng.h"
#include "host/services/GlobalData.h"
#include "host/services/MQFFileDownload.h"
#include "host/services/PDFDrawingMng.h"
#include "host/services/PathServices.h"
#include "host/services/PicReportCtrl.h"
#include "host/services/RichTextDrafts.h"
#include "host/services/RichTextMsgMng.h"
#include "host/services/SmallServices.h"
#include "host/services/TNQuestionMng.h"
#include "host/services/VeskPicMng.h"

namespace host {

/// Each has what it needs of the surroundings by reference.
struct ServiceSet {
    Surroundings around;

    VeskPicMng picMng{around};
    TNQuestionMng questionMng{around};
    PDFDrawingMng drawingMng{around};
    TNQRCodeMng qrCodeMng{around};
    RichTextDrafts richTextDrafts{around};
    RichTextMsgMng richTextMng{around};
    AuthMng authMng{around};
    ActingUser actingUser{around};
    GlobalData globalData{around};
    PathMng pathMng{around};
    CommonPathMng commonPathMng{around};
    VeskPathTool richPathTool{around};
    ProjCacheMng cacheMng{around};
    LocalCacheData localCache{around};
    SysMng sysMng{around};
    HoopsModuleMng hoopsMng{around};
    FilesDownloadMng downloadMng{around};
    FilesUploadMng uploadMng{around};
    MQFFileDownload backgroundMng{around};
    DocMng docMng{around};
    ReportDataMng reportDataMng{around};
    RichEditorAuth richEditorAuth{around};
    RecentSearchMng recentMng{around};
    ConvertProjStateTool stateTool;
    SilentProgress silentProgress;
    SilentStrip silentStrip;
    SoapError soapError{around};
    PicReportCtrl reportCtrl{around};
};

/// The set that the module's factory functions take from.
[[nodiscard]] ServiceSet& TheServices();

/// From its making to its end the module's services work on a session. Thread: user interface.
class Serving final {
public:
    /// The session must outlive this. Of several the one made last serves, as long as it lives.
    explicit Serving(HostSession& session);
    ~Serving();
    Serving(const Serving&) = delete;
    Serving& operator=(const Serving&) = delete;

    /// Nothing of what was lent is used any more; the session stays.
    void TakeBack();
    [[nodiscard]] Surroundings& Around() const { return TheServices().around; }
};

} // namespace host
