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
    enum class Cancel { Possible, Impossible };

    ProgressWindow(QWidget* parent, const QString& title, Cancel cancel);

    /// Starts to count the time. A window that blocks its parent from Begin to End.
    void Begin(int delayMs = kDelayMs);
    void SetText(const QString& text);
    /// `total` 0: unknown, the bar then only moves.
    void Report(int done, int total);
    /// For work that holds the interface thread: lets this window paint and be cancelled. Work that
    /// goes by events must not call it, or its next piece would begin inside this one.
    void LetThrough();
    /// Beside the count, about the piece of work that runs just now; empty: nothing.
    void SetDetail(const QString& detail);
    /// Takes the bar for bytes; `total` 0: unknown.
    void ReportBytes(qint64 done, qint64 total);
    /// The work is over and nobody ended the window: from now on it blocks nothing and can be
    /// closed. One that hasn't come up yet stays away.
    void LetGo();
    void End();
    [[nodiscard]] bool IsCancelled() const { return m_cancelled; }
    /// For a piece of the work that can be cancelled, or no longer can.
    void SetCancel(Cancel cancel);
    /// What becomes of the work, other than that its done part stays.
    void SetCancelTip(const QString& tip);

signals:
    void Cancelled();

protected:
    /// Escape and the window's close button cancel where that is possible, close a window that was
    /// let go, and do nothing else.
    void reject() override;
    void timerEvent(QTimerEvent* event) override;

private:
    void ShowIfDue();
    void StopTime();

    QLabel* m_textLabel = nullptr;
    QLabel* m_countLabel = nullptr;
    QLabel* m_detailLabel = nullptr;
    QProgressBar* m_bar = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QElapsedTimer m_sinceBegin;
    int m_delay = kDelayMs;
    int m_timerId = 0;
    bool m_cancelled = false;
    bool m_letGo = false;
};

/// "1.2 MB / 3.4 MB", or the first alone while the total isn't known.
[[nodiscard]] QString BytesText(qint64 done, qint64 total);

} // namespace host
