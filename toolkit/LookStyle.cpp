#include "toolkit/LookStyle.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kCheckBoxSide = 16;

/// Icons of ours for what Qt's own dialogs and controls show.
QString OwnIcon(QStyle::StandardPixmap picture) {
    static const std::map<QStyle::StandardPixmap, QString> names{
        {QStyle::SP_MessageBoxInformation, u"info"_s},
        {QStyle::SP_MessageBoxWarning, u"warning"_s},
        {QStyle::SP_MessageBoxCritical, u"error"_s},
        {QStyle::SP_MessageBoxQuestion, u"question"_s},
        {QStyle::SP_ArrowLeft, u"previous"_s},
        {QStyle::SP_ArrowRight, u"next"_s},
        {QStyle::SP_ArrowBack, u"previous"_s},
        {QStyle::SP_ArrowForward, u"next"_s},
        {QStyle::SP_LineEditClearButton, u"close"_s},
        {QStyle::SP_TitleBarCloseButton, u"close"_s},
        {QStyle::SP_DirIcon, u"folder"_s},
        {QStyle::SP_DirClosedIcon, u"folder"_s},
        {QStyle::SP_DirOpenIcon, u"folder"_s},
    };
    const auto found = names.find(picture);
    return found == names.end() ? QString() : found->second;
}

void DrawCheckBox(const QStyleOption& option, QPainter& painter) {
    QString name = u"checkbox-off"_s;
    if (option.state.testFlag(QStyle::State_NoChange)) {
        name = u"checkbox-mixed"_s;
    } else if (option.state.testFlag(QStyle::State_On)) {
        name = u"checkbox-on"_s;
    }
    QIcon::Mode mode = QIcon::Normal;
    if (!option.state.testFlag(QStyle::State_Enabled)) {
        mode = QIcon::Disabled;
    } else if (option.state.testFlag(QStyle::State_MouseOver)) {
        mode = QIcon::Active;
    }
    QRect area(0, 0, kCheckBoxSide, kCheckBoxSide);
    area.moveCenter(option.rect.center());
    Icon(name).paint(&painter, area, Qt::AlignCenter, mode);
}

void DrawHeaderField(const QStyleOption& option, QPainter& painter) {
    const bool pressed = option.state.testFlag(QStyle::State_Sunken);
    painter.fillRect(option.rect, pressed ? Colors::Hover() : Colors::Header());
    painter.setPen(Colors::Frame());
    painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter.drawLine(option.rect.topRight(), option.rect.bottomRight());
}

void DrawFocusFrame(const QStyleOption& option, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Colors::TextAccent());
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
}

bool HasKeyboard(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_HasFocus) &&
           option.state.testFlag(QStyle::State_Enabled);
}

/// The default button is tinted: Fusion's own mark is too faint for this palette.
QStyleOptionButton ButtonPanel(const QStyleOption& option) {
    QStyleOptionButton panel;
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option)) {
        panel = *button;
    } else {
        panel.QStyleOption::operator=(option);
    }
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    if (enabled && panel.features.testFlag(QStyleOptionButton::DefaultButton)) {
        panel.palette.setColor(QPalette::Button, QColor(0xCF, 0xEA, 0xF7));
    }
    return panel;
}

} // namespace

LookStyle::LookStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        DrawCheckBox(*option, *painter);
        return;
    case PE_FrameFocusRect: {
        // Buttons show it around themselves, lists by the selection.
        const bool isButton = qobject_cast<const QPushButton*>(widget) != nullptr;
        const bool isSelected =
            option->state.testFlag(State_Item) && option->state.testFlag(State_Selected);
        if (!isButton && !isSelected) {
            DrawFocusFrame(*option, *painter);
        }
        return;
    }
    case PE_PanelButtonCommand: {
        const QStyleOptionButton panel = ButtonPanel(*option);
        QProxyStyle::drawPrimitive(element, &panel, painter, widget);
        if (HasKeyboard(*option)) {
            DrawFocusFrame(*option, *painter);
        }
        return;
    }
    case PE_FrameLineEdit:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (HasKeyboard(*option)) {
            DrawFocusFrame(*option, *painter);
        }
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void LookStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    switch (element) {
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
        DrawHeaderField(*option, *painter);
        return;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if ((control == CC_ComboBox || control == CC_SpinBox) && HasKeyboard(*option)) {
        DrawFocusFrame(*option, *painter);
    }
}

QSize LookStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_ItemViewItem) {
        // The same line height in every list.
        constexpr int kLinePadding = 8;
        const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
        if (item != nullptr) {
            result.setHeight(std::max(result.height(), item->fontMetrics.height() + kLinePadding));
        }
    }
    if (type == CT_HeaderSection && option != nullptr) {
        constexpr int kHeaderPadding = 10;
        result.setHeight(std::max(result.height(), option->fontMetrics.height() + kHeaderPadding));
    }
    return result;
}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return kCheckBoxSide;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return 16;
    case PM_ToolBarIconSize:
        return 20;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
    switch (hint) {
    case SH_ComboBox_Popup:
        return 0;
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
    case SH_ItemView_ActivateItemOnSingleClick:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QIcon LookStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                              const QWidget* widget) const {
    const QString name = OwnIcon(picture);
    return name.isEmpty() ? QProxyStyle::standardIcon(picture, option, widget) : Icon(name);
}

} // namespace toolkit
