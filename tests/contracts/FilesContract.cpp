// Folders, downloads and uploads.
#include "tests/contracts/Contract.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <set>

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kDownloadFailed;
using KX_DATA::kDownloadFinished;

namespace {

/// One photo of four bytes in the store, and a folder to fetch it to.
template <class Base> class WithFile : public Base {
protected:
    WithFile() {
        this->Photo();
        uuid = this->BimRows()[0].text8;
        local = dir.filePath(u"a.jpg"_s);
    }

    [[nodiscard]] KX_DATA::FileDownloadRecord Wanted() const {
        KX_DATA::FileDownloadRecord record;
        record.uuid = uuid;
        record.localPath = local;
        return record;
    }
    /// The state in which the task ends; 0 if there is no such task.
    [[nodiscard]] qint32 EndOf(const QString& task) {
        qint32 state = 0;
        qint32 bytes = 0;
        const QDeadlineTimer limit(20000);
        while (this->on.background->GetDownloadState(task, state, bytes) &&
               state != kDownloadFailed && state != kDownloadFinished && !limit.hasExpired()) {
            QThread::yieldCurrentThread();
        }
        return state;
    }

    QTemporaryDir dir;
    QString uuid;
    QString local;
};

} // namespace

class Folders : public Contract {};
ON_EVERY_SITE(Folders);

TEST_P(Folders, OfAProjectExistEndWithTheirSeparatorAndAreDifferentOnes) {
    QString pics = u"old"_s;
    QString thumbs;
    QString attachments;
    QString other;
    EXPECT_EQ(&on.paths->GetPicFolder(pics, first, u"一号楼"_s), &pics);
    EXPECT_EQ(&on.paths->GetThumbFolder(thumbs, first, u"一号楼"_s), &thumbs);
    EXPECT_EQ(&on.paths->GetAttachFolder(attachments, first, u"一号楼"_s), &attachments);
    on.paths->GetPicFolder(other, site->second, u"二号楼"_s);
    const std::set<QString> folders{pics, thumbs, attachments, other};
    EXPECT_EQ(folders.size(), 4U);
    for (const QString& folder : folders) {
        EXPECT_TRUE(folder.endsWith(QDir::separator())) << folder.toStdString();
        EXPECT_TRUE(QFileInfo(folder).isDir()) << folder.toStdString();
    }
}

TEST_P(Folders, OfTheClientExistAndEndWithTheirSeparator) {
    QString work;
    QString log;
    QString rich;
    QString open;
    EXPECT_EQ(&on.paths->GetWorkFolder(work), &work);
    EXPECT_EQ(&on.commonPaths->GetLogFolder(log), &log);
    on.richPaths->GetRichFolder(rich);
    on.richPaths->GetOpenFolder(open);
    QString attachments;
    on.richPaths->GetAttachFolder(attachments, u"k1"_s);
    const std::set<QString> folders{work, log, rich, open, attachments};
    EXPECT_EQ(folders.size(), 5U);
    for (const QString& folder : folders) {
        EXPECT_TRUE(folder.endsWith(QDir::separator())) << folder.toStdString();
        EXPECT_TRUE(QFileInfo(folder).isDir()) << folder.toStdString();
    }
}

TEST_P(Folders, AKeyThatIsNoPlainNameHasNone) {
    for (const QString& key : {u"../x"_s, u".."_s, u"a/b"_s, QString()}) {
        QString folder = u"old"_s;
        on.richPaths->GetAttachFolder(folder, key);
        EXPECT_EQ(folder, QString()) << key.toStdString();
    }
}

class Transfers : public WithFile<Contract> {};
ON_EVERY_SITE(Transfers);

TEST_P(Transfers, ADownloadBringsTheFileWhereItIsWanted) {
    KX_DATA::TransferResult result{0, u"old"_s};
    on.downloads->DownloadFile(result, uuid, local, 5, false, 0);
    EXPECT_NE(result.success, 0);
    EXPECT_EQ(result.message, QString());
    EXPECT_EQ(QFileInfo(local).size(), 4);
}

TEST_P(Transfers, AnUnknownFileFailsWithAText) {
    KX_DATA::TransferResult result{1, {}};
    on.downloads->DownloadFile(result, u"00000000-0000-0000-0000-000000000000"_s, local, 5, true,
                               0);
    EXPECT_EQ(result.success, 0);
    EXPECT_FALSE(result.message.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(local));
    result = {1, {}};
    on.downloads->DownloadFile(result, {}, local, 5, true, 0);
    EXPECT_EQ(result.success, 0);
}

TEST_P(Transfers, AnUploadTellsSizeAndSumAndCanBeFetchedAgain) {
    const QString path = dir.filePath(u"new.jpg"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("abc") == 3);
    file.close();
    KX_DATA::UploadResult uploaded;
    QString error;
    ASSERT_TRUE(on.uploads->UploadFile({{path}}, 1, uploaded, error)) << error.toStdString();
    EXPECT_EQ(uploaded.size, 3);
    EXPECT_EQ(uploaded.md5, u"900150983cd24fb0d6963f7d28e17f72"_s);
    EXPECT_EQ(error, QString());
    KX_DATA::TransferResult result;
    on.downloads->DownloadFile(result, uploaded.uuid, local, 5, false, 0);
    EXPECT_NE(result.success, 0);
    EXPECT_EQ(QFileInfo(local).size(), 3);
}

TEST_P(Transfers, AnUploadTakesOneFileThatIsThere) {
    KX_DATA::UploadResult uploaded;
    uploaded.uuid = u"old"_s;
    QString error;
    EXPECT_FALSE(on.uploads->UploadFile({}, 0, uploaded, error));
    EXPECT_FALSE(error.isEmpty());
    error.clear();
    EXPECT_FALSE(on.uploads->UploadFile({{dir.filePath(u"none.jpg"_s)}}, 1, uploaded, error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(uploaded.uuid, u"old"_s);
}

TEST_P(Transfers, ABackgroundDownloadEndsFinishedAndIsForgottenWhenThatIsRead) {
    on.background->StartDownload(u"t1"_s, Wanted(), 2);
    qint32 size = 0;
    const QDeadlineTimer limit(20000);
    while (size == 0 && !limit.hasExpired()) {
        on.background->GetFileSize(u"t1"_s, size);
    }
    EXPECT_EQ(size, 4);
    EXPECT_EQ(EndOf(u"t1"_s), kDownloadFinished);
    EXPECT_EQ(QFileInfo(local).size(), 4);
    qint32 state = kUntouched;
    qint32 bytes = kUntouched;
    EXPECT_FALSE(on.background->GetDownloadState(u"t1"_s, state, bytes));
    EXPECT_EQ(state, kUntouched);
}

TEST_P(Transfers, AnUnknownTaskHasNoStateNoSizeAndNoText) {
    qint32 state = kUntouched;
    qint32 bytes = kUntouched;
    EXPECT_FALSE(on.background->GetDownloadState(u"none"_s, state, bytes));
    EXPECT_EQ(bytes, kUntouched);
    qint32 size = kUntouched;
    on.background->GetFileSize(u"none"_s, size);
    EXPECT_EQ(size, kUntouched);
    QString text = u"old"_s;
    on.background->GetErrorText(u"none"_s, text);
    EXPECT_EQ(text, QString());
}

TEST_P(Transfers, ABackgroundDownloadThatFailsKeepsItsTextUntilItIsRead) {
    site->FailTransfers();
    on.background->StartDownload(u"t2"_s, Wanted(), 2);
    EXPECT_EQ(EndOf(u"t2"_s), kDownloadFailed);
    EXPECT_EQ(EndOf(u"t2"_s), kDownloadFailed);
    QString text;
    on.background->GetErrorText(u"t2"_s, text);
    EXPECT_FALSE(text.isEmpty());
    on.background->GetErrorText(u"t2"_s, text);
    EXPECT_EQ(text, QString());
    EXPECT_FALSE(QFileInfo::exists(local));
}

class FileFailures : public WithFile<FailureContract> {};
WHERE_NOTHING_IS_OPEN(FileFailures);

TEST_P(FileFailures, FoldersAreEmptyTexts) {
    Fail({"GetPicFolder", "GetThumbFolder", "GetAttachFolder", "GetWorkFolder", "GetLogFolder",
          "GetRichFolder", "GetOpenFolder"});
    QString folder = u"old"_s;
    EXPECT_EQ(on.paths->GetPicFolder(folder, first, {}), QString());
    folder = u"old"_s;
    EXPECT_EQ(on.paths->GetThumbFolder(folder, first, {}), QString());
    folder = u"old"_s;
    EXPECT_EQ(on.paths->GetAttachFolder(folder, first, {}), QString());
    folder = u"old"_s;
    EXPECT_EQ(on.paths->GetWorkFolder(folder), QString());
    folder = u"old"_s;
    EXPECT_EQ(on.commonPaths->GetLogFolder(folder), QString());
    folder = u"old"_s;
    on.richPaths->GetRichFolder(folder);
    EXPECT_EQ(folder, QString());
    folder = u"old"_s;
    on.richPaths->GetAttachFolder(folder, u"k1"_s);
    EXPECT_EQ(folder, QString());
    folder = u"old"_s;
    on.richPaths->GetOpenFolder(folder);
    EXPECT_EQ(folder, QString());
}

TEST_P(FileFailures, TransfersTellItWithATextAndLeaveNoFile) {
    Fail({"DownloadFile", "UploadFile", "StartDownload"});
    KX_DATA::TransferResult result{1, {}};
    on.downloads->DownloadFile(result, uuid, local, 5, false, 0);
    EXPECT_EQ(result.success, 0);
    EXPECT_FALSE(result.message.isEmpty());
    KX_DATA::UploadResult uploaded;
    QString error;
    EXPECT_FALSE(on.uploads->UploadFile({{u"/"_s}}, 1, uploaded, error));
    EXPECT_FALSE(error.isEmpty());
    on.background->StartDownload(u"t3"_s, Wanted(), 2);
    EXPECT_EQ(EndOf(u"t3"_s), kDownloadFailed);
    QString text;
    on.background->GetErrorText(u"t3"_s, text);
    EXPECT_FALSE(text.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(local));
}

} // namespace contracts
