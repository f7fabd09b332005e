// Projects, marks, files: the small records of the host's environment services.
#pragma once

#include <QString>

#include <string>

namespace KX_DATA {

/// Name and colour of a mark.
struct MarkRecord {
    QString name;
    qint32 color = 0; ///< 0xBBGGRR
};

/// The project that is open.
struct ProjectRecord {
    QString name;
    qint32 ppid = 0;
};

/// One project of the open workset.
struct WorksetProject {
    qint32 ppid = 0;
    QString name;
};

/// Who is signed in; 8-bit text in code page 936.
struct LoginInfo {
    std::string userName;
};

/// How a blocking transfer ended.
struct TransferResult {
    qint32 success = 0; ///< 0: failed
    QString message;
};

/// What an upload became.
struct UploadResult {
    qint64 size = 0;
    QString md5;
    QString uuid;
};

/// A file to upload.
struct UploadItem {
    QString path;
    QString name{};  ///< of the file as its owner calls it; empty: the path's own
    qint32 kind = 0; ///< of a rich text's file
};

/// One background download.
struct FileDownloadRecord {
    QString serverText;
    QString uuid;
    QString localPath;
    QString text1; ///< stays empty, as the two below
    QString text2;
    QString text3;
};

/// States of a background download; anything else: still running.
inline constexpr qint32 kDownloadFailed = 2;
inline constexpr qint32 kDownloadFinished = 3;

} // namespace KX_DATA
