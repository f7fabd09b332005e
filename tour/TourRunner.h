// Runs the steps of a walk one after the other, also while dialogs hold the event loop.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace tour {

/// One thing that a person does, and how one sees that it happened.
struct TourStep {
    QString text;               ///< what is done, printed
    std::function<bool()> act;  ///< false: not possible yet, tried again
    std::function<bool()> seen; ///< true once what was done shows; null: at once
    QString picture;            ///< file name without folder; empty: no picture
    std::function<QWidget*()> pictureOf;
};

/// A step begins when the one before is seen. Steps run from the event loop that is running, so a
/// step may answer the dialog that the step before opened. A step that isn't seen in time ends the
/// walk. Thread: user interface.
class TourRunner final : public QObject {
    Q_OBJECT

public:
    struct Options {
        QString folder;             ///< of the pictures; exists
        int stepTimeoutMs = 60'000; ///< generous: sanitizers and busy machines
    };

    TourRunner(std::vector<TourStep> tourSteps, const Options& tourOptions);

    void Start();
    /// For after the program's event loop, which the last step ended: runs what is left.
    void RunToEnd();
    /// Empty while all steps happened so far.
    [[nodiscard]] const QString& Failure() const { return m_failure; }

signals:
    /// Once. `what` is empty if all steps happened, else it says which one did not.
    void Finished(const QString& what);

private:
    enum class Phase { Act, Acting, See, Settle, Over };

    void Poll();
    void PollLater();
    void TryAct();
    void Look();
    void FinishStep();
    void Fail(const QString& what);
    [[nodiscard]] const TourStep& Step() const { return m_steps[m_at]; }

    std::vector<TourStep> m_steps;
    Options m_options;
    std::size_t m_at = 0;
    Phase m_phase = Phase::Act;
    QElapsedTimer m_sinceStep;
    QString m_failure;
};

} // namespace tour
