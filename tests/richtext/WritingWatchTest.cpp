// When a text that is being written is kept.
#include "richtext/WritingWatch.h"

#include "tests/support/WaitFor.h"

#include <QElapsedTimer>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace {

using richtext::WritingWatch;
using Ms = std::chrono::milliseconds;

/// Lets events run so long.
void WaitFor(Ms time) {
    QElapsedTimer waiting;
    waiting.start();
    EXPECT_TRUE(support::WaitFor([&] { return waiting.elapsed() >= time.count(); }));
}

void WriteFor(Ms time, QTextEdit& sheet, const std::function<bool()>& end) {
    QElapsedTimer writing;
    writing.start();
    while (writing.elapsed() < time.count() && !end()) {
        sheet.insertPlainText(QStringLiteral("a"));
        QCoreApplication::processEvents();
    }
}

} // namespace

TEST(WritingWatch, KeepsOnceAfterARest) {
    int kept = 0;
    QTextEdit sheet;
    WritingWatch watch([&kept] { ++kept; }, {Ms(30), Ms(100000)});
    watch.Watch(sheet);
    sheet.insertPlainText(QStringLiteral("a"));
    EXPECT_EQ(kept, 0);
    EXPECT_TRUE(support::WaitFor([&] { return kept == 1; }));
    WaitFor(Ms(60));
    EXPECT_EQ(kept, 1) << "nothing was written since";
}

TEST(WritingWatch, WhoNeverRestsIsKeptFromTimeToTime) {
    int kept = 0;
    QTextEdit sheet;
    WritingWatch watch([&kept] { ++kept; }, {Ms(200), Ms(400)});
    watch.Watch(sheet);
    WriteFor(Ms(20000), sheet, [&] { return kept >= 2; });
    EXPECT_GE(kept, 2);
}

TEST(WritingWatch, AStoppedOneKeepsNothingUntilMoreIsWritten) {
    int kept = 0;
    QTextEdit sheet;
    WritingWatch watch([&kept] { ++kept; }, {Ms(1), Ms(100000)});
    watch.Watch(sheet);
    sheet.insertPlainText(QStringLiteral("a"));
    watch.Stop();
    WaitFor(Ms(20));
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
            QElapsedTimer work;
            for (work.start(); work.elapsed() < 100;) {
            }
        },
        {Ms(1), Ms(1)});
    watch.Watch(sheet);
    sheet.insertPlainText(QStringLiteral("a"));
    ASSERT_TRUE(support::WaitFor([&] { return kept == 1; }));
    QElapsedTimer since;
    since.start();
    sheet.insertPlainText(QStringLiteral("b"));
    ASSERT_TRUE(support::WaitFor([&] { return kept == 2; }));
    EXPECT_GE(since.elapsed(), 1900) << "a twentieth of the time";
}
