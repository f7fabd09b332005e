#include "services/Factories.h"
#include "services/IKXFilesMng.h"
#include "services/IKXPathMng.h"
#include "site/blobs/FileStore.h"
#include "site/transfer/RunningTransfer.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

/// One photo and the path that it has in the cache.
class FilesSite : public ServiceSite {
public:
    FilesSite() {
        AddPhoto([](site::NewBimPhoto&) {});
        uuid = Photos(Filter())[0].text8;
        GetKXPathMng()->GetPicFolder(local, first, {});
        local += uuid + u".jpg"_s;
    }

    [[nodiscard]] KX_DATA::TransferResult Download() {
        KX_DATA::TransferResult result;
        GetKXFilesDownloadMng()->DownloadFile(result, uuid, local, 5, false, 0);
        return result;
    }

    /// The state in which a background download ends.
    [[nodiscard]] qint32 EndOf(const QString& task) {
        qint32 state = 0;
        qint32 bytes = 0;
        const QDeadlineTimer limit(20000);
        while (GetMQFFileDownLPtr()->GetDownloadState(task, state, bytes) &&
               state != KX_DATA::kDownloadFailed && state != KX_DATA::kDownloadFinished &&
               !limit.hasExpired()) {
            QThread::yieldCurrentThread();
        }
        return state;
    }

    QString uuid;
    QString local;
};

} // namespace

TEST(Download, BringsTheFileIntoTheCache) {
    FilesSite site;
    EXPECT_NE(site.Download().success, 0);
    EXPECT_EQ(QFile(site.local).size(), 4);
    EXPECT_TRUE(site.messages.empty());
}

TEST(Download, AFailureHasATextAndAMessageForThePerson) {
    FilesSite site;
    site.session.Desk()->SetRules({0, site::TransferFault::AtStart});
    const KX_DATA::TransferResult result = site.Download();
    EXPECT_EQ(result.success, 0);
    EXPECT_FALSE(result.message.isEmpty());
    EXPECT_FALSE(QFile::exists(site.local));
    ASSERT_EQ(site.messages.size(), 1u);
    EXPECT_TRUE(site.messages[0].startsWith(u"下载文件失败："_s));
}

TEST(Download, AFileMissingFromTheStoreFailsWithItsName) {
    FilesSite site;
    ASSERT_TRUE(QFile::remove(support::FolderOf(site.session).Store().PathOf(site.uuid)));
    EXPECT_TRUE(site.Download().message.contains(site.uuid));
}

TEST(BackgroundDownload, EndsFinishedWithTheFileInTheCache) {
    FilesSite site;
    KX_DATA::FileDownloadRecord record;
    record.uuid = site.uuid;
    record.localPath = site.local;
    GetMQFFileDownLPtr()->StartDownload(u"t1"_s, record, 2);
    EXPECT_EQ(site.EndOf(u"t1"_s), KX_DATA::kDownloadFinished);
    EXPECT_EQ(QFile(site.local).size(), 4);
    qint32 state = 0;
    qint32 bytes = 0;
    EXPECT_FALSE(GetMQFFileDownLPtr()->GetDownloadState(u"t1"_s, state, bytes));
}

TEST(BackgroundDownload, AFailureKeepsItsTextUntilItIsRead) {
    FilesSite site;
    site.session.Desk()->SetRules({0, site::TransferFault::AtStart});
    KX_DATA::FileDownloadRecord record;
    record.uuid = site.uuid;
    record.localPath = site.local;
    GetMQFFileDownLPtr()->StartDownload(u"t2"_s, record, 2);
    EXPECT_EQ(site.EndOf(u"t2"_s), KX_DATA::kDownloadFailed);
    qint32 size = 0;
    GetMQFFileDownLPtr()->GetFileSize(u"t2"_s, size);
    EXPECT_EQ(size, 4);
    QString text;
    GetMQFFileDownLPtr()->GetErrorText(u"t2"_s, text);
    EXPECT_FALSE(text.isEmpty());
    GetMQFFileDownLPtr()->GetErrorText(u"t2"_s, text);
    EXPECT_TRUE(text.isEmpty());
}

TEST(BackgroundDownload, ManyAtOnceAllArrive) {
    FilesSite site;
    KX_DATA::FileDownloadRecord record;
    record.uuid = site.uuid;
    for (int i = 0; i < 12; ++i) {
        record.localPath = site.local + QString::number(i);
        GetMQFFileDownLPtr()->StartDownload(u"many-%1"_s.arg(i), record, 2);
    }
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(site.EndOf(u"many-%1"_s.arg(i)), KX_DATA::kDownloadFinished);
    }
}

TEST(BackgroundDownload, ClosingTheFolderEndsWhatRuns) {
    for (const site::TransferRules& rules :
         {site::TransferRules{1'000'000}, site::TransferRules{0, site::TransferFault::NeverEnds}}) {
        FilesSite site;
        KX_DATA::FileDownloadRecord record;
        record.uuid = site.uuid;
        record.localPath = site.local;
        site.session.Desk()->SetRules(rules);
        GetMQFFileDownLPtr()->StartDownload(u"last"_s, record, 2);
        site.writer.reset();
        site.session.Close();
        EXPECT_EQ(site.EndOf(u"last"_s), KX_DATA::kDownloadFailed);
        QString text;
        GetMQFFileDownLPtr()->GetErrorText(u"last"_s, text);
        EXPECT_TRUE(text.contains(u"已取消"_s)) << text.toStdString();
        EXPECT_TRUE(QDir(QFileInfo(site.local).path()).isEmpty());
    }
}

TEST(BackgroundDownload, ATaskThatIsStartedAgainEndsTheOneBefore) {
    FilesSite site;
    KX_DATA::FileDownloadRecord record;
    record.uuid = site.uuid;
    record.localPath = site.local + u"-first"_s;
    site.session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    // More than there are threads: each that is left behind would keep one.
    for (int i = 0; i < 20; ++i) {
        GetMQFFileDownLPtr()->StartDownload(u"again"_s, record, 2);
    }
    site.session.Desk()->SetRules({});
    record.localPath = site.local;
    GetMQFFileDownLPtr()->StartDownload(u"again"_s, record, 2);
    EXPECT_EQ(site.EndOf(u"again"_s), KX_DATA::kDownloadFinished) << "not told the others' ends";
    EXPECT_TRUE(QFile::exists(site.local));
    EXPECT_FALSE(QFile::exists(site.local + u"-first"_s));
}

TEST(BackgroundDownload, WithoutASessionATaskFailsAtOnce) {
    KX_DATA::FileDownloadRecord record;
    record.uuid = u"u"_s;
    GetMQFFileDownLPtr()->StartDownload(u"none"_s, record, 2);
    qint32 state = 0;
    qint32 bytes = 0;
    EXPECT_TRUE(GetMQFFileDownLPtr()->GetDownloadState(u"none"_s, state, bytes));
    EXPECT_EQ(state, KX_DATA::kDownloadFailed);
    QString text;
    GetMQFFileDownLPtr()->GetErrorText(u"none"_s, text);
    EXPECT_FALSE(text.isEmpty());
}

TEST(BackgroundDownload, ASessionMayEndWhileOtherThreadsStartTasks) {
    for (int round = 0; round < 10; ++round) {
        auto site = std::make_unique<FilesSite>();
        KX_DATA::FileDownloadRecord record;
        record.uuid = site->uuid;
        record.localPath = site->local;
        std::atomic<int> begun{0};
        const std::jthread other([&] {
            for (int i = 0; i < 20; ++i, ++begun) {
                GetMQFFileDownLPtr()->StartDownload(u"%1-%2"_s.arg(round).arg(i), record, 2);
            }
        });
        while (begun < round) {
            QThread::yieldCurrentThread();
        }
        site->writer.reset();
        site.reset();
    }
}

TEST(Download, OnTheInterfaceThreadThePersonIsKeptInformed) {
    class Recorder final : public site::ITransferWait {
    public:
        void Wait(site::RunningTransfer& transfer) override {
            ++waits;
            transfer.WaitDone();
            total = transfer.Total();
            bytes = transfer.Bytes();
        }
        int waits = 0;
        qint64 total = 0;
        qint64 bytes = 0;
    } recorder;
    FilesSite site;
    site.serving.Around().transferWait = &recorder;
    EXPECT_NE(site.Download().success, 0);
    EXPECT_EQ(recorder.waits, 1);
    EXPECT_EQ(recorder.total, 4);
    EXPECT_EQ(recorder.bytes, 4);
    std::jthread([&] { EXPECT_NE(site.Download().success, 0); }).join();
    EXPECT_EQ(recorder.waits, 1) << "nobody waits at a window";
}

TEST(Download, OneThatNeverEndsIsLeftByACancelAndLeavesNothing) {
    class Impatient final : public site::ITransferWait {
    public:
        void Wait(site::RunningTransfer& transfer) override {
            transfer.Cancel();
            transfer.WaitDone();
        }
    } impatient;
    FilesSite site;
    site.serving.Around().transferWait = &impatient;
    site.session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    const KX_DATA::TransferResult result = site.Download();
    EXPECT_EQ(result.success, 0);
    EXPECT_TRUE(result.message.contains(u"已取消"_s)) << result.message.toStdString();
    EXPECT_FALSE(QFile::exists(site.local));
}

/// Waits, or has enough at once.
class UploadWait final : public site::ITransferWait {
public:
    explicit UploadWait(bool isImpatient) : m_isImpatient(isImpatient) {}
    void Wait(site::RunningTransfer& transfer) override {
        if (m_isImpatient) {
            transfer.Cancel();
        }
        transfer.WaitDone();
        seen = u"%1 of %2"_s.arg(transfer.Bytes()).arg(transfer.Total());
        goesUp = transfer.GetWay() == site::RunningTransfer::Way::Up;
    }

    QString seen;
    bool goesUp = false;

private:
    bool m_isImpatient;
};

TEST(Upload, WhoWaitsAtAWindowIsKeptInformedAndAThreadIsNot) {
    FilesSite site;
    ASSERT_NE(site.Download().success, 0);
    UploadWait wait(false);
    site.serving.Around().transferWait = &wait;
    KX_DATA::UploadResult result;
    QString error;
    EXPECT_TRUE(GetKXFilesUploadMng()->UploadFile({{site.local}}, 1, result, error));
    EXPECT_EQ(wait.seen, u"4 of 4");
    EXPECT_TRUE(wait.goesUp);
    EXPECT_EQ(result.size, 4);
    wait.seen.clear();
    std::jthread([&] {
        EXPECT_TRUE(GetKXFilesUploadMng()->UploadFile({{site.local}}, 1, result, error));
    }).join();
    EXPECT_EQ(wait.seen, QString());
    site.serving.Around().transferWait = nullptr;
}

TEST(Upload, OneThatIsCancelledFailsWithATextAndSoDoesOneOfNoFile) {
    FilesSite site;
    ASSERT_NE(site.Download().success, 0);
    UploadWait impatient(true);
    site.serving.Around().transferWait = &impatient;
    site.session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    KX_DATA::UploadResult result;
    QString error;
    EXPECT_FALSE(GetKXFilesUploadMng()->UploadFile({{site.local}}, 1, result, error));
    EXPECT_TRUE(error.contains(u"已取消"_s)) << error.toStdString();
    UploadWait patient(false);
    site.serving.Around().transferWait = &patient;
    error.clear();
    EXPECT_FALSE(GetKXFilesUploadMng()->UploadFile({{u"/nowhere/x"_s}}, 1, result, error));
    EXPECT_FALSE(error.isEmpty());
    site.serving.Around().transferWait = nullptr;
}

TEST(Download, WithoutASessionItFailsWithAText) {
    KX_DATA::TransferResult result;
    GetKXFilesDownloadMng()->DownloadFile(result, u"u"_s, u"/nowhere/u.jpg"_s, 5, true, 0);
    EXPECT_EQ(result.success, 0);
    EXPECT_FALSE(result.message.isEmpty());
}

namespace {

/// Notes the limits that it is asked with.
class AskedBlobs final : public site::IBlobs {
public:
    site::TransferOutcome Fetch(const QString&, const QString&,
                                const site::TransferTerms& terms) override {
        return Note(terms.limits), site::TransferOutcome{true, {}};
    }
    [[nodiscard]] bool IsFetched(const QString&, const QString&) const override { return false; }
    qint64 SizeOf(const QString&, const site::Limits& limits) override { return Note(limits), 1; }
    KX_DATA::UploadResult Upload(const QString&, const site::TransferTerms& terms) override {
        return Note(terms.limits), KX_DATA::UploadResult{};
    }

    std::atomic<int> asked = 0;
    std::atomic<int> limited = 0;

private:
    void Note(const site::Limits& limits) {
        ++asked;
        limited += limits.deadline == std::chrono::milliseconds(1234) && limits.stop.stop_possible()
                       ? 1
                       : 0;
    }
};

} // namespace

TEST(Limits, WhateverIsAskedForAFileHasADeadlineAndCanBeStopped) {
    AskedBlobs blobs;
    FilesSite site;
    site::ITransferWait* const nobody = nullptr;
    struct : site::ITransferWait {
        void Wait(site::RunningTransfer& transfer) override { transfer.WaitDone(); }
    } patient;
    site.session.Desk()->Open(blobs);
    site.session.Desk()->SetLongestSilence(std::chrono::milliseconds(1234));
    for (site::ITransferWait* const wait : {nobody, static_cast<site::ITransferWait*>(&patient)}) {
        site.serving.Around().transferWait = wait;
        EXPECT_EQ(site.Download().success, 1);
    }
    KX_DATA::UploadResult result;
    QString error;
    EXPECT_TRUE(GetKXFilesUploadMng()->UploadFile({{u"up.jpg"_s}}, 1, result, error));
    GetMQFFileDownLPtr()->StartDownload(u"t7"_s, {}, 2);
    EXPECT_EQ(site.EndOf(u"t7"_s), KX_DATA::kDownloadFinished);
    EXPECT_EQ(blobs.asked, 6) << "three downloads, of two the size, and what was put in";
    EXPECT_EQ(blobs.limited, blobs.asked);
    site.serving.Around().transferWait = nullptr;
    site.session.Desk()->Close();
}

TEST(Download, OneThatTheEndOfTheClientCutsShortIsNotReported) {
    FilesSite site;
    QStringList reports;
    site.session.Desk()->SetMessageSink(
        [&](MessageLevel, const QString& text) { reports << text; });
    site.session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    KX_DATA::TransferResult result;
    std::thread reminders(
        [&] { GetKXFilesDownloadMng()->DownloadFile(result, site.uuid, site.local, 5, false, 0); });
    const QDir folder = QFileInfo(site.local).dir();
    QDeadlineTimer patience(20'000);
    while (folder.isEmpty() && !patience.hasExpired()) {
        QThread::yieldCurrentThread();
    }
    site.writer.reset();
    site.session.Close();
    reminders.join();
    EXPECT_EQ(result.success, 0);
    EXPECT_TRUE(result.message.contains(u"已取消"_s)) << result.message.toStdString();
    EXPECT_TRUE(reports.isEmpty()) << reports.join(u' ').toStdString();
}

TEST(BackgroundDownload, OneThatStandsStillFailsByItself) {
    FilesSite site;
    site.session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    site.session.Desk()->SetLongestSilence(std::chrono::milliseconds(20));
    KX_DATA::FileDownloadRecord record;
    record.uuid = site.uuid;
    record.localPath = site.local;
    GetMQFFileDownLPtr()->StartDownload(u"t8"_s, record, 2);
    EXPECT_EQ(site.EndOf(u"t8"_s), KX_DATA::kDownloadFailed);
    QString text;
    GetMQFFileDownLPtr()->GetErrorText(u"t8"_s, text);
    EXPECT_TRUE(text.contains(u"等待的时间过长"_s)) << text.toStdString();
}

TEST(Upload, StoresOneFileAndTellsWhatItBecame) {
    FilesSite site;
    QFile file(site.dir.filePath(u"up.jpg"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("abc");
    file.close();
    KX_DATA::UploadResult result;
    QString error;
    EXPECT_TRUE(GetKXFilesUploadMng()->UploadFile({{file.fileName()}}, 1, result, error));
    EXPECT_EQ(result.size, 3);
    EXPECT_EQ(result.md5, u"900150983cd24fb0d6963f7d28e17f72"_s);
    EXPECT_TRUE(support::FolderOf(site.session).Store().Has(result.uuid));
    EXPECT_TRUE(site.messages.empty());
    EXPECT_EQ(error, QString());
}

TEST(Upload, AFailureIsToldToThePersonWithItsReason) {
    FilesSite site;
    KX_DATA::UploadResult result;
    QString error;
    EXPECT_FALSE(GetKXFilesUploadMng()->UploadFile({{u"/no/such"_s}}, 1, result, error));
    EXPECT_TRUE(error.contains(u"/no/such"_s)) << error.toStdString();
    ASSERT_EQ(site.messages.size(), 1u);
    EXPECT_EQ(site.messages[0], u"上传文件失败："_s + error);
}

TEST(Upload, NothingOrSeveralAtOnceAreRefusedAndToldToTheCallerAlone) {
    FilesSite site;
    QFile file(site.dir.filePath(u"up.jpg"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const KX_DATA::UploadItem item{file.fileName()};
    KX_DATA::UploadResult result;
    for (const auto& [items, count] : {std::pair<std::vector<KX_DATA::UploadItem>, int>{{}, 0},
                                       {{}, 1},
                                       {{item, item}, 2},
                                       {{item, item}, 1},
                                       {{item}, 2}}) {
        QString error;
        EXPECT_FALSE(GetKXFilesUploadMng()->UploadFile(items, count, result, error));
        EXPECT_EQ(error, u"没有可以上传的文件。"_s);
    }
    EXPECT_TRUE(site.messages.empty());
}

} // namespace host
