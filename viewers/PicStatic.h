// A control that shows one picture file.
#pragma once

#include <QDateTime>
#include <QImage>
#include <QRect>
#include <QString>
#include <QWidget>

/// The picture fills the control, cropped and undistorted; without one it says so. Knows no record.
/// Thread: user interface. Owned by its parent.
class CPicStatic final : public QWidget {
public:
    explicit CPicStatic(QWidget* parent = nullptr);

    /// Full path; empty: no picture. The owner writes it and repaints.
    QString picPath;
    /// Client area at the last paint.
    [[nodiscard]] const QRect& ClientRect() const { return m_clientRect; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The rendering of the present picture at the present size.
    const QImage& Rendering();

    QRect m_clientRect;
    QImage m_rendering;
    QString m_renderedPath;
    QDateTime m_renderedTime;
};
