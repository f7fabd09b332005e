#include "toolkit/controls/DropCombo.h"

#include "toolkit/windows/StillThere.h"

#include <QAbstractItemView>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

#include <algorithm>

DropCombo::DropCombo(QWidget* parent) : QComboBox(parent) {
    setMaxVisibleItems(20);
    setFocusPolicy(Qt::StrongFocus);
}

void DropCombo::showPopup() {
    const toolkit::StillThere still(this);
    emit dropDown();
    // The handler may have ended the window, or asked something while the box was disabled.
    if (!still || !isVisible() || !isEnabled()) {
        return;
    }
    // The list is as wide as its longest entry, but not wider than half the screen.
    constexpr int kListMargin = 28;
    const int longest = view()->sizeHintForColumn(0) + kListMargin;
    view()->setMinimumWidth(std::min(longest, screen()->availableGeometry().width() / 2));
    QComboBox::showPopup();
}

void DropCombo::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    constexpr int kTextMargins = 2;
    const int icon = option->currentIcon.isNull() ? 0 : option->iconSize.width() + 4;
    option->currentText = fontMetrics().elidedText(option->currentText, Qt::ElideRight,
                                                   field.width() - icon - kTextMargins);
}

void DropCombo::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}
