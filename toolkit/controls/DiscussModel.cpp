#include "toolkit/controls/DiscussModel.h"

#include "toolkit/Look.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kSide = 6;     ///< left and right of the text
constexpr int kMargin = 4;   ///< above the text and below the time
constexpr int kTimeLeap = 2; ///< between text and time
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
    endInsertRows();
}

void DiscussModel::Clear() {
    beginResetModel();
    m_rows.clear();
    m_heights.clear();
    endResetModel();
}

void DiscussModel::Remove(int row) {
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    m_heights.erase(m_heights.begin() + row);
    endRemoveRows();
}

void DiscussModel::SetShape(int width, const QFont& font) {
    m_width = width;
    m_font = font;
    std::fill(m_heights.begin(), m_heights.end(), 0);
}

std::vector<TextPart> DiscussModel::LinesOf(int row) const {
    return BreakLines(m_rows[size_t(row)].text, m_font, std::max(1, m_width - 2 * kSide));
}

QSize DiscussModel::SizeOf(int row) {
    int& height = m_heights[size_t(row)];
    if (height == 0) {
        const int line = QFontMetrics(m_font).lineSpacing();
        height = (int(LinesOf(row).size()) + 1) * line + kTimeLeap + 2 * kMargin;
    }
    return {m_width, height};
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
