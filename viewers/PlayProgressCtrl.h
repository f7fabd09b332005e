// The flat progress bar of the voice note player.
#pragma once

#include <QWidget>

/// A range and a position in it, clamped. Takes no input. A range of 0 to 0 shows frame and groove.
/// Thread: user interface. Owned by its parent.
class CPlayProgressCtrl final : public QWidget {
public:
    explicit CPlayProgressCtrl(QWidget* parent = nullptr);

    /// An upper end below the lower one counts as the lower one.
    void SetRange(int lower, int upper);
    void SetPos(int pos);
    [[nodiscard]] int GetPos() const { return m_pos; }
    [[nodiscard]] int Lower() const { return m_lower; }
    [[nodiscard]] int Upper() const { return m_upper; }
    /// The bar grows from the bottom instead of from the left.
    void SetVertical(bool vertical);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRect BarRect() const;

    int m_lower = 0;
    int m_upper = 100;
    int m_pos = 0;
    bool m_vertical = false;
};
