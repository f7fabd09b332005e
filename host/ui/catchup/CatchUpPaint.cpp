#include "host/ui/catchup/CatchUpPaint.h"

#include "host/ui/catchup/CatchUpModel.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/controls/LineText.h"

#include <QApplication>
#include <QPainter>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 2 * toolkit::kStep;
constexpr int kDot = 6;
constexpr int kIcon = 24;
constexpr int kBadge = 20;

/// The picture in the middle of its place, or what stands for it.
void PaintPicture(QPainter& painter, const QRect& place, const QPixmap& picture, bool isIssue) {
    painter.fillRect(place, toolkit::Colors::Pane());
    if (picture.isNull()) {
        QRect middle(0, 0, kIcon, kIcon);
        middle.moveCenter(place.center());
        toolkit::Icon(isIssue ? u"issue"_s : u"photo"_s).paint(&painter, middle);
    } else {
        QRect whole(QPoint(), picture.deviceIndependentSize().toSize());
        whole.moveCenter(place.center());
        painter.drawPixmap(whole, picture);
        if (isIssue) {
            QRect corner(0, 0, kBadge, kBadge);
            corner.moveBottomRight(place.bottomRight());
            painter.fillRect(corner, toolkit::Colors::Pane());
            toolkit::Icon(u"issue"_s).paint(&painter, corner.adjusted(2, 2, -2, -2));
        }
    }
    painter.setPen(toolkit::Colors::Frame());
    painter.drawRect(place.adjusted(0, 0, -1, -1));
}

void PaintLine(QPainter& painter, const QRect& place, const QString& text) {
    painter.drawText(
        place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(toolkit::LineStart(text), Qt::ElideRight, place.width()));
}

QString Joined(const QString& first, const QString& second) {
    return first.isEmpty() || second.isEmpty() ? first + second : first + u"  "_s + second;
}

} // namespace

CatchUpPaint::CatchUpPaint(CatchUpModel& rows, QObject* parent)
    : QStyledItemDelegate(parent), m_model(rows) {}

void CatchUpPaint::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const CatchUpItem& item = m_model.At(index.row());
    painter->save();
    QStyleOptionViewItem ground = option;
    QApplication::style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &ground, painter,
                                         option.widget);
    const QRect row = option.rect.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const QRect picture(QPoint(row.left(), row.top() + (row.height() - kPicture.height()) / 2),
                        kPicture);
    PaintPicture(*painter, picture, m_model.PictureOf(item), item.isIssue);

    QRect line(picture.right() + kMargin, row.top(), row.right() - picture.right() - kMargin,
               row.height() / 3);
    QFont face = option.font;
    if (!item.isRead) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(toolkit::Colors::Accent());
        painter->drawEllipse(line.left(), line.center().y() - kDot / 2 + 1, kDot, kDot);
        face.setBold(true);
    }
    painter->setFont(face);
    painter->setPen(item.isRead ? toolkit::Colors::Text() : toolkit::Colors::TextAccent());
    PaintLine(*painter, line.adjusted(item.isRead ? 0 : kDot + toolkit::kStep, 0, 0, 0), item.name);
    painter->setFont(option.font);
    painter->setPen(toolkit::Colors::Text());
    line.translate(0, line.height());
    PaintLine(*painter, line, Joined(item.place, item.markName));
    painter->setPen(toolkit::Colors::HintText());
    line.translate(0, line.height());
    PaintLine(*painter, line, Joined(item.person, item.time));
    if (option.state.testFlag(QStyle::State_HasFocus) &&
        !option.state.testFlag(QStyle::State_Selected)) {
        // Nothing is chosen yet, and one sees where the keys go.
        painter->setBrush(Qt::NoBrush);
        painter->setPen(toolkit::Colors::Accent());
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

QSize CatchUpPaint::sizeHint(const QStyleOptionViewItem& option,
                             const QModelIndex& /*index*/) const {
    const int lines = 3 * (option.fontMetrics.height() + 2);
    return {kPicture.width() * 3, std::max(lines, kPicture.height()) + 2 * kMargin};
}

} // namespace host
