// A button that looks like a link.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QAbstractButton>

/// One line of underlined text in the colour of links, centred; pressed by mouse, Space and Enter,
/// with a frame while it has the focus. Its text is its accessible name.
/// Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT UnderLineButton final : public QAbstractButton {
    Q_OBJECT
public:
    explicit UnderLineButton(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void enterEvent(QEnterEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
