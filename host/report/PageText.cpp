#include "host/report/PageText.h"

#include <QGuiApplication>
#include <QPainter>
#include <QTextOption>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Of the face, for a line.
constexpr double kLineFactor = 1.5;

struct LookRow {
    TextLook look;
    int pixels; ///< 1/96 inch
    bool isBold;
    QColor ink;
};

constexpr LookRow kLooks[] = {
    {TextLook::Title, 28, true, kHeadInk},      {TextLook::Heading, 18, true, kHeadInk},
    {TextLook::Subheading, 15, true, kHeadInk}, {TextLook::Body, 13, false, kTextInk},
    {TextLook::Strong, 13, true, kTextInk},     {TextLook::Faint, 12, false, kFaintInk},
};

const LookRow& RowOf(TextLook look) {
    return kLooks[static_cast<int>(look)];
}

/// Lines within a text are separate to Qt by its own sign alone.
QString Printable(const QString& text) {
    QString result = text;
    result.replace(u"\r\n"_s, u"\n"_s);
    for (QChar& letter : result) {
        if (letter == u'\n' || letter == u'\r') {
            letter = QChar::LineSeparator;
        } else if (letter.category() == QChar::Other_Control) {
            letter = u' ';
        }
    }
    return result;
}

} // namespace

QFont FontOf(TextLook look) {
    QFont font = QGuiApplication::font();
    // Points would depend on the screen.
    font.setPixelSize(RowOf(look).pixels);
    font.setBold(RowOf(look).isBold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QColor InkOf(TextLook look) {
    return RowOf(look).ink;
}

TextColumn::TextColumn(const QString& text, TextLook textLook, double width)
    : m_layout(std::make_shared<QTextLayout>(Printable(text), FontOf(textLook))), m_look(textLook) {
    QTextOption option;
    option.setUseDesignMetrics(true);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout->setTextOption(option);
    m_layout->setCacheEnabled(true);
    const double lineHeight = RowOf(textLook).pixels * kLineFactor;
    m_layout->beginLayout();
    double top = 0;
    for (QTextLine line = m_layout->createLine(); line.isValid(); line = m_layout->createLine()) {
        line.setLineWidth(std::max(1.0, width));
        line.setPosition({0, top + (lineHeight - line.height()) / 2});
        top += lineHeight;
    }
    m_layout->endLayout();
}

double TextColumn::HeightOf(int first, int end) const {
    return std::max(0, end - first) * RowOf(m_look).pixels * kLineFactor;
}

int TextColumn::EndIn(double height, int first) const {
    const double lineHeight = RowOf(m_look).pixels * kLineFactor;
    const int lines = static_cast<int>(std::max(0.0, height) / lineHeight + 1e-6);
    return std::min(LineCount(), first + lines);
}

double TextColumn::NaturalWidth() const {
    double width = 0;
    for (int line = 0; line < LineCount(); ++line) {
        width = std::max(width, m_layout->lineAt(line).naturalTextWidth());
    }
    return width;
}

void TextColumn::Draw(QPainter& painter, const QPointF& corner, int first, int end) const {
    painter.setPen(InkOf(m_look));
    const QPointF origin = corner - QPointF(0, HeightOf(0, first));
    for (int line = first; line < std::min(end, LineCount()); ++line) {
        m_layout->lineAt(line).draw(&painter, origin);
    }
}

} // namespace host
