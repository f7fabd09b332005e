// A balloon that points at a control.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QPointer>
#include <QString>
#include <QWidget>

class QPainterPath;

namespace toolkit {

enum class BalloonKind { Hint, Error };

/// Painted frame with an arrow; goes by itself after 5 seconds, at a click, a key, or with its
/// control and its window. Named "balloonTip" for tests; its text is its accessible name. Plain
/// text only; an error has its icon before it. Never takes the keyboard.
class TOOLKIT_EXPORT BalloonTip final : public QWidget {
    Q_OBJECT
public:
    /// Shows a balloon at `control`, in place of one that is open. Owned by the control's window.
    static BalloonTip* ShowAt(QWidget* control, const QString& text,
                              BalloonKind kind = BalloonKind::Hint);
    /// The open one, or null.
    [[nodiscard]] static BalloonTip* Current();

    [[nodiscard]] const QString& Text() const { return m_text; }
    [[nodiscard]] BalloonKind Kind() const { return m_kind; }
    [[nodiscard]] QWidget* Control() const { return m_control; }
    /// Hides at once; the widget is freed later.
    void Dismiss();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    BalloonTip(QWidget* control, const QString& text, BalloonKind kind);
    void Place();
    void Watch();
    [[nodiscard]] bool IsEnd(const QObject* watched, const QEvent& event) const;
    [[nodiscard]] QRect Body() const;
    /// Where the text begins, from the body's left edge.
    [[nodiscard]] int TextStart() const;
    [[nodiscard]] QPainterPath Outline(qreal inset) const;

    QPointer<QWidget> m_control;
    QString m_text;
    BalloonKind m_kind;
    int m_arrowX = 0; ///< of the point, from the balloon's left edge
    bool m_arrowUp = true;
};

} // namespace toolkit
