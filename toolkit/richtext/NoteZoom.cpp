#include "toolkit/richtext/NoteZoom.h"

#include "toolkit/Look.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QScreen>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace toolkit {

namespace {

/// What Qt takes for the density of a document that is laid out for no device.
double UsualDensity() {
    constexpr double kWithoutScreen = 96;
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? kWithoutScreen : screen->logicalDotsPerInchY();
}

} // namespace

int NoteZoom::Density::metric(PaintDeviceMetric which) const {
    switch (which) {
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return dotsPerInch;
    default:
        return QPaintDevice::metric(which);
    }
}

NoteZoom::NoteZoom(QTextDocument& document)
    : QSyntaxHighlighter(static_cast<QObject*>(&document)), m_document(document) {}

void NoteZoom::SetFace(int pixels) {
    const int face = std::clamp(pixels, kLeastFace, kMostFace);
    if (face == m_face && m_document.defaultFont() == UiFont(face)) {
        return;
    }
    m_face = face;
    const bool isUsual = m_face == kUsualFace;
    m_density.dotsPerInch = qRound(UsualDensity() * Factor());
    m_document.documentLayout()->setPaintDevice(isUsual ? nullptr : &m_density);
    // Lays everything out again.
    m_document.setDefaultFont(UiFont(m_face));
    QTextDocument* wanted = isUsual ? nullptr : &m_document;
    if (document() != wanted) {
        setDocument(wanted);
    }
    if (wanted != nullptr) {
        rehighlight();
    }
}

void NoteZoom::highlightBlock(const QString& text) {
    Q_UNUSED(text);
    const QTextBlock block = currentBlock();
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextFragment part = piece.fragment();
        const int pixels = part.charFormat().intProperty(QTextFormat::FontPixelSize);
        if (pixels > 0) {
            QTextCharFormat shown;
            shown.setProperty(QTextFormat::FontPixelSize, std::max(1, qRound(pixels * Factor())));
            setFormat(part.position() - block.position(), part.length(), shown);
        }
    }
}

} // namespace toolkit
