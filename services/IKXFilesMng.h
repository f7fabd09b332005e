// Files by uuid: blocking downloads and uploads.
#pragma once

#include "services/EnvRecords.h"

#include <vector>

namespace KX_DATA {

/// Fetches stored files into the cache. Thread: any.
class IKXFilesDownloadMng {
public:
    virtual ~IKXFilesDownloadMng() = default;

    /// Blocks until the file is at `localPath` or has failed; `kind` is 5, `value` 0.
    virtual void DownloadFile(TransferResult& result, const QString& uuid, const QString& localPath,
                              qint32 kind, bool flag, qint32 value) = 0;
};

/// Stores files. Thread: any.
class IKXFilesUploadMng {
public:
    virtual ~IKXFilesUploadMng() = default;

    virtual bool UploadFile(const std::vector<UploadItem>& items, qint32 count,
                            UploadResult& result, QString& errorText) = 0;
};

/// Fetches stored files in the background, by task id. Thread: any.
class IMQFFileDownload {
public:
    virtual ~IMQFFileDownload() = default;

    /// `kind` is 2.
    virtual void StartDownload(const QString& taskId, const FileDownloadRecord& record,
                               qint32 kind) = 0;
    /// False counts as failure; `state`: kDownloadFailed, kDownloadFinished, others running.
    virtual bool GetDownloadState(const QString& taskId, qint32& state, qint32& bytes) = 0;
    virtual void GetErrorText(const QString& taskId, QString& text) = 0;
    /// Fills `size` once it is known.
    virtual void GetFileSize(const QString& taskId, qint32& size) = 0;
};

} // namespace KX_DATA
