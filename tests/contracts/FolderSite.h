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
    [[nodiscard]] site::SiteWriter& Writer() { return *m_writer; }

private:
    QTemporaryDir m_dir;
    host::HostSession m_session;
    std::unique_ptr<site::SiteWriter> m_writer;
    std::unique_ptr<OtherConnection> m_other;
    qint32 m_workset = 0;
    // A view is a window of the client; the services only hand it on.
    support::Script m_viewScript;
    support::ScriptedView m_view{m_viewScript};

    host::VeskPicMng m_picMng;
    host::TNQuestionMng m_questionMng;
    host::PDFDrawingMng m_drawingMng;
    host::TNQRCodeMng m_qrCodeMng;
    host::RichTextMsgMng m_richTextMng;
    host::AuthMng m_authMng;
    host::ActingUser m_actingUser;
    host::GlobalData m_globalData;
    host::PathMng m_pathMng;
    host::CommonPathMng m_commonPathMng;
    host::VeskPathTool m_richPathTool;
    host::ProjCacheMng m_cacheMng;
    host::LocalCacheData m_localCache;
    host::SysMng m_sysMng;
    host::HoopsModuleMng m_hoopsMng;
    host::FilesDownloadMng m_downloadMng;
    host::FilesUploadMng m_uploadMng;
    host::MQFFileDownload m_backgroundMng;
    host::DocMng m_docMng;
    host::ReportDataMng m_reportDataMng;
    host::RichEditorAuth m_richEditorAuth;
    host::RecentSearchMng m_recentMng;
    host::ConvertProjStateTool m_stateTool;
    host::SilentProgress m_silentProgress;
    host::PicReportCtrl m_reportCtrl;
};

} // namespace contracts
