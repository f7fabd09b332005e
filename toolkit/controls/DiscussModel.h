// The comments of a thread, and how high each of them is.
#pragma once

#include "toolkit/controls/DiscussListCtrl.h"
#include "toolkit/controls/LineBreaks.h"

#include <QAbstractListModel>
#include <QFont>
#include <QSize>
#include <QStyledItemDelegate>

namespace toolkit {

/// Texts as they are shown, with their heights at the present width, each measured once: the newest
/// when they are asked for, of thousands the others in portions; until then they have a likely
/// height.
class DiscussModel final : public QAbstractListModel {
    Q_OBJECT
public:
    void Append(std::vector<DiscussRow> rows);
    void Clear();
    /// The row must be there.
    void Remove(int row);
    /// Of a row of comments, and the face; what was measured before is forgotten.
    void SetShape(int width, const QFont& font);

    [[nodiscard]] const std::vector<DiscussRow>& Rows() const { return m_rows; }
    [[nodiscard]] const QFont& Font() const { return m_font; }
    [[nodiscard]] QSize SizeOf(int row);
    /// Measures some more, the newest first. False: no likely height is left.
    [[nodiscard]] bool MeasureSome();
    [[nodiscard]] bool IsMeasured() const { return m_unmeasured == 0; }
    /// The lines of its text.
    [[nodiscard]] std::vector<TextPart> LinesOf(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// The text, and for screen readers the time behind it.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    [[nodiscard]] int HeightOf(int lines) const;
    [[nodiscard]] int LikelyLines(const QString& text) const;

    std::vector<DiscussRow> m_rows;
    std::vector<int> m_heights; ///< 0: not asked for; negative: a likely one
    int m_unmeasured = 0;       ///< so many rows from the first on may have a likely one
    int m_width = 0;
    QFont m_font;
    int m_signWidth = 1; ///< of a Chinese one
    int m_lineHeight = 1;
};

/// Paints one comment. The model outlives it.
class DiscussDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    DiscussDelegate(DiscussModel& rows, QObject* parent)
        : QStyledItemDelegate(parent), m_rows(rows) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

private:
    DiscussModel& m_rows;
};

} // namespace toolkit
