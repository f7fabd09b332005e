// The services of a program that measures the reminder feed alone: one project is open, each file
// is there at once. What the feed doesn't ask is none.
#include "services/Factories.h"
#include "services/IKXFilesMng.h"
#include "services/IKXGlobalData.h"
#include "services/IKXPathMng.h"
#include "services/IProjCacheMng.h"
#include "toolkit/Clock.h"

using namespace Qt::StringLiterals;

namespace {

class QuietGlobalData final : public KX_DATA::IKXGlobalData {
public:
    void GetClientVersionText(QString& text) override { text.clear(); }
    void GetGroupName(QString& name, qint32 /*groupId*/) override { name.clear(); }
    bool IsTNReminderEnabled() override { return true; }
    bool IsWorksetMode() override { return false; }
    void GetOpenProjectIds(std::vector<qint32>& ids) override { ids = {1, 2, 3}; }
    void GetWorksetProjects(std::vector<KX_DATA::WorksetProject>& projects) override {
        projects.clear();
    }
    const QString& GetProjectName(QString& name, qint32 /*ppid*/) override { return name; }
};

class QuietPaths final : public KX_DATA::IKXPathMng {
public:
    const QString& GetPicFolder(QString& folder, qint32 ppid, const QString& /*name*/) override {
        return Fill(folder, ppid);
    }
    const QString& GetThumbFolder(QString& folder, qint32 ppid, const QString& /*name*/) override {
        return Fill(folder, ppid);
    }
    const QString& GetAttachFolder(QString& folder, qint32 ppid, const QString& /*name*/) override {
        return Fill(folder, ppid);
    }
    const QString& GetWorkFolder(QString& folder) override { return Fill(folder, 0); }

private:
    static const QString& Fill(QString& folder, qint32 ppid) {
        folder = u"/cache/%1/pics/"_s.arg(ppid);
        return folder;
    }
};

class QuietProject final : public KX_DATA::IProjCacheMng, public KX_DATA::IProjCacheHandle {
public:
    KX_DATA::IProjCacheHandle* GetCurrentProject() override { return this; }
    KX_DATA::IProjModelHandle* GetCurrentModel() override { return nullptr; }
    const KX_DATA::ProjectRecord* GetProjectRecord() override { return &m_record; }
    void GetCurrentDrawing(KX_DATA::CurrentDrawing& drawing) override { drawing = {}; }
    qint32 GetProjectMajor() override { return 1; }

private:
    KX_DATA::ProjectRecord m_record{u"示例工程"_s, 1};
};

class QuietDownloads final : public KX_DATA::IKXFilesDownloadMng {
public:
    void DownloadFile(KX_DATA::TransferResult& result, const QString& /*uuid*/,
                      const QString& /*localPath*/, qint32 /*kind*/, bool /*flag*/,
                      qint32 /*value*/) override {
        result.success = 1;
    }
};

} // namespace

KX_DATA::IKXGlobalData* GetKXGlobalData() {
    static QuietGlobalData global;
    return &global;
}
KX_DATA::IKXPathMng* GetKXPathMng() {
    static QuietPaths paths;
    return &paths;
}
KX_DATA::IProjCacheMng* GetProjCacheMng() {
    static QuietProject project;
    return &project;
}
KX_DATA::IKXFilesDownloadMng* GetKXFilesDownloadMng() {
    static QuietDownloads downloads;
    return &downloads;
}
qint64 GetPresentSeconds() {
    return toolkit::Clock().NowSeconds();
}

KX_DATA::IVeskPicMng* GetVeskPicMng() {
    return nullptr;
}
KX_DATA::ITNQuestionMng* GetTNQuestionMng() {
    return nullptr;
}
KX_DATA::IPDFDrawingMng* GetPDFDrawingMng() {
    return nullptr;
}
KX_DATA::ITNQRCodeMng* GetTNQRCodeMng() {
    return nullptr;
}
KX_DATA::IRichTextDrafts* GetRichTextDrafts() {
    return nullptr;
}
KX_DATA::IRichTextMsgMng* GetRichTextMsgMng() {
    return nullptr;
}
KX_DATA::IKXAuthMng* GetKXAuthMng() {
    return nullptr;
}
KX_DATA::INRQAuthMng* GetNRQAuthMng() {
    return nullptr;
}
KX_DATA::ICommonPathMng* GetKXCommonPathMng() {
    return nullptr;
}
KX_DATA::IVeskPathTool* GetVeskPathTool() {
    return nullptr;
}
KX_DATA::IKXLocalCacheData* GetKXLocalCacheData() {
    return nullptr;
}
KX_DATA::IKXProgressStrip* GetKXProgressStrip() {
    return nullptr;
}
KX_DATA::CSoapError* GetSoapError() {
    return nullptr;
}
KX_DATA::IKXSysMng* GetKXSysMng() {
    return nullptr;
}
KX_DATA::IKXHoopsModuleMng* GetKXHoopsModuleMng() {
    return nullptr;
}
KX_DATA::IKXFilesUploadMng* GetKXFilesUploadMng() {
    return nullptr;
}
KX_DATA::IMQFFileDownload* GetMQFFileDownLPtr() {
    return nullptr;
}
KX_DATA::IKXDocMng* GetKXDocMng() {
    return nullptr;
}
KX_DATA::IKXReportDataMng* GetIKXReportDataMng() {
    return nullptr;
}
KX_DATA::IRichEditorAuth* GetRichEditorAuth() {
    return nullptr;
}
KX_DATA::IRecentSearchMng* GetRecentSearchMng() {
    return nullptr;
}
KX_DATA::IConvertProjStateTool* GetConvertProjStateTool() {
    return nullptr;
}
KX_DATA::IExProgress* GetExProgress() {
    return nullptr;
}
PIC_REPORT::IPicReportCtrl* GetPicReportCtrl() {
    return nullptr;
}
