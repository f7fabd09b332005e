// The versions of a record that have been read, as lines.
#pragma once

#include "host/ui/rich/PageText.h"
#include "toolkit/compare/NoteLines.h"

#include <map>
#include <vector>

namespace host {

/// A version never changes, so it is read once as long as the same record is looked at. Thread:
/// user interface.
class VersionPages final {
public:
    struct Page {
        std::vector<toolkit::NoteLine> lines;
        QString folder; ///< of its pictures, with "/" at its end
    };

    /// Null: not read yet. Stays valid until another record is asked for.
    [[nodiscard]] const Page* Find(const QString& record, qint64 version);
    /// Why the page can't be read, as part of a sentence; empty: it is kept.
    [[nodiscard]] QString Keep(const QString& record, qint64 version, const PageText& text);

private:
    void LookAt(const QString& record);

    QString m_record;
    std::map<qint64, Page> m_pages;
};

} // namespace host
