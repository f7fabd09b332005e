// A push button that is an image.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QAbstractButton>
#include <QSize>
#include <QString>

/// Shows one of the client's icons in a round face; its text is its accessible name and tip.
/// Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT CImageButton final : public QAbstractButton {
    Q_OBJECT
public:
    explicit CImageButton(QWidget* parent = nullptr);

    /// @param image  name of an icon (see Icons.h).
    /// @param size   of the button, device-independent pixels.
    void SetButtonImage(const QString& image, const QSize& size);
    [[nodiscard]] const QString& ButtonImage() const { return m_image; }

    [[nodiscard]] QSize sizeHint() const override { return m_size; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    QString m_image;
    QSize m_size{42, 43};
};
