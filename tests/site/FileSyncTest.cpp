#include "site/blobs/FileSync.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#if defined(Q_OS_UNIX)
#include "tests/support/FileSizeLimit.h"

namespace site {
namespace {

TEST(CopySynced, AFileThatIsCutShortIsAFullDiskAndLeavesNothing) {
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("copy"));
    QBuffer source;
    source.setData(QByteArray(400'000, 'x'));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    CopyOutcome outcome;
    {
        const support::FileSizeLimit limit(300'000); // in the midst of a block
        outcome = CopySynced(source, target);
    }
    EXPECT_FALSE(outcome.ok);
    EXPECT_TRUE(outcome.diskFull);
    EXPECT_FALSE(QFile::exists(target));
}

} // namespace
} // namespace site
#endif
