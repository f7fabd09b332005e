// Rich texts that people wrote and that were not saved.
#pragma once

#include "services/IRichTextDrafts.h"

#include <QString>

#include <optional>
#include <vector>

namespace site {

/// How long a draft is kept.
inline constexpr qint64 kDraftSeconds = qint64(30) * 24 * 60 * 60;

/// One text as its author left it.
struct Draft {
    QString id; ///< opaque
    QString person;
    qint64 at = 0; ///< seconds since 1970
    /// What it was to become; its files lie in a folder of the draft, those of the page under their
    /// own names. What was attached and never fetched has a name and no path.
    KX_DATA::RichTextDraft text;
    QString folder; ///< of the page's files, with "/" at its end
};

/// Drafts belong to the machine, not to the site: nobody else sees them, no change is told of them.
/// Those past their time go by themselves. Operations throw DataError. Thread: the site's.
class IDrafts {
public:
    virtual ~IDrafts() = default;

    /// Copies the files. The same page of the same record, kept before, is replaced.
    virtual void Keep(const KX_DATA::RichTextDraft& draft, const QString& person) = 0;
    /// The same for a text that is still being written. It is no draft while this client runs; its
    /// files aren't forced onto the disk, so a power cut may take it. Replaces what was kept open
    /// of the same document.
    virtual void KeepOpen(const KX_DATA::RichTextDraft& draft, const QString& person) = 0;
    /// Nothing if nothing is kept open.
    virtual void DropOpen(const KX_DATA::RichTextKey& key, const QString& docName,
                          const QString& person) = 0;
    /// Makes drafts of what the person's clients that ended badly have kept open; how many.
    virtual int AdoptOpen(const QString& person) = 0;
    /// Without those that are still being written in some client, latest first. What can't be read
    /// is left out, and left alone.
    [[nodiscard]] virtual std::vector<Draft> Of(const QString& person) = 0;
    /// Nothing if it isn't one of the person's, or none any more.
    [[nodiscard]] virtual std::optional<Draft> One(const QString& id, const QString& person) = 0;
    /// Nothing if it isn't there any more.
    virtual void Remove(const QString& id) = 0;
};

} // namespace site
