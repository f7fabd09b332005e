// When a text that is being written is kept.
#include "richtext/WritingWatch.h"

#include "tests/support/WaitFor.h"

#include <QElapsedTimer>
#include <QTextEdit>
#include <QThread>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

using richtext::WritingWatch;

void WriteFor(std::chrono::milliseconds time, QTextEdit& sheet, const std::function<bool()>& end) {
    QElapsedTimer writing;
    writing.start();
    while (writing.elapsed() < time.count() && !end()) {
        sheet.insertPlainText(QStringLiteral("a"));
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
}

} // namespace

TEST(WritingWatch, KeepsOnceAfterARest) {
    int kept = 0;
    QTextEdit sheet;
    WritingWatch watch([&kept] { ++kept; }, {30ms, 100s});
    watch.Watch(sheet);
    sheet.insertPlainText(QStringLiteral("a"));
    EXPECT_EQ(kept, 0);
    EXPECT_TRUE(support::WaitFor([&] { return kept == 1; }));
    QThread::msleep(60);
    QCoreApplication::processEvents();
    EXPECT_EQ(kept, 1) << "nothing was written since";
}

TEST(WritingWatch, WhoNeverRestsIsKeptFromTimeToTime) {
    int kept = 0;
    QTextEdit sheet;
    WritingWatch watch([&kept] { ++kept; }, {200ms, 400ms});
    watch.Watch(sheet);
    WriteFor(20s, sheet, [&] { return kept >= 2; });
    EXPECT_GE(kept, 2);
}

TEST(WritingWatch, AStoppedOneKeepsNothingUntilMoreIsWritten) {
    int kept = 0;
    QTextEdit sheet;
    WritingWatch watch([&kept] { ++kept; }, {1ms, 100s});
    watch.Watch(sheet);
    sheet.insertPlainText(QStringLiteral("a"));
    watch.Stop();
    QThread::msleep(20);
    QCoreApplication::processEvents();
    EXPECT_EQ(kept, 0);
    sheet.insertPlainText(QStringLiteral("b"));
    EXPECT_TRUE(support::WaitFor([&] { return kept == 1; }));
}

TEST(WritingWatch, KeepingThatTakesLongComesSeldom) {
    int kept = 0;
    QTextEdit sheet;
    WritingWatch watch(
        [&kept] {
            ++kept;
            QThread::msleep(100);
        },
        {1ms, 1ms});
    watch.Watch(sheet);
    sheet.insertPlainText(QStringLiteral("a"));
    ASSERT_TRUE(support::WaitFor([&] { return kept == 1; }));
    QElapsedTimer since;
    since.start();
    sheet.insertPlainText(QStringLiteral("b"));
    ASSERT_TRUE(support::WaitFor([&] { return kept == 2; }));
    EXPECT_GE(since.elapsed(), 1900) << "a twentieth of the time";
}
