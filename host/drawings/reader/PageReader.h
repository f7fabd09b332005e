// Reads one PDF document, in the reader's own process.
#pragma once

#include "host/drawings/ReaderFrames.h"

#include <QPdfDocument>

namespace host {

/// What it opens may come from anybody: it can end or stall the process, which holds nothing that
/// anybody would miss. Thread: one.
class PageReader final {
public:
    [[nodiscard]] ReaderAnswer Answer(const ReaderQuestion& question);

private:
    [[nodiscard]] ReaderAnswer Open(const QString& path);
    [[nodiscard]] ReaderAnswer Render(const RenderRequest& request);

    QPdfDocument m_document;
};

} // namespace host
