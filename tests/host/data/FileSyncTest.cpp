#include "host/data/FileSync.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#if defined(Q_OS_UNIX)
#include <csignal>
#include <sys/resource.h>

namespace host {
namespace {

/// While it lives, files of this process end at a size, as they do on a full disk.
class FileSizeLimit final {
public:
    explicit FileSizeLimit(rlim_t bytes) : handlerBefore(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handlerBefore);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*handlerBefore)(int);
    rlimit before{};
};

TEST(CopySynced, AFileThatIsCutShortIsAFullDiskAndLeavesNothing) {
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("copy"));
    QBuffer source;
    source.setData(QByteArray(400'000, 'x'));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    CopyOutcome outcome;
    {
        const FileSizeLimit limit(300'000); // in the midst of a block
        outcome = CopySynced(source, target);
    }
    EXPECT_FALSE(outcome.ok);
    EXPECT_TRUE(outcome.diskFull);
    EXPECT_FALSE(QFile::exists(target));
}

} // namespace
} // namespace host
#endif
