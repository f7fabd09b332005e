// The host's services over a temporary data folder as a site.
#pragma once

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
#include "site/sqlite/SiteWriter.h"
#include "tests/contracts/ContractSite.h"
#include "tests/support/Script.h"
#include "tests/support/services/ScriptedProject.h"

#include <QTemporaryDir>

namespace contracts {

class OtherConnection;

class FolderSite final : public ContractSite {
public:
    FolderSite();
    ~FolderSite() override;

    QString AddLabel(const QString& name) override;
    void AddFloor(qint32 ppid, const QString& floor) override;
    QString AddPosition(const site::NewPosition& position) override;
    qint32 AddDrawing(qint32 ppid, const QString& name) override;
    qint32 AddCheckpoint(const site::NewCheckpoint& checkpoint, const QByteArray& voice) override;
    qint32 AddPhoto(const site::NewBimPhoto& photo, const QByteArray& picture,
                    const QByteArray& voice) override;
    qint32 AddPdfPhoto(const site::NewPdfPhoto& photo, const QByteArray& picture) override;
    QString AddIssue(const site::NewIssue& issue, const QByteArray& voice) override;
    void AddIssuePic(const site::NewIssuePic& pic, const QByteArray& picture) override;

    void SignIn(const QString& name) override;
    void OpenWorkset() override;
    void CloseProject() override;
    void SetDrawing(const KX_DATA::CurrentDrawing& drawing) override;
    void Tick(const KX_DATA::ShownPicMarks& pics, const KX_DATA::ShownIssueMarks& issues) override;
    void SetView(bool open) override;
    std::vector<QString> Actions() override;
    void FailTransfers() override;
    void Enter(Trouble trouble, const std::vector<std::string>& operations) override;

    /// For tests that file very much.
    [[nodiscard]] site::SiteWriter& Writer() { return *writer; }

private:
    QTemporaryDir dir;
    host::HostSession session;
    std::unique_ptr<site::SiteWriter> writer;
    std::unique_ptr<OtherConnection> other;
    qint32 workset = 0;
    // A view is a window of the client; the services only hand it on.
    support::Script viewScript;
    support::ScriptedView view{viewScript};

    host::VeskPicMng picMng;
    host::TNQuestionMng questionMng;
    host::PDFDrawingMng drawingMng;
    host::TNQRCodeMng qrCodeMng;
    host::RichTextMsgMng richTextMng;
    host::AuthMng authMng;
    host::ActingUser actingUser;
    host::GlobalData globalData;
    host::PathMng pathMng;
    host::CommonPathMng commonPathMng;
    host::VeskPathTool richPathTool;
    host::ProjCacheMng cacheMng;
    host::LocalCacheData localCache;
    host::SysMng sysMng;
    host::HoopsModuleMng hoopsMng;
    host::FilesDownloadMng downloadMng;
    host::FilesUploadMng uploadMng;
    host::MQFFileDownload backgroundMng;
    host::DocMng docMng;
    host::ReportDataMng reportDataMng;
    host::RichEditorAuth richEditorAuth;
    host::RecentSearchMng recentMng;
    host::ConvertProjStateTool stateTool;
    host::SilentProgress silentProgress;
    host::PicReportCtrl reportCtrl;
};

} // namespace contracts
