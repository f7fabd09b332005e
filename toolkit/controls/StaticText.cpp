#include "toolkit/controls/StaticText.h"

#include "toolkit/Look.h"
#include "toolkit/controls/LineText.h"

#include <QPainter>
#include <QTextLayout>

namespace {

constexpr int kColorTextMargin = 4;

/// As many lines of a text as a height holds, at least one; the last one with all that is left.
QStringList LinesOf(const QString& text, const QFont& font, const QSize& size) {
    const int most = qMax(1, size.height() / QFontMetrics(font).lineSpacing());
    QTextLayout layout(text, font);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        if (lines.size() == most - 1) {
            lines.append(text.mid(line.textStart()));
            break;
        }
        line.setLineWidth(size.width());
        lines.append(text.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines;
}

} // namespace

CStaticFilespec::CStaticFilespec(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void CStaticFilespec::SetPathShortening(bool shortens) {
    m_elision = shortens ? Qt::ElideMiddle : Qt::ElideRight;
    update();
}

void CStaticFilespec::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    // A line feed would take the rest out of sight.
    const QString line = QString(m_elision == Qt::ElideMiddle ? toolkit::LineEnds(text()) : text())
                             .replace(u'\n', u' ');
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(toolkit::LineStart(line), m_elision, width()));
}

CAutoLineStatic::CAutoLineStatic(QWidget* parent) : CStaticFilespec(parent) {
    SetPathShortening(false);
}

void CAutoLineStatic::paintEvent(QPaintEvent* event) {
    // A place for one line holds it in the middle, like its neighbours.
    if (height() < 2 * fontMetrics().lineSpacing()) {
        CStaticFilespec::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    QString broken = text();
    const QStringList lines = LinesOf(broken.replace(u'\n', QChar::LineSeparator), font(), size());
    int top = 0;
    for (const QString& line : lines) {
        const QRect place(0, top, width(), fontMetrics().height());
        painter.drawText(
            place, Qt::TextSingleLine,
            fontMetrics().elidedText(toolkit::LineStart(line), Qt::ElideRight, width()));
        top += fontMetrics().lineSpacing();
    }
}

CColorStatic::CColorStatic(QWidget* parent)
    : QLabel(parent), m_background(toolkit::Colors::Pane()) {
    setTextFormat(Qt::PlainText);
}

void CColorStatic::SetTxtAlian(int alignment) {
    m_alignment = alignment == kCentredLine ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
    update();
}

void CColorStatic::SetFontColor(const QColor& color) {
    m_fontColor = color;
    update();
}

void CColorStatic::SetBGColor(const QColor& color) {
    m_background = color;
    update();
}

void CColorStatic::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(rect(), m_background);
    painter.setPen(m_fontColor);
    const QRect place = rect().adjusted(kColorTextMargin, 0, -kColorTextMargin, 0);
    painter.drawText(
        place, int(m_alignment) | Qt::TextSingleLine,
        fontMetrics().elidedText(toolkit::LineStart(text()), Qt::ElideRight, place.width()));
}

namespace toolkit {

void PlaceLine(QLabel& line, const QRect& place) {
    const int missing = line.fontMetrics().height() - place.height();
    const int up = missing > 0 ? missing / 2 : 0;
    const int down = missing > 0 ? missing - up : 0;
    line.setGeometry(place.adjusted(0, -up, 0, down));
}

} // namespace toolkit
