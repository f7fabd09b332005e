// Where the window of versions gets records and versions from.
#pragma once

#include "host/ui/rich/PageText.h"

#include <QString>

#include <vector>

namespace host {

/// The record of a place, as it is now.
struct RecordRow {
    QString id; ///< means something to the source only
    qint32 ppid = 0;
    QString place;
    QString state;  ///< of the rectification, ready to be read
    QString person; ///< who saved it last
    qint64 at = 0;  ///< of the last saving, seconds since 1970
    int versions = 0;
};

/// One saving of a record.
struct VersionRow {
    qint64 number = 0; ///< rises with every saving
    QString person;
    QString state;
    qint64 at = 0; ///< seconds since 1970
};

/// A fault is a reason as part of a sentence; empty: all was read.
struct RecordList {
    std::vector<RecordRow> rows;
    QString fault;
};
struct VersionList {
    std::vector<VersionRow> rows; ///< newest first
    QString fault;
};

/// Any call may take its time, show progress and let events run meanwhile; the window that asks may
/// be gone afterwards. It doesn't ask a second time before it has the answer.
/// Thread: user interface.
class IVersionSource {
public:
    virtual ~IVersionSource() = default;

    /// Those of all open projects.
    [[nodiscard]] virtual RecordList ReadRecords() = 0;
    [[nodiscard]] virtual VersionList ReadVersions(const QString& record) = 0;
    [[nodiscard]] virtual PageText ReadText(const QString& record, qint64 version) = 0;
    /// Makes a version the newest one. Empty: done; else a sentence why not, and nothing changed.
    [[nodiscard]] virtual QString Restore(const QString& record, qint64 version) = 0;
};

} // namespace host
