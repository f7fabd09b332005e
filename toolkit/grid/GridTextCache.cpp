#include "toolkit/grid/GridTextCache.h"

#include "toolkit/controls/LineText.h"

using namespace Qt::StringLiterals;

namespace toolkit {

QString GridLineText(const QString& text) {
    if (!text.contains(u'\n') && !text.contains(u'\r')) {
        return text;
    }
    return QString(text).replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ').replace(u'\r', u' ');
}

void GridTextCache::SetFont(const QFont& font) {
    if (font == m_font) {
        return;
    }
    m_font = font;
    m_entries.clear();
}

const GridLine& GridTextCache::Line(const QString& whole, int room) {
    const QString text = LineStart(whole);
    constexpr int kMostEntries = 4000;
    auto found = m_entries.find(text);
    if (found == m_entries.end()) {
        if (m_entries.size() >= kMostEntries) {
            m_entries.clear();
        }
        found = m_entries.insert(text, Entry{LayOut(GridLineText(text)), {}, -1});
    }
    Entry& entry = *found;
    if (entry.whole.width <= room) {
        return entry.whole;
    }
    if (entry.elidedRoom != room) {
        const QFontMetrics metrics(m_font);
        entry.elided = LayOut(metrics.elidedText(GridLineText(text), Qt::ElideRight, room));
        entry.elidedRoom = room;
    }
    return entry.elided;
}

GridLine GridTextCache::LayOut(const QString& text) const {
    GridLine line;
    line.text.setText(text);
    line.text.setTextFormat(Qt::PlainText);
    line.text.setPerformanceHint(QStaticText::AggressiveCaching);
    line.text.prepare({}, m_font);
    line.width = qRound(line.text.size().width());
    return line;
}

} // namespace toolkit
