#include "tests/support/services/ScriptedFiles.h"

#include "tests/support/ArgText.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace support {

const QString& ScriptedPaths::Fill(const std::string& operation, QString& folder,
                                   const QString& name) {
    folder.clear();
    if (m_script.Call(operation)) {
        folder = root + u'/' + name + u'/';
        QDir().mkpath(folder);
    }
    return folder;
}

const QString& ScriptedPaths::GetPicFolder(QString& folder, qint32 ppid, const QString& name) {
    lastProjectName = name;
    return Fill("GetPicFolder", folder, u"%1/pics"_s.arg(ppid));
}

const QString& ScriptedPaths::GetThumbFolder(QString& folder, qint32 ppid, const QString& name) {
    lastProjectName = name;
    return Fill("GetThumbFolder", folder, u"%1/thumbs"_s.arg(ppid));
}

const QString& ScriptedPaths::GetAttachFolder(QString& folder, qint32 ppid, const QString& name) {
    lastProjectName = name;
    return Fill("GetAttachFolder", folder, u"%1/attachments"_s.arg(ppid));
}

const QString& ScriptedPaths::GetWorkFolder(QString& folder) {
    return Fill("GetWorkFolder", folder, u"work"_s);
}

const QString& ScriptedPaths::GetLogFolder(QString& folder) {
    return Fill("GetLogFolder", folder, u"log"_s);
}

void ScriptedPaths::GetRichFolder(QString& folder) {
    Fill("GetRichFolder", folder, u"rich"_s);
}

void ScriptedPaths::GetAttachFolder(QString& folder, const QString& key) {
    // A key that isn't the name of one folder has none.
    if (key.isEmpty() || key == u"."_s || key == u".."_s || key.contains(u'/')) {
        folder.clear();
    } else {
        Fill("GetAttachFolder", folder, u"rich/"_s + key);
    }
}

void ScriptedPaths::GetOpenFolder(QString& folder) {
    Fill("GetOpenFolder", folder, u"rich/open"_s);
}

qint32 ScriptedFiles::Write(const QString& uuid, const QString& localPath) const {
    const auto found = stored.find(uuid);
    if (found == stored.end()) {
        return -1;
    }
    if (keepsWhatIsThere) {
        return qint32(found->second.size());
    }
    QFile file(localPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(found->second) != found->second.size()) {
        return -1;
    }
    return qint32(found->second.size());
}

void ScriptedFiles::DownloadFile(KX_DATA::TransferResult& result, const QString& uuid,
                                 const QString& localPath, qint32 kind, bool flag, qint32 value) {
    const bool succeeds = m_script.Call("DownloadFile", {Arg("uuid", uuid), Arg("kind", kind),
                                                         Arg("flag", flag), Arg("value", value)});
    result.success = succeeds && Write(uuid, localPath) >= 0 ? 1 : 0;
    result.message = result.success != 0 ? QString() : u"scripted failure"_s;
}

bool ScriptedFiles::UploadFile(const std::vector<KX_DATA::UploadItem>& items, qint32 count,
                               KX_DATA::UploadResult& result, QString& errorText) {
    const QString path = items.empty() ? QString() : items.front().path;
    QFile file(path);
    if (!m_script.Call("UploadFile", {Arg("path", path), Arg("count", count)}) ||
        items.size() != 1 || count != 1 || !file.open(QIODevice::ReadOnly)) {
        errorText = u"scripted failure"_s;
        return false;
    }
    const QByteArray contents = file.readAll();
    const QByteArray md5 = QCryptographicHash::hash(contents, QCryptographicHash::Md5);
    result = {contents.size(), QString::fromLatin1(md5.toHex()),
              QUuid::createUuid().toString(QUuid::WithoutBraces)};
    stored[result.uuid] = contents;
    return true;
}

void ScriptedFiles::StartDownload(const QString& taskId, const KX_DATA::FileDownloadRecord& record,
                                  qint32 kind) {
    const bool succeeds =
        m_script.Call("StartDownload", {Arg("uuid", record.uuid), Arg("kind", kind),
                                        Arg("server", record.serverText)});
    const qint32 size = succeeds ? Write(record.uuid, record.localPath) : -1;
    const std::lock_guard lock(m_mutex);
    m_tasks[taskId] = size;
}

bool ScriptedFiles::GetDownloadState(const QString& taskId, qint32& state, qint32& bytes) {
    const bool succeeds = m_script.Call("GetDownloadState");
    const std::lock_guard lock(m_mutex);
    const auto found = m_tasks.find(taskId);
    if (!succeeds || found == m_tasks.end()) {
        return false;
    }
    if (looksWhileRunning > 0) {
        --looksWhileRunning;
        state = 0;
        bytes = qMax(found->second, 0) / 2;
        return true;
    }
    state = found->second < 0 ? KX_DATA::kDownloadFailed : KX_DATA::kDownloadFinished;
    bytes = qMax(found->second, 0);
    // Forgotten when its end is read; a failure keeps its text until that is read.
    if (state == KX_DATA::kDownloadFinished) {
        m_tasks.erase(found);
    }
    return true;
}

void ScriptedFiles::GetErrorText(const QString& taskId, QString& text) {
    const bool succeeds = m_script.Call("GetErrorText");
    const std::lock_guard lock(m_mutex);
    text = succeeds && m_tasks.erase(taskId) > 0 ? u"scripted failure"_s : QString();
}

void ScriptedFiles::GetFileSize(const QString& taskId, qint32& size) {
    if (!m_script.Call("GetFileSize")) {
        return;
    }
    const std::lock_guard lock(m_mutex);
    const auto found = m_tasks.find(taskId);
    if (found != m_tasks.end()) {
        size = qMax(found->second, 0);
    }
}

void ScriptedProgressStrip::ShowProgressBar(const QString& text, qint32 value) {
    m_script.Call("Strip.ShowProgressBar", {Text(text), Text(value)});
    isOpen = true;
    texts = {text};
}

void ScriptedProgressStrip::SetShowInfo(const QString& text) {
    m_script.Call("Strip.SetShowInfo", {Text(text)});
    if (isOpen) {
        texts.push_back(text);
    }
}

void ScriptedProgressStrip::CloseProgressBar() {
    m_script.Call("Strip.CloseProgressBar");
    isOpen = false;
}

void ScriptedSoapError::GetLastError(QString& text) {
    if (m_script.Call("GetLastError")) {
        text = lastText;
    }
}

void ScriptedExProgress::Close() {
    m_script.Call("Progress.Close");
}

void ScriptedExProgress::Create(quint64, const QString& name) {
    m_script.Call("Progress.Create", {Text(name)});
}

void ScriptedExProgress::Show() {
    m_script.Call("Progress.Show");
}

void ScriptedExProgress::SetTitle(const QString& title) {
    m_script.Call("Progress.SetTitle", {Text(title)});
}

void ScriptedExProgress::SetRange(qint32 count) {
    m_script.Call("Progress.SetRange", {Text(count)});
}

void ScriptedExProgress::SetPos(qint32 done) {
    m_script.Call("Progress.SetPos", {Text(done)});
}

void ScriptedPicReportCtrl::OutputBimReport(const PIC_REPORT::BimReportRequest* request) {
    m_script.Call("OutputBimReport");
    lastBim = *request;
}

void ScriptedPicReportCtrl::OutputPdfReport(const PIC_REPORT::PdfReportRequest* request) {
    m_script.Call("OutputPdfReport");
    lastPdf = *request;
}

void ScriptedPicReportCtrl::OutputIssueReport(const PIC_REPORT::IssueReportRequest* request) {
    m_script.Call("OutputIssueReport");
    lastIssue = *request;
}

} // namespace support
