// Files of reports that can't be made whole leave nothing, and what was there before.
#include "host/report/WebReport.h"
#include "host/report/WordReport.h"

#include "tests/host/report/ReportSamples.h"
#include "tests/host/report/WordFile.h"
#include "tests/support/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace reporttest {

namespace {

class ReportFaults : public testing::TestWithParam<Writer> {
protected:
    ReportFaults() {
        QFile old(Path());
        EXPECT_TRUE(old.open(QIODevice::WriteOnly) && old.write("before") == 6);
    }

    [[nodiscard]] QString Path() const { return m_target.filePath(u"报告.bin"_s); }
    [[nodiscard]] QString Pictures() const { return m_pictures.path(); }
    void ExpectAsBefore() const {
        EXPECT_EQ(FilesOf(m_target.path()), QStringList(u"报告.bin"_s));
        QFile old(Path());
        EXPECT_TRUE(old.open(QIODevice::ReadOnly));
        EXPECT_EQ(old.readAll(), QByteArray("before"));
    }

    const QTemporaryDir m_target;
    const QTemporaryDir m_pictures;
};

TEST_P(ReportFaults, CancellingAtAnyStepLeavesWhatWasThere) {
    const host::ReportSheet sheet = SheetFor(IssueReport(Pictures()));
    int steps = 0;
    int total = -1;
    host::ReportSteps counting;
    counting.onStep = [&](int done, int all) {
        EXPECT_LE(done, all);
        ++steps;
        total = done == all ? all : -1;
    };
    ASSERT_EQ(Write(GetParam(), sheet, m_target.filePath(u"other"_s), counting), QString());
    ASSERT_TRUE(QFile::remove(m_target.filePath(u"other"_s)));
    EXPECT_EQ(total, steps - 1); // the first is step 0, the last one says that all is done
    ASSERT_GT(steps, 7);
    for (int last = 0; last < steps - 1; ++last) {
        std::stop_source source;
        host::ReportSteps stopping;
        stopping.stop = source.get_token();
        int told = 0;
        stopping.onStep = [&](int, int) {
            if (told++ == last) {
                source.request_stop();
            }
        };
        EXPECT_EQ(Write(GetParam(), sheet, Path(), stopping), u"cancelled"_s) << last;
        ExpectAsBefore();
    }
}

TEST_P(ReportFaults, CancelledBeforeItBeginsNothingIsWritten) {
    std::stop_source source;
    source.request_stop();
    host::ReportSteps steps;
    steps.stop = source.get_token();
    EXPECT_EQ(Write(GetParam(), SheetFor(PhotoReport(Pictures(), 2)), Path(), steps),
              u"cancelled"_s);
    ExpectAsBefore();
}

TEST_P(ReportFaults, AFolderThatGoesMeanwhileIsTold) {
    const QString folder = m_target.filePath(u"sub"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    host::ReportSteps steps;
    steps.onStep = [&](int, int) { QDir(folder).removeRecursively(); };
    const QString fault = Write(GetParam(), SheetFor(PhotoReport(Pictures(), 2)),
                                QDir(folder).filePath(u"报告.bin"_s), steps);
    EXPECT_TRUE(fault.startsWith(u"无法保存"_s)) << qPrintable(fault);
    EXPECT_FALSE(QFile::exists(folder));
    ExpectAsBefore();
}

TEST_P(ReportFaults, AFolderInTheFilesPlaceIsTold) {
    const QString folder = m_target.filePath(u"sub"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString fault = Write(GetParam(), SheetFor({}), folder);
    EXPECT_TRUE(fault.contains(u"这是一个文件夹"_s)) << qPrintable(fault);
    ExpectAsBefore();
}

TEST_P(ReportFaults, AFullDiskIsToldWhereverItEnds) {
    const host::ReportSheet sheet = SheetFor(IssueReport(Pictures()));
    // Pictures stand ready: their temporary folder isn't what is full.
    host::PrintPictures pictures;
    const auto write = [&](const QString& path) {
        host::ReportFile file(path);
        GetParam()(sheet, pictures, file, {});
    };
    const QString whole = m_target.filePath(u"whole"_s);
    write(whole);
    const qint64 size = QFile(whole).size();
    ASSERT_TRUE(QFile::remove(whole));
    ASSERT_GT(size, 20'000);
    constexpr qint64 kPieces = 12;
    for (qint64 piece = 0; piece < kPieces; ++piece) {
        QString fault;
        try {
            const support::FileSizeLimit full(rlim_t(size * piece / kPieces));
            write(Path());
        } catch (const host::ReportFault& caught) {
            fault = caught.Text();
        }
        EXPECT_TRUE(fault.startsWith(u"无法保存"_s)) << piece << qPrintable(fault);
        ExpectAsBefore();
    }
}

TEST_P(ReportFaults, APhotoThatIsReplacedOrGoesMeanwhileDoesNotEndIt) {
    host::ReportContent content = PhotoReport(Pictures(), 6);
    ASSERT_TRUE(QFile::remove(content.sections[0].photos[1].file));
    QFile replaced(content.sections[0].photos[5].file);
    host::ReportSteps steps;
    steps.onStep = [&](int done, int) {
        if (done == 0) {
            EXPECT_TRUE(replaced.open(QIODevice::WriteOnly));
            replaced.write("not a picture any more");
            replaced.close();
        }
    };
    EXPECT_EQ(Write(GetParam(), SheetFor(content), Path(), steps), QString());
    EXPECT_EQ(FilesOf(m_target.path()), QStringList(u"报告.bin"_s));
    EXPECT_GT(QFile(Path()).size(), 1000);
}

INSTANTIATE_TEST_SUITE_P(Forms, ReportFaults, testing::Values(host::WriteWord, host::WriteWeb),
                         [](const auto& form) {
                             return form.index == 0 ? std::string("Word") : std::string("Web");
                         });

} // namespace

} // namespace reporttest
