#include "host/sheet/SheetJob.h"

#include "sheets/CsvFile.h"
#include "site/DataError.h"
#include "tests/sheets/BookReader.h"
#include "tests/sheets/SheetMaker.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using namespace Qt::StringLiterals;
using sheettest::Book;
using sheettest::CountedRows;
using sheettest::NamesIn;
using sheettest::ReadBook;
using sheettest::ThreeColumns;

/// A job over `a.xlsx`, or `a.csv`, of a folder in which such a file stands before.
struct SheetRun {
    explicit SheetRun(bool isWorkbook = true)
        : name(isWorkbook ? u"a.xlsx"_s : u"a.csv"_s), path(folder.Write(name, "before")) {
        QObject::connect(&job, &host::SheetJob::Stepped, &job,
                         [this](const host::SheetStep& step) { steps.push_back(step); });
        QObject::connect(&job, &host::SheetJob::Finished, &job,
                         [this](const host::SheetResult& result) { results.push_back(result); });
    }
    void Start(std::unique_ptr<sheets::IRowSource> source) {
        std::unique_ptr<sheets::ISheetFile> file;
        if (name.endsWith(u"csv"_s)) {
            file = std::make_unique<sheets::CsvFile>(path);
        } else {
            file = std::make_unique<sheets::XlsxFile>(path, sheets::XlsxOptions());
        }
        job.Start(std::move(source), std::move(file), ThreeColumns());
    }
    [[nodiscard]] bool WaitForEnd() {
        return support::WaitFor([this] { return !results.empty(); });
    }
    void ExpectNothingChanged() const {
        EXPECT_EQ(folder.Read(name), "before");
        EXPECT_EQ(NamesIn(folder.Path()), QStringList{name});
    }

    support::TempFolder folder;
    QString name;
    QString path;
    host::SheetJob job;
    std::vector<host::SheetStep> steps;
    std::vector<host::SheetResult> results;
};

TEST(SheetJob, WritesAllRowsInOrderAndSaysSoOnce) {
    SheetRun run;
    run.Start(std::make_unique<CountedRows>(2'500, 1'000));
    ASSERT_TRUE(run.WaitForEnd());
    support::RunPendingEvents();
    ASSERT_EQ(run.results.size(), 1);
    EXPECT_EQ(run.results[0].fault, QString());
    EXPECT_FALSE(run.results[0].cancelled);
    EXPECT_EQ(run.results[0].notes.rows, 2'500);
    EXPECT_EQ(run.steps.back().written, 2'500);
    EXPECT_EQ(run.steps.back().total, 2'500);
    EXPECT_TRUE(run.steps.back().packing);
    const Book book = ReadBook(run.path);
    ASSERT_EQ(book.sheets[0].rows.size(), 2'501);
    for (size_t row = 1; row <= 2'500; ++row) {
        ASSERT_EQ(book.sheets[0].rows[row][0].text, QString::number(row));
    }
}

TEST(SheetJob, AnEmptyListEndsToo) {
    SheetRun run(false);
    run.Start(std::make_unique<CountedRows>(0, 10));
    ASSERT_TRUE(run.WaitForEnd());
    EXPECT_EQ(run.results[0].notes.rows, 0);
    EXPECT_EQ(run.folder.Read(u"a.csv"_s), "\xEF\xBB\xBF编号,文字,时间\r\n");
}

TEST(SheetJob, ReadsNoMoreThanAFewPortionsAhead) {
    SheetRun run;
    qint64 most = 0;
    run.Start(std::make_unique<CountedRows>(20'000, 100, [&](qint64 given) {
        const qint64 written = run.steps.empty() ? 0 : run.steps.back().written;
        most = std::max(most, given - written);
    }));
    ASSERT_TRUE(run.WaitForEnd());
    EXPECT_EQ(run.results[0].notes.rows, 20'000);
    // What waits, what is being written, and what was read since the last step was told.
    EXPECT_LE(most, 600);
}

TEST(SheetJob, CancelledAtAnyPortionItLeavesWhatWasThere) {
    for (const bool isWorkbook : {true, false}) {
        for (const qint64 at : {0, 100, 500, 900}) {
            SheetRun run(isWorkbook);
            run.Start(std::make_unique<CountedRows>(1'000, 100, [&run, at](qint64 given) {
                if (given == at) {
                    run.job.Cancel();
                }
            }));
            ASSERT_TRUE(run.WaitForEnd());
            EXPECT_TRUE(run.results[0].cancelled);
            EXPECT_EQ(run.results[0].fault, QString());
            run.ExpectNothingChanged();
        }
    }
}

TEST(SheetJob, CancelledWhileTheBookIsPackedItIsThereOrNot) {
    SheetRun run;
    QObject::connect(&run.job, &host::SheetJob::Stepped, &run.job,
                     [&run](const host::SheetStep& step) {
                         if (step.packing) {
                             run.job.Cancel();
                         }
                     });
    run.Start(std::make_unique<CountedRows>(20'000, 1'000));
    ASSERT_TRUE(run.WaitForEnd());
    if (run.results[0].cancelled) {
        run.ExpectNothingChanged();
    } else {
        EXPECT_EQ(ReadBook(run.path).sheets[0].rows.size(), 20'001);
    }
}

TEST(SheetJob, DestroyedWhileItRunsItLeavesWhatWasThere) {
    const support::TempFolder folder;
    folder.Write(u"a.xlsx"_s, "before");
    {
        host::SheetJob job;
        qint64 asked = 0;
        job.Start(
            std::make_unique<CountedRows>(1'000'000, 1'000, [&](qint64) { ++asked; }),
            std::make_unique<sheets::XlsxFile>(folder.Path(u"a.xlsx"_s), sheets::XlsxOptions()),
            ThreeColumns());
        ASSERT_TRUE(support::WaitFor([&asked] { return asked > 5; }));
    }
    EXPECT_EQ(folder.Read(u"a.xlsx"_s), "before");
    EXPECT_EQ(NamesIn(folder.Path()), QStringList{u"a.xlsx"_s});
}

TEST(SheetJob, AListThatCannotBeReadAnyMoreIsToldAndNothingIsLeft) {
    SheetRun run;
    run.Start(std::make_unique<CountedRows>(1'000, 100, [](qint64 given) {
        if (given == 300) {
            throw site::DataError(site::Fault::Refused, u"数据文件夹已断开。"_s);
        }
    }));
    ASSERT_TRUE(run.WaitForEnd());
    EXPECT_FALSE(run.results[0].cancelled);
    EXPECT_EQ(run.results[0].fault, u"无法读取要输出的列表：数据文件夹已断开。没有输出文件。"_s);
    run.ExpectNothingChanged();
}

TEST(SheetJob, AFileThatCannotBeWrittenEndsTheReading) {
    const support::TempFolder folder;
    host::SheetJob job;
    std::vector<host::SheetResult> results;
    QObject::connect(&job, &host::SheetJob::Finished, &job,
                     [&](const host::SheetResult& result) { results.push_back(result); });
    job.Start(std::make_unique<CountedRows>(1'000'000, 10),
              std::make_unique<sheets::CsvFile>(folder.Path(u"gone/a.csv"_s)), ThreeColumns());
    ASSERT_TRUE(support::WaitFor([&results] { return !results.empty(); }));
    EXPECT_TRUE(results[0].fault.contains(u"不存在"_s));
}

} // namespace
