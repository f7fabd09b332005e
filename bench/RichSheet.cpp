#include "bench/RichSheet.h"

#include <QAbstractTextDocumentLayout>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace bench {

namespace {

constexpr int kPaintPatienceMs = 60'000;
constexpr int kIdleLayoutMs = 3'000;

} // namespace

double RichSheet::UntilPainted(const Stopwatch& timer) {
    double painted = -1;
    m_application.watched = Sheet().viewport();
    m_application.onPainted = [&] { painted = painted < 0 ? timer.Milliseconds() : painted; };
    const QDeadlineTimer patience(kPaintPatienceMs);
    while (painted < 0 && !patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
    m_application.onPainted = {};
    if (painted < 0) {
        qFatal("the sheet isn't painted");
    }
    return painted;
}

double RichSheet::MeasureFirstPage(const RichPages& pages) {
    const Stopwatch timer;
    Load(pages);
    return UntilPainted(timer);
}

LoadTimes RichSheet::MeasureLoad(const RichPages& pages) {
    LoadTimes times;
    {
        const Stopwatch timer;
        Load(pages);
        times.call = timer.Milliseconds();
        times.painted = UntilPainted(timer);
        static_cast<void>(Sheet().document()->pageCount());
        times.whole = timer.Milliseconds();
    }
    // Once more, with the rest of the layout left to the idle time.
    Load(pages);
    m_application.longestEvent = 0;
    Settle(kIdleLayoutMs);
    times.longest = std::exchange(m_application.longestEvent, 0);
    return times;
}

void RichSheet::Go(SheetPlace place) {
    QTextDocument& document = *Sheet().document();
    QTextBlock block = document.begin();
    if (place == SheetPlace::Middle) {
        block = document.findBlock(document.characterCount() / 2);
    } else if (place == SheetPlace::End) {
        block = document.lastBlock();
    }
    Sheet().setTextCursor(QTextCursor(block));
    Sheet().ensureCursorVisible();
    Settle(500);
}

double RichSheet::PressKey(QChar letter) {
    const Stopwatch timer;
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
    QCoreApplication::sendEvent(&Sheet(), &press);
    const double painted = UntilPainted(timer);
    QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, letter);
    QCoreApplication::sendEvent(&Sheet(), &release);
    return painted;
}

} // namespace bench
