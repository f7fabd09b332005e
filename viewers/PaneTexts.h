// What the text blocks beside the viewers' pictures are made of.
#pragma once

#include "toolkit/controls/StaticText.h"

#include <QString>
#include <QWidget>

namespace gallery {

/// A control of a pane, visible and found by its name.
template <class Control> Control* MakeControl(QWidget& pane, const QString& name) {
    auto* control = new Control(&pane);
    control->setObjectName(name);
    control->show();
    return control;
}

/// The field in which a mark's name stands on the mark's colour; no mark yet.
[[nodiscard]] CColorStatic* MakeMarkText(QWidget& pane);
/// Drawn at once. `color` is 0xBBGGRR.
void ShowMark(CColorStatic& field, const QString& name, qint32 color);

/// Caption and value as they stand; the tip is wrapped where it is long, empty: none.
void Say(QLabel& line, const QString& caption, const QString& value, const QString& tip);

} // namespace gallery
