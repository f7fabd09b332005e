#include "host/import/ImportJob.h"

#include "tests/host/import/ImportSite.h"
#include "tests/host/import/TestPictures.h"
#include "tests/support/WaitFor.h"

#include <QTimer>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using importtest::ImportSite;
using importtest::Picture;

/// Starts an import of `count` pictures and keeps what the job says.
struct JobRun {
    explicit JobRun(int count) : engine(site.Engine()), job(*engine) {
        for (int index = 0; index < count; ++index) {
            site.Put(u"%1.jpg"_s.arg(index, 2, 10, QChar(u'0')), Picture("jpeg", index));
        }
        QObject::connect(&job, &host::ImportJob::Stepped, &job,
                         [this](const host::ImportStep& step) { steps.push_back(step); });
        QObject::connect(&job, &host::ImportJob::Finished, &job,
                         [this](const host::ImportReport& report) { reports.push_back(report); });
    }
    [[nodiscard]] bool WaitForEnd() {
        return support::WaitFor([this] { return !reports.empty(); });
    }

    ImportSite site;
    std::unique_ptr<site::ISite> engine;
    host::ImportJob job;
    std::vector<host::ImportStep> steps;
    std::vector<host::ImportReport> reports;
};

TEST(ImportJob, FilesEverythingAndSaysSoOnce) {
    JobRun run(5);
    run.site.Put(u"note.txt"_s, "text");
    EXPECT_TRUE(run.job.Start(run.site.Request()));
    EXPECT_TRUE(run.job.IsRunning());
    ASSERT_TRUE(run.WaitForEnd());
    EXPECT_FALSE(run.job.IsRunning());
    support::RunPendingEvents();
    ASSERT_EQ(run.reports.size(), 1);
    EXPECT_EQ(run.reports[0].filed, 5);
    EXPECT_EQ(run.reports[0].refused, 1);
    ASSERT_EQ(run.steps.size(), 6);
    EXPECT_EQ(run.steps.back().done, 6);
    EXPECT_EQ(run.steps.back().total, 6);
    EXPECT_EQ(run.site.Filed().size(), 5);
}

TEST(ImportJob, AnEmptyFolderEndsToo) {
    JobRun run(0);
    run.job.Start(run.site.Request());
    ASSERT_TRUE(run.WaitForEnd());
    EXPECT_EQ(run.reports[0].filed, 0);
}

TEST(ImportJob, OtherEventsComeInBetween) {
    JobRun run(8);
    int others = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer,
                     [&] { others += run.reports.empty() ? 1 : 0; });
    timer.start(0);
    run.job.Start(run.site.Request());
    ASSERT_TRUE(run.WaitForEnd());
    EXPECT_GE(others, 1);
}

TEST(ImportJob, OneAtATime) {
    JobRun run(3);
    EXPECT_TRUE(run.job.Start(run.site.Request()));
    EXPECT_FALSE(run.job.Start(run.site.Request()));
    ASSERT_TRUE(run.WaitForEnd());
    EXPECT_EQ(run.reports[0].filed, 3);
    EXPECT_TRUE(run.job.Start(run.site.Request()));
    ASSERT_TRUE(support::WaitFor([&] { return run.reports.size() == 2; }));
    EXPECT_EQ(run.reports[1].duplicates, 3);
}

TEST(ImportJob, WhatIsKnownAlreadyDoesntHoldItUp) {
    JobRun run(9);
    // Every other one is new, so that known ones wait behind such as are being decoded.
    host::ImportRequest half = run.site.Request();
    half.roots.clear();
    for (int index = 0; index < 9; index += 2) {
        half.roots.append(run.site.Pictures() + u"/0%1.jpg"_s.arg(index));
    }
    run.job.Start(half);
    ASSERT_TRUE(run.WaitForEnd());
    run.job.Start(run.site.Request());
    ASSERT_TRUE(support::WaitFor([&] { return run.reports.size() == 2; }));
    EXPECT_EQ(run.reports[1].filed, 4);
    EXPECT_EQ(run.reports[1].duplicates, 5);
}

TEST(ImportJob, CancelledFromItsOwnSignalItKeepsWhatWasFiled) {
    JobRun run(10);
    QObject::connect(&run.job, &host::ImportJob::Stepped, &run.job,
                     [&](const host::ImportStep& step) {
                         if (step.done == 3) {
                             run.job.Cancel();
                         }
                     });
    run.job.Start(run.site.Request());
    ASSERT_TRUE(run.WaitForEnd());
    EXPECT_TRUE(run.reports[0].cancelled);
    EXPECT_EQ(run.reports[0].filed, 3);
    support::RunPendingEvents();
    EXPECT_EQ(run.steps.size(), 3);
    EXPECT_EQ(run.site.Filed().size(), 3);
}

TEST(ImportJob, MayBeDestroyedWhileItRuns) {
    ImportSite site;
    for (int index = 0; index < 6; ++index) {
        site.Put(u"%1.jpg"_s.arg(index), Picture("jpeg", index));
    }
    {
        const auto engine = site.Engine();
        host::ImportJob job(*engine);
        int seen = 0;
        QObject::connect(&job, &host::ImportJob::Stepped, &job, [&] { ++seen; });
        job.Start(site.Request());
        ASSERT_TRUE(support::WaitFor([&] { return seen >= 1; }));
    }
    support::RunPendingEvents();
    EXPECT_GE(site.Filed().size(), 1);
    EXPECT_EQ(site.StoredFiles(), static_cast<int>(site.Filed().size()));
}

} // namespace
