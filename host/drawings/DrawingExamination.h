// Looks at a file before it is taken in as a drawing.
#pragma once

#include "host/drawings/DrawingReader.h"

namespace host {

/// Opens the file and renders its first pages, in the reader's process: what crashes or stalls the
/// reader isn't found out when somebody wants to see it. One file. Thread: the one that made it,
/// with an event loop.
class DrawingExamination final : public QObject {
    Q_OBJECT

public:
    explicit DrawingExamination(const DrawingReader::Terms& terms, QObject* parent = nullptr);

    void Start(const QString& path);

signals:
    /// Once. Without a fault the file can be shown; `pages` are its sizes.
    void Finished(host::DrawingFault fault, const host::SheetPages& pages);

private:
    void TryPage(int page);

    DrawingReader m_reader;
    SheetPages m_pages;
};

struct DrawingVerdict {
    DrawingFault fault = DrawingFault::None;
    SheetPages pages;
};

/// The same for a caller who waits, in an event loop of its own.
[[nodiscard]] DrawingVerdict ExamineDrawing(const QString& path,
                                            const DrawingReader::Terms& terms = {});

} // namespace host
