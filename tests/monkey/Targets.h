// What there is to aim at, in an order that doesn't depend on addresses.
#pragma once

#include "tests/monkey/Deeds.h"

#include <QList>
#include <QPoint>
#include <QString>

class QWidget;

namespace monkey {

/// All windows in sight, dialogs and popups included; of one name by place.
[[nodiscard]] QList<QWidget*> Windows();
/// Those that a person could do something with.
[[nodiscard]] QList<QWidget*> ReachableWindows();
/// The window that a deed is about: mostly the one in front. Null without one.
[[nodiscard]] QWidget* WindowFor(const Deed& deed);
/// A widget of a window, the window itself among them; null for null.
[[nodiscard]] QWidget* WidgetFor(const Deed& deed, QWidget* window);
/// A place of a widget by the dice 4 and 5: its middle, an edge or anywhere.
[[nodiscard]] QPoint PlaceFor(const Deed& deed, const QWidget& widget);
/// The main window of the client; null while it is out of sight.
[[nodiscard]] QWidget* ClientWindow();
/// "QPushButton 'search' of 'console'".
[[nodiscard]] QString TextOf(const QWidget* widget);

} // namespace monkey
