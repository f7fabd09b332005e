#include "host/data/Transfer.h"

#include "host/data/Database.h"
#include "host/data/FileStore.h"
#include "host/data/Upload.h"
#include "tests/host/data/TempSite.h"

#include <QDir>
#include <QFile>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

class TransferSite : public TempSite {
public:
    TransferSite() {
        QFile file(dir.filePath(u"source"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(600000, 'p'));
        file.close();
        uuid = StoreUpload(folder.Path(), file.fileName()).uuid;
        target = dir.filePath(u"cache/a.jpg"_s);
    }

    [[nodiscard]] TransferOutcome Fetch(const TransferRules& rules = {}) {
        return FetchFile(folder.Path(), uuid, target, rules,
                         [&](qint64 bytes) { steps.push_back(bytes); });
    }
    [[nodiscard]] QStringList Cached() const {
        return QDir(dir.filePath(u"cache"_s)).entryList(QDir::Files);
    }

    QString uuid;
    QString target;
    std::vector<qint64> steps;
};

} // namespace

TEST(Transfer, AFileArrivesWholeAndUnderItsNameAlone) {
    TransferSite site;
    const TransferOutcome outcome = site.Fetch();
    EXPECT_TRUE(outcome.ok) << outcome.text.toStdString();
    EXPECT_EQ(site.Cached(), QStringList{u"a.jpg"_s});
    EXPECT_EQ(QFile(site.target).size(), 600000);
    EXPECT_EQ(site.steps, (std::vector<qint64>{262144, 524288, 600000}));
    EXPECT_EQ(StoredSize(site.folder.Path(), site.uuid), 600000);
}

TEST(Transfer, AFileThatIsThereIsReplacedOnlyByAWholeOne) {
    TransferSite site;
    QDir().mkpath(QFileInfo(site.target).path());
    QFile old(site.target);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    EXPECT_FALSE(site.Fetch({0, true}).ok);
    EXPECT_EQ(QFile(site.target).size(), 3);
    EXPECT_TRUE(site.Fetch().ok);
    EXPECT_EQ(QFile(site.target).size(), 600000);
}

TEST(Transfer, AStoredFileThatHasChangedIsRefused) {
    TransferSite site;
    QFile stored(site.folder.Store().PathOf(site.uuid));
    ASSERT_TRUE(stored.open(QIODevice::ReadWrite));
    stored.write("x");
    stored.close();
    const TransferOutcome outcome = site.Fetch();
    EXPECT_FALSE(outcome.ok);
    EXPECT_TRUE(outcome.text.contains(u"损坏"_s));
    EXPECT_TRUE(site.Cached().isEmpty());
}

TEST(Transfer, AFileMissingFromTheStoreIsToldAsMissing) {
    TransferSite site;
    ASSERT_TRUE(QFile::remove(site.folder.Store().PathOf(site.uuid)));
    const TransferOutcome outcome = site.Fetch();
    EXPECT_FALSE(outcome.ok);
    EXPECT_TRUE(outcome.text.contains(site.uuid));
    EXPECT_EQ(StoredSize(site.folder.Path(), site.uuid), -1);
}

TEST(Transfer, ATextThatIsNoUuidIsRefused) {
    TransferSite site;
    site.uuid = u"../site.db"_s;
    EXPECT_FALSE(site.Fetch().ok);
    EXPECT_TRUE(site.Cached().isEmpty());
}

} // namespace host
