#include "host/drawings/reader/PageReader.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPdfDocumentRenderOptions>

namespace host {

namespace {

/// Of a picture that is asked for, pixels.
constexpr qint64 kMostPixels = 24'000'000;
/// A document may have something before its first line (ISO 32000-1, Annex H, note 13).
constexpr qint64 kHeadBytes = 1024;

DrawingFault FaultOf(QPdfDocument::Error error) {
    switch (error) {
    case QPdfDocument::Error::None:
        return DrawingFault::None;
    case QPdfDocument::Error::FileNotFound:
        return DrawingFault::Missing;
    case QPdfDocument::Error::IncorrectPassword:
    case QPdfDocument::Error::UnsupportedSecurityScheme:
        return DrawingFault::Encrypted;
    default:
        return DrawingFault::Damaged;
    }
}

/// What can be said without understanding the document.
DrawingFault FaultOfFile(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return DrawingFault::Missing;
    }
    if (file.size() > kLargestDrawing) {
        return DrawingFault::FileTooLarge;
    }
    return file.read(kHeadBytes).contains("%PDF-") ? DrawingFault::None : DrawingFault::NotPdf;
}

DrawingFault FaultOfPages(const SheetPages& pages) {
    for (const QSizeF& page : pages) {
        if (!(page.width() >= 1 && page.height() >= 1)) {
            return DrawingFault::Damaged;
        }
        if (page.width() > kLongestSide || page.height() > kLongestSide) {
            return DrawingFault::PageTooLarge;
        }
    }
    return pages.empty() ? DrawingFault::NoPages : DrawingFault::None;
}

} // namespace

ReaderAnswer PageReader::Answer(const ReaderQuestion& question) {
    return question.path.isEmpty() ? Render(question.render) : Open(question.path);
}

ReaderAnswer PageReader::Open(const QString& path) {
    ReaderAnswer answer;
    answer.fault = FaultOfFile(path);
    if (answer.fault == DrawingFault::None) {
        answer.fault = FaultOf(m_document.load(path));
    }
    if (answer.fault == DrawingFault::None && m_document.pageCount() > kMostSheets) {
        answer.fault = DrawingFault::TooManyPages;
    }
    if (answer.fault != DrawingFault::None) {
        return answer;
    }
    for (int page = 0; page < m_document.pageCount(); ++page) {
        answer.pages.push_back(m_document.pagePointSize(page));
    }
    answer.fault = FaultOfPages(answer.pages);
    if (answer.fault != DrawingFault::None) {
        answer.pages.clear();
    }
    return answer;
}

ReaderAnswer PageReader::Render(const RenderRequest& request) {
    const QSize size = request.clip.size();
    const bool makesSense = request.page >= 0 && request.page < m_document.pageCount() &&
                            !request.full.isEmpty() && !size.isEmpty() &&
                            qint64(size.width()) * size.height() <= kMostPixels;
    ReaderAnswer answer;
    if (!makesSense) {
        answer.fault = DrawingFault::Damaged;
        return answer;
    }
    QPdfDocumentRenderOptions options;
    options.setScaledSize(request.full);
    // The library takes the distance from the first to the last pixel for the size, so that parts
    // would be too small by a pixel.
    options.setScaledClipRect(request.clip.adjusted(0, 0, 1, 1));
    answer.image = m_document.render(request.page, size, options);
    if (answer.image.isNull()) {
        answer.fault = DrawingFault::Damaged;
        return answer;
    }
    // Pages have no ground of their own; it goes below what is there, without a second picture.
    QPainter painter(&answer.image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.fillRect(answer.image.rect(), Qt::white);
    painter.end();
    answer.image.convertTo(QImage::Format_RGB32);
    return answer;
}

} // namespace host
