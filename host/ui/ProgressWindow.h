// A small window that tells how far a piece of work has come.
#pragma once

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace host {

/// Shows a text, a bar and a count, and lets the person cancel where the work can be cancelled.
/// It doesn't know the work. Comes up kDelayMs after Begin at the first Report, or by its own timer
/// where an event loop runs. Lives on the interface thread, owned by its maker.
class ProgressWindow final : public QDialog {
    Q_OBJECT

public:
    static constexpr int kDelayMs = 500;
    enum class Cancel { kPossible, kImpossible };

    ProgressWindow(QWidget* parent, const QString& title, Cancel cancel);

    /// Starts to count the time. A window that blocks its parent from Begin to End.
    void Begin(int delayMs = kDelayMs);
    void SetText(const QString& text);
    /// `total` 0: unknown, the bar then only moves.
    void Report(int done, int total);
    /// For work that holds the interface thread: lets this window paint and be cancelled. Work that
    /// goes by events must not call it, or its next piece would begin inside this one.
    void LetThrough();
    void End();
    [[nodiscard]] bool IsCancelled() const { return cancelled; }

signals:
    void Cancelled();

protected:
    /// Escape and the window's close button cancel where that is possible, and do nothing else.
    void reject() override;
    void timerEvent(QTimerEvent* event) override;

private:
    void ShowIfDue();

    QLabel* textLabel = nullptr;
    QLabel* countLabel = nullptr;
    QProgressBar* bar = nullptr;
    QPushButton* cancelButton = nullptr;
    QElapsedTimer sinceBegin;
    int delay = kDelayMs;
    int timerId = 0;
    bool cancelled = false;
};

} // namespace host
