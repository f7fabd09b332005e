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
    : steps(std::move(tourSteps)), options(tourOptions) {}

void TourRunner::Start() {
    sinceStep.start();
    PollLater();
}

void TourRunner::RunToEnd() {
    while (phase != Phase::kOver)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void TourRunner::PollLater() {
    // A new timer each time: a repeating one stays silent while a dialog runs inside its handler.
    QTimer::singleShot(kPollMs, this, &TourRunner::Poll);
}

void TourRunner::Poll() {
    if (phase == Phase::kOver)
        return;
    if (at >= steps.size()) {
        phase = Phase::kOver;
        emit Finished(QString());
        return;
    }
    if (sinceStep.elapsed() > options.stepTimeoutMs) {
        Fail(phase == Phase::kAct ? u"无法操作"_s : u"没有看到结果"_s);
        return;
    }
    PollLater();
    if (phase == Phase::kAct)
        TryAct();
    else if (phase == Phase::kSettle)
        FinishStep();
    else
        Look();
}

void TourRunner::TryAct() {
    phase = Phase::kActing;
    const std::size_t acting = at;
    const bool done = !Step().act || Step().act();
    // By now a dialog that the act opened may have come and gone, with later steps inside it.
    if (at == acting && phase == Phase::kActing)
        phase = done ? Phase::kSee : Phase::kAct;
}

void TourRunner::Look() {
    if (!Step().seen || Step().seen())
        phase = Phase::kSettle;
}

void TourRunner::FinishStep() {
    PrintStep(at + 1, steps.size(), Step().text);
    if (!Step().picture.isEmpty()) {
        QWidget* window = Step().pictureOf ? Step().pictureOf() : QApplication::activeWindow();
        const QString path = QDir(options.folder).filePath(Step().picture);
        if (window == nullptr || !SavePicture(window, path)) {
            Fail(u"图片 %1 没有存成"_s.arg(path));
            return;
        }
    }
    ++at;
    phase = Phase::kAct;
    sinceStep.restart();
}

void TourRunner::Fail(const QString& what) {
    phase = Phase::kOver;
    int number = 0;
    const QList<QWidget*> windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->isVisible())
            SavePicture(window, QDir(options.folder).filePath(u"failed-%1.png"_s.arg(++number)));
    }
    failure = u"第 %1 步“%2”：%3"_s.arg(at + 1).arg(Step().text, what);
    emit Finished(failure);
}

} // namespace tour
