#include "host/ui/rich/VersionPages.h"

#include "toolkit/richtext/NoteDocument.h"

namespace host {

void VersionPages::LookAt(const QString& record) {
    if (record != m_record) {
        m_pages.clear();
        m_record = record;
    }
}

const VersionPages::Page* VersionPages::Find(const QString& record, qint64 version) {
    LookAt(record);
    const auto page = m_pages.find(version);
    return page == m_pages.end() ? nullptr : &page->second;
}

QString VersionPages::Keep(const QString& record, qint64 version, const PageText& text) {
    LookAt(record);
    if (!text.isThere) {
        return FaultOf(text);
    }
    const QString folder = PictureFolder(text.folder);
    toolkit::NoteDocument document(folder, nullptr);
    const toolkit::NoteFault fault = document.Load(text.html);
    if (fault == toolkit::NoteFault::None) {
        m_pages[version] = {toolkit::LinesOf(document), folder};
    }
    return FaultText(fault);
}

} // namespace host
