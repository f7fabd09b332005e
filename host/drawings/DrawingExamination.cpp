#include "host/drawings/DrawingExamination.h"

#include <QEventLoop>

#include <algorithm>

namespace host {

namespace {

constexpr int kPagesTried = 5;
/// Of the longer side, pixels: large enough that everything on the page is drawn.
constexpr double kTriedSide = 1000;

} // namespace

DrawingExamination::DrawingExamination(const DrawingReader::Terms& terms, QObject* parent)
    : QObject(parent), m_reader(terms) {
    connect(&m_reader, &DrawingReader::Opened, this, [this](const SheetPages& pages) {
        m_pages = pages;
        TryPage(0);
    });
    connect(&m_reader, &DrawingReader::Rendered, this,
            [this](const RenderRequest& request) { TryPage(request.page + 1); });
    connect(&m_reader, &DrawingReader::Failed, this,
            [this](DrawingFault fault) { emit Finished(fault, {}); });
}

void DrawingExamination::Start(const QString& path) {
    m_reader.Open(path);
}

void DrawingExamination::TryPage(int page) {
    if (page >= std::min(kPagesTried, int(m_pages.size()))) {
        emit Finished(DrawingFault::None, m_pages);
        return;
    }
    const QSizeF points = m_pages[size_t(page)];
    const double scale = kTriedSide / std::max(points.width(), points.height());
    const QSize full = (points * scale).toSize().expandedTo(QSize(1, 1));
    m_reader.Render({page, full, QRect(QPoint(), full)});
}

DrawingVerdict ExamineDrawing(const QString& path, const DrawingReader::Terms& terms) {
    DrawingVerdict verdict;
    QEventLoop loop;
    DrawingExamination examination(terms);
    QObject::connect(&examination, &DrawingExamination::Finished, &loop,
                     [&](DrawingFault fault, const SheetPages& pages) {
                         verdict = {fault, pages};
                         loop.quit();
                     });
    // Later: it may know at once that there is no reader.
    QMetaObject::invokeMethod(
        &examination, [&] { examination.Start(path); }, Qt::QueuedConnection);
    loop.exec();
    return verdict;
}

} // namespace host
