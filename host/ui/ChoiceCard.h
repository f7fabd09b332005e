// A large button with a picture, a title and sentences that say what comes of it.
#pragma once

#include <QAbstractButton>

namespace host {

/// Clicked by the mouse, Space and Enter; the arrow keys go to the next one. As high as its
/// sentences need at its width. Lives on the interface thread, owned by its parent widget.
class ChoiceCard final : public QAbstractButton {
    Q_OBJECT

public:
    ChoiceCard(const QString& icon, const QString& title, const QString& sentences,
               QWidget* parent);

    /// That of what is in it: a button's own hint knows nothing of a layout.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace host
