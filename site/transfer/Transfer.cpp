#include "site/transfer/Transfer.h"

#include "site/StoreName.h"
#include "site/blobs/FileStore.h"
#include "site/blobs/FileSync.h"
#include "site/blobs/FolderLook.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/transfer/FetchedFiles.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr int kReaderTimeoutMs = 5000;
constexpr int kSecondsOfADay = 24 * 3600;
const QString kPartial = u".part"_s;

/// Waits, for ever if `milliseconds` is negative. False: told to stop.
bool Pause(int milliseconds, const std::stop_token& stop) {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    const auto isOver = [] { return false; };
    if (milliseconds < 0) {
        never.wait(lock, stop, isOver);
    } else if (milliseconds > 0) {
        never.wait_for(lock, stop, std::chrono::milliseconds(milliseconds), isOver);
    }
    return !stop.stop_requested();
}

[[noreturn]] void ThrowBroken() {
    throw DataError(Fault::Other, u"文件传输中断，请检查网络后重试。"_s);
}

QString StoredMd5(const DataFolder& paths, const QString& uuid) {
    Database reader(paths.DatabasePath(), kReaderTimeoutMs);
    const QVariant md5 = reader.Value(u"SELECT md5 FROM file WHERE uuid = ?"_s, {uuid});
    if (!md5.isValid()) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, u"文件 "_s + uuid));
    }
    return md5.toString();
}

void Replace(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), error);
    if (error) {
        QFile::remove(from);
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, to));
    }
}

/// What happens before a block is written. False: the transfer ends here.
bool PassBlock(const TransferPlace& place, qint64 bytes, qint64 total) {
    const bool half = bytes * 2 >= total;
    if (half && place.rules.fault == TransferFault::InTheMiddle) {
        return false;
    }
    const bool hangs = half && place.rules.fault == TransferFault::NeverEnds;
    return Pause(hangs ? -1 : place.rules.blockDelayMs, place.stop);
}

void CopyChecked(const TransferPlace& place, QFile& source, const QString& partial,
                 const QString& md5, const std::function<void(qint64)>& onBytes) {
    const qint64 total = source.size();
    bool broken = false;
    const CopyOutcome outcome = CopySynced(source, partial, [&](qint64 bytes) {
        broken = !PassBlock(place, bytes, total);
        if (!broken && onBytes) {
            onBytes(bytes);
        }
        return !broken;
    });
    if (place.stop.stop_requested()) {
        QFile::remove(partial);
        throw DataError(Fault::Other, u"文件传输已取消。"_s);
    }
    if (broken) {
        ThrowBroken();
    }
    if (!outcome.ok) {
        const Fault fault = outcome.diskFull ? Fault::DiskFull : Fault::NotWritable;
        throw DataError(fault, FaultText(fault, QFileInfo(partial).path()));
    }
    if (outcome.md5 != md5) {
        QFile::remove(partial);
        throw DataError(Fault::Damaged, u"文件 "_s + QFileInfo(source).fileName() +
                                            u" 的内容已损坏，请从备份恢复。"_s);
    }
}

void Fetch(const TransferPlace& place, const QString& uuid, const QString& localPath,
           const std::function<void(qint64)>& onBytes) {
    const DataFolder paths(place.dataFolder);
    const FileStore store(paths.StorePath(), paths.BinPath());
    QFile source(store.PathOf(uuid));
    const QString md5 = StoredMd5(paths, uuid);
    if (IsWhole(localPath, uuid, md5)) {
        if (onBytes) {
            onBytes(QFileInfo(localPath).size());
        }
        return;
    }
    if (!source.open(QIODevice::ReadOnly)) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, u"文件 "_s + uuid));
    }
    const QString folder = QFileInfo(localPath).path();
    if (!QDir().mkpath(folder)) {
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, folder));
    }
    if (place.rules.fault == TransferFault::AtStart) {
        ThrowBroken();
    }
    const QString partial = folder + u'/' + NewStoreName() + kPartial;
    CopyChecked(place, source, partial, md5, onBytes);
    Replace(partial, localPath);
    NoteWhole(localPath, uuid);
}

} // namespace

qint64 StoredSize(const QString& dataFolder, const QString& uuid) {
    const DataFolder paths(dataFolder);
    try {
        return QFileInfo(FileStore(paths.StorePath(), paths.BinPath()).PathOf(uuid)).size();
    } catch (const DataError&) {
        return -1;
    }
}

TransferOutcome FetchFile(const TransferPlace& place, const QString& uuid, const QString& localPath,
                          const std::function<void(qint64)>& onBytes) {
    if (IsKnownWhole(localPath, uuid)) {
        return {true, {}};
    }
    try {
        Fetch(place, uuid, localPath, onBytes);
    } catch (const DataError& error) {
        return {false, error.Text()};
    }
    return {true, {}};
}

void RemoveLeftovers(const QString& folder) {
    const QDateTime limit = QDateTime::currentDateTime().addSecs(-kSecondsOfADay);
    if (!IsRealFolder(folder)) {
        return;
    }
    QDirIterator files(folder, {u'*' + kPartial}, QDir::Files | QDir::NoSymLinks,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo file(files.next());
        const QString name = file.completeBaseName();
        if (IsGivenName(name) && file.lastModified() < limit) {
            QFile::remove(file.filePath());
        }
    }
}

} // namespace site
