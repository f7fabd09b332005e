// What an import is asked for, and what it did.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace host {

/// Where the pictures go. Everything here is known to exist; see ImportTarget.h.
struct ImportRequest {
    QStringList roots; ///< folders and files
    qint32 ppid = 0;
    QString user;        ///< login name of the uploader
    QString positionKey; ///< empty: without position
    qint32 markId = 0;   ///< 0: none
    /// Not 0: of a drawing; the pictures become drawing photos there, without position and mark of
    /// their own.
    qint32 checkpointId = 0;
};

enum class ImportOutcome {
    Filed,
    Duplicate, ///< a photo of the project has these bytes already
    Refused,   ///< no picture that can be read
    Failed     ///< could not be stored; the import ends here
};

struct ImportLine {
    QString path;
    ImportOutcome outcome = ImportOutcome::Filed;
    QString text;       ///< Chinese, why; for a filed photo its display name
    QString note{};     ///< Chinese, what of a filed file was left out; often empty
    qint32 photoId = 0; ///< of a filed one
};

/// One file is done.
struct ImportStep {
    int done = 0;
    int total = -1; ///< -1 while the folders are still being walked
    ImportLine line;
};

struct ImportReport {
    int filed = 0;
    int duplicates = 0;
    int refused = 0;
    bool cancelled = false;
    QString fault;                 ///< Chinese, what ended the import; empty: nothing did
    std::vector<ImportLine> lines; ///< of all files that weren't filed, or not with all of them
    std::vector<qint32> photoIds;  ///< of what was filed, ascending

    void Add(const ImportLine& line);
    /// One sentence in Chinese: the counts, and how it ended.
    [[nodiscard]] QString Summary() const;
};

} // namespace host
