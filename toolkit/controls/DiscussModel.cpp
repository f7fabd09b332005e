#include "toolkit/controls/DiscussModel.h"

#include "toolkit/Look.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kSide = 6;     ///< left and right of the text
constexpr int kMargin = 4;   ///< above the text and below the time
constexpr int kTimeLeap = 2; ///< between text and time
/// So many of the newest are measured at once: more than a pane shows. Of the others so many at a
/// time, in a few milliseconds.
constexpr int kAtOnce = 150;
/// Up to here signs are half as wide as Chinese ones, more or less.
constexpr QChar kLastNarrow(0x2E7F);
/// More than a person writes; a text from elsewhere may be megabytes.
constexpr qsizetype kMostSigns = 10'000;

/// A tab is a blank, and a line ends in one way.
QString ShownText(const QString& text) {
    QString shown = text.size() <= kMostSigns ? text : text.left(kMostSigns) + QChar(0x2026);
    shown.replace(u"\r\n"_s, u"\n"_s);
    shown.replace(u'\r', u'\n');
    shown.replace(u'\t', u' ');
    return shown;
}

} // namespace

void DiscussModel::Append(std::vector<DiscussRow> rows) {
    if (rows.empty()) {
        return;
    }
    const int first = int(m_rows.size());
    beginInsertRows({}, first, first + int(rows.size()) - 1);
    for (DiscussRow& row : rows) {
        row.text = ShownText(row.text);
        m_rows.push_back(std::move(row));
    }
    m_heights.resize(m_rows.size(), 0);
    if (int(m_rows.size()) - kAtOnce > first) {
        m_unmeasured = int(m_rows.size()) - kAtOnce;
    }
    endInsertRows();
}

void DiscussModel::Clear() {
    beginResetModel();
    m_rows.clear();
    m_heights.clear();
    m_unmeasured = 0;
    endResetModel();
}

void DiscussModel::Remove(int row) {
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    m_heights.erase(m_heights.begin() + row);
    m_unmeasured -= row < m_unmeasured ? 1 : 0;
    endRemoveRows();
}

void DiscussModel::SetShape(int width, const QFont& font) {
    m_width = width;
    m_font = font;
    const QFontMetrics metrics(font);
    m_signWidth = std::max(1, metrics.horizontalAdvance(u'国'));
    m_lineHeight = metrics.lineSpacing();
    std::fill(m_heights.begin(), m_heights.end(), 0);
    m_unmeasured = std::max(0, int(m_rows.size()) - kAtOnce);
}

std::vector<TextPart> DiscussModel::LinesOf(int row) const {
    return BreakLines(m_rows[size_t(row)].text, m_font, std::max(1, m_width - 2 * kSide));
}

int DiscussModel::HeightOf(int lines) const {
    return (lines + 1) * m_lineHeight + kTimeLeap + 2 * kMargin;
}

/// By the number of signs, without a look at the face.
int DiscussModel::LikelyLines(const QString& text) const {
    const int room = std::max(2, 2 * (m_width - 2 * kSide) / m_signWidth);
    int lines = 1;
    int taken = 0;
    for (const QChar sign : text) {
        const int wide = sign <= kLastNarrow ? 1 : 2;
        const bool isFull = sign == u'\n' || taken + wide > room;
        lines += isFull ? 1 : 0;
        taken = (isFull ? 0 : taken) + (sign == u'\n' ? 0 : wide);
    }
    return lines;
}

QSize DiscussModel::SizeOf(int row) {
    int& height = m_heights[size_t(row)];
    if (height == 0) {
        height = row < m_unmeasured ? -HeightOf(LikelyLines(m_rows[size_t(row)].text))
                                    : HeightOf(int(LinesOf(row).size()));
    }
    return {m_width, std::abs(height)};
}

bool DiscussModel::MeasureSome() {
    const int end = m_unmeasured;
    m_unmeasured = std::max(0, end - kAtOnce);
    for (int row = m_unmeasured; row < end; ++row) {
        if (m_heights[size_t(row)] <= 0) {
            m_heights[size_t(row)] = HeightOf(int(LinesOf(row).size()));
        }
    }
    return m_unmeasured > 0;
}

int DiscussModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant DiscussModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= int(m_rows.size())) {
        return {};
    }
    const DiscussRow& row = m_rows[size_t(index.row())];
    if (role == Qt::DisplayRole) {
        return row.text;
    }
    return role == Qt::AccessibleTextRole ? QVariant(row.text + u"\n"_s + row.time) : QVariant();
}

QSize DiscussDelegate::sizeHint(const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    Q_UNUSED(option);
    return m_rows.SizeOf(index.row());
}

void DiscussDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const DiscussRow& row = m_rows.Rows()[size_t(index.row())];
    painter->save();
    if (option.state.testFlag(QStyle::State_Selected)) {
        painter->fillRect(option.rect, Colors::Selection());
    }
    painter->setPen(Colors::GridLine());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->setFont(m_rows.Font());
    // Who may not delete reads all the same.
    painter->setPen(isEnabled ? Colors::Text() : Colors::HintText());
    const int lineHeight = QFontMetrics(m_rows.Font()).lineSpacing();
    QRect line = option.rect.adjusted(kSide, kMargin, -kSide, 0);
    line.setHeight(lineHeight);
    for (const TextPart& part : m_rows.LinesOf(index.row())) {
        painter->drawText(line, Qt::AlignLeft | Qt::TextSingleLine | Qt::TextDontClip,
                          row.text.mid(part.start, part.length));
        line.translate(0, lineHeight);
    }
    painter->setPen(Colors::HintText());
    painter->drawText(line.translated(0, kTimeLeap), Qt::AlignLeft | Qt::TextSingleLine, row.time);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(Colors::Accent());
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

} // namespace toolkit
