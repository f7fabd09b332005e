// Drop lists that are filled when they drop down.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QComboBox>

/// A drop list. Reacts to what a person does (activated), never to changes by code; `dropDown`
/// comes before the list shows, so that a handler can fill it.
class TOOLKIT_EXPORT DropCombo : public QComboBox {
    Q_OBJECT
public:
    explicit DropCombo(QWidget* parent = nullptr);

    void showPopup() override;

signals:
    void dropDown();

protected:
    /// What the style draws; a text too long for the box is elided.
    void initStyleOption(QStyleOptionComboBox* option) const override;
    /// The wheel turns a page of whatever lies below, unless the combo has the keyboard.
    void wheelEvent(QWheelEvent* event) override;
};
