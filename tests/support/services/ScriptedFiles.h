// Folders and transfers in a folder of the test.
#pragma once

#include "services/CSoapError.h"
#include "services/IExProgress.h"
#include "services/IKXFilesMng.h"
#include "services/IKXPathMng.h"
#include "services/IKXProgressStrip.h"
#include "services/IPicReportCtrl.h"
#include "tests/support/Reserved.h"
#include "tests/support/Script.h"

#include <QByteArray>

#include <map>

namespace support {

/// All folders of the client, each made on the first question below `root`.
class ScriptedPaths final : public KX_DATA::IKXPathMng,
                            public KX_DATA::ICommonPathMng,
                            public KX_DATA::IVeskPathTool {
public:
    explicit ScriptedPaths(Script& script) : m_script(script) {}

    QString root;
    QString lastProjectName; ///< with which a project's folder was asked for

    const QString& GetPicFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetThumbFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetAttachFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetWorkFolder(QString& folder) override;
    const QString& GetLogFolder(QString& folder) override;
    void GetRichFolder(QString& folder) override;
    void GetAttachFolder(QString& folder, const QString& key) override;
    void GetOpenFolder(QString& folder) override;

private:
    const QString& Fill(const std::string& operation, QString& folder, const QString& name);

    Script& m_script;
};

/// Transfers: what is fetched comes out of `stored`; an unknown uuid fails. Thread: any, but
/// `stored` is set before the first transfer.
class ScriptedFiles final : public KX_DATA::IKXFilesDownloadMng,
                            public KX_DATA::IKXFilesUploadMng,
                            public KX_DATA::IMQFFileDownload {
public:
    explicit ScriptedFiles(Script& script) : m_script(script) {}

    std::map<QString, QByteArray> stored; ///< contents by uuid
    /// Downloads succeed and leave the local file as it is.
    bool keepsWhatIsThere = false;
    /// So many of the next looks at a state find its transfer running, half of it done.
    int looksWhileRunning = 0;

    void DownloadFile(KX_DATA::TransferResult& result, const QString& uuid,
                      const QString& localPath, qint32 kind, bool flag, qint32 value) override;
    bool UploadFile(const std::vector<KX_DATA::UploadItem>& items, qint32 count,
                    KX_DATA::UploadResult& result, QString& errorText) override;
    /// Done at once; the state is told when it is asked for.
    void StartDownload(const QString& taskId, const KX_DATA::FileDownloadRecord& record,
                       qint32 kind) override;
    bool GetDownloadState(const QString& taskId, qint32& state, qint32& bytes) override;
    void GetErrorText(const QString& taskId, QString& text) override;
    void GetFileSize(const QString& taskId, qint32& size) override;

private:
    /// -1 if it fails.
    [[nodiscard]] qint32 Write(const QString& uuid, const QString& localPath) const;

    Script& m_script;
    std::mutex m_mutex;
    std::map<QString, qint32> m_tasks; ///< sizes by task id, -1 failed
};

class ScriptedProgressStrip final : public KX_DATA::IKXProgressStrip {
public:
    explicit ScriptedProgressStrip(Script& script) : m_script(script) {}

    std::vector<QString> texts; ///< shown since the strip was opened
    bool isOpen = false;

    void ShowProgressBar(const QString& text, qint32 value) override;
    void SetShowInfo(const QString& text) override;
    void CloseProgressBar() override;

private:
    Script& m_script;
};

/// A failing GetLastError has nothing to tell.
class ScriptedSoapError final : public KX_DATA::CSoapError {
public:
    explicit ScriptedSoapError(Script& script) : m_script(script) {}

    QString lastText;

    void GetLastError(QString& text) override;

private:
    Script& m_script;
};

class ScriptedExProgress final : public KX_DATA::IExProgress {
public:
    explicit ScriptedExProgress(Script& script) : m_script(script) {}

    void Close() override;
    void Create(quint64 parent, const QString& name) override;
    void Show() override;
    void SetTitle(const QString& title) override;
    void SetRange(qint32 count) override;
    void SetPos(qint32 done) override;

private:
    Script& m_script;
};

class ScriptedPicReportCtrl final : public WithReserved1<PIC_REPORT::IPicReportCtrl> {
public:
    explicit ScriptedPicReportCtrl(Script& script) : m_script(script) {}

    PIC_REPORT::BimReportRequest lastBim;
    PIC_REPORT::PdfReportRequest lastPdf;
    PIC_REPORT::IssueReportRequest lastIssue;

    void OutputBimReport(const PIC_REPORT::BimReportRequest* request) override;
    void OutputPdfReport(const PIC_REPORT::PdfReportRequest* request) override;
    void OutputIssueReport(const PIC_REPORT::IssueReportRequest* request) override;

private:
    Script& m_script;
};

} // namespace support
