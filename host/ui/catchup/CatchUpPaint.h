// How a row of the list looks.
#pragma once

#include <QSize>
#include <QStyledItemDelegate>

namespace host {

class CatchUpModel;

/// Picture on the left, beside it name, place with mark, person with time; the name of an unread
/// one bold with a dot before it. Owned by the dock.
class CatchUpPaint final : public QStyledItemDelegate {
    Q_OBJECT

public:
    CatchUpPaint(CatchUpModel& rows, QObject* parent);

    /// Of a picture in the list, device-independent pixels.
    static constexpr QSize kPicture{72, 54};

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    CatchUpModel& m_model;
};

} // namespace host
