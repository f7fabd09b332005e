// Where the window of drafts gets its drafts from.
#pragma once

#include "host/ui/rich/PageText.h"

#include <QString>

#include <vector>

namespace host {

/// A text that was written and not saved.
struct DraftRow {
    QString id; ///< means something to the source only
    QString place;
    QString state;        ///< of the rectification, ready to be read
    QString summary;      ///< its first words
    qint64 at = 0;        ///< of the last change, seconds since 1970
    qint64 keptUntil = 0; ///< seconds since 1970
    bool isOlder = false; ///< somebody has saved the record since
};

struct DraftList {
    std::vector<DraftRow> rows; ///< latest first
    QString fault;              ///< reason as part of a sentence; empty: all was read
};

/// Any call may take its time, show progress and let events run meanwhile; the window that asks may
/// be gone afterwards. It doesn't ask a second time before it has the answer.
/// Thread: user interface.
class IDraftSource {
public:
    virtual ~IDraftSource() = default;

    [[nodiscard]] virtual DraftList ReadDrafts() = 0;
    [[nodiscard]] virtual PageText ReadText(const QString& draft) = 0;
    /// Makes a draft the newest version of its record. Empty: done; else a sentence why not, and
    /// nothing changed.
    [[nodiscard]] virtual QString BringBack(const QString& draft) = 0;
    /// Empty: done; else a sentence why not, and it is still there.
    [[nodiscard]] virtual QString Remove(const QString& draft) = 0;
};

} // namespace host
