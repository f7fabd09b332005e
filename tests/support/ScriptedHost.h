// All services of a host, scripted, as one test needs them.
#pragma once

#include "tests/support/Script.h"
#include "tests/support/TempFolder.h"
#include "tests/support/services/ScriptedDrawings.h"
#include "tests/support/services/ScriptedEnvironment.h"
#include "tests/support/services/ScriptedFiles.h"
#include "tests/support/services/ScriptedProject.h"
#include "tests/support/services/ScriptedRichTexts.h"
#include "tests/support/services/ScriptedTNQuestionMng.h"
#include "tests/support/services/ScriptedVeskPicMng.h"

namespace support {

/// The services' factory functions give the objects of the host made last, while it lives.
///
/// Starts with one open project (id 1, "示例工程"), all rights, three marks, the states, no
/// photo, drawing photo or issue, and a folder of its own, which goes with it.
class ScriptedHost {
public:
    ScriptedHost();
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost&) = delete;
    ScriptedHost& operator=(const ScriptedHost&) = delete;

    /// Ends the process with a message if there is none.
    [[nodiscard]] static ScriptedHost& Current();

    Script script;
    TempFolder folder; ///< below it are all folders of the client
    ScriptedVeskPicMng pics{script};
    ScriptedTNQuestionMng questions{script};
    ScriptedPDFDrawingMng drawings{script};
    ScriptedTNQRCodeMng qrCodes{script};
    ScriptedRichTextMsgMng richTexts{script};
    ScriptedRichTextDrafts drafts{script};
    ScriptedKXAuthMng auth{script};
    ScriptedKXGlobalData global{script};
    ScriptedPaths paths{script};
    ScriptedProjCacheMng project{script};
    ScriptedKXLocalCacheData marks{script};
    ScriptedKXSysMng sys{script};
    ScriptedView view{script};
    ScriptedFiles files{script};
    ScriptedKXDocMng docs{script};
    ScriptedKXReportDataMng reportData{script};
    ScriptedRichEditorAuth richAuth{script};
    ScriptedRecentSearchMng recent{script};
    ScriptedConvertProjStateTool states{script};
    ScriptedExProgress progress{script};
    ScriptedProgressStrip strip{script};
    ScriptedSoapError soapError{script};
    ScriptedPicReportCtrl reports{script};

    [[nodiscard]] CallLog& Log() { return script.log; }
    /// Opens a workset of these projects.
    void OpenWorkset(const std::vector<KX_DATA::WorksetProject>& projects);

private:
    ScriptedHost* m_before;
};

} // namespace support
