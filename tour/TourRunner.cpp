#include "tour/TourRunner.h"

#include "tour/TourEyes.h"

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPollMs = 10;

void PrintStep(std::size_t number, std::size_t count, const QString& text) {
    std::printf("[%2zu/%zu] %s\n", number, count, qUtf8Printable(text));
    std::fflush(stdout);
}

} // namespace

TourRunner::TourRunner(std::vector<TourStep> tourSteps, const Options& tourOptions)
    : m_steps(std::move(tourSteps)), m_options(tourOptions) {}

void TourRunner::Start() {
    m_sinceStep.start();
    PollLater();
}

void TourRunner::RunToEnd() {
    while (m_phase != Phase::Over) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void TourRunner::PollLater() {
    // A new timer each time: a repeating one stays silent while a dialog runs inside its handler.
    QTimer::singleShot(kPollMs, this, &TourRunner::Poll);
}

void TourRunner::Poll() {
    if (m_phase == Phase::Over) {
        return;
    }
    if (m_at >= m_steps.size()) {
        m_phase = Phase::Over;
        emit Finished(QString());
        return;
    }
    if (m_sinceStep.elapsed() > m_options.stepTimeoutMs) {
        Fail(m_phase == Phase::Act ? u"无法操作"_s : u"没有看到结果"_s);
        return;
    }
    PollLater();
    if (m_phase == Phase::Act) {
        TryAct();
    } else if (m_phase == Phase::Settle) {
        FinishStep();
    } else {
        Look();
    }
}

void TourRunner::TryAct() {
    m_phase = Phase::Acting;
    const std::size_t acting = m_at;
    const bool done = !Step().act || Step().act();
    // By now a dialog that the act opened may have come and gone, with later steps inside it.
    if (m_at == acting && m_phase == Phase::Acting) {
        m_phase = done ? Phase::See : Phase::Act;
    }
}

void TourRunner::Look() {
    if (!Step().seen || Step().seen()) {
        m_phase = Phase::Settle;
    }
}

void TourRunner::FinishStep() {
    PrintStep(m_at + 1, m_steps.size(), Step().text);
    if (!Step().picture.isEmpty()) {
        QWidget* window = Step().pictureOf ? Step().pictureOf() : QApplication::activeWindow();
        const QString path = QDir(m_options.folder).filePath(Step().picture);
        if (window == nullptr || !SavePicture(window, path)) {
            Fail(u"图片 %1 没有存成"_s.arg(path));
            return;
        }
    }
    ++m_at;
    m_phase = Phase::Act;
    m_sinceStep.restart();
}

void TourRunner::Fail(const QString& what) {
    m_phase = Phase::Over;
    int number = 0;
    const QList<QWidget*> windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->isVisible()) {
            SavePicture(window, QDir(m_options.folder).filePath(u"failed-%1.png"_s.arg(++number)));
        }
    }
    m_failure = u"第 %1 步“%2”：%3"_s.arg(m_at + 1).arg(Step().text, what);
    emit Finished(m_failure);
}

} // namespace tour
