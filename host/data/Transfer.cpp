#include "host/data/Transfer.h"

#include "host/data/DataFolder.h"
#include "host/data/Database.h"
#include "host/data/FileStore.h"
#include "host/data/FileSync.h"
#include "host/data/StoreName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <filesystem>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kReaderTimeoutMs = 5000;

QString StoredMd5(const DataFolder& paths, const QString& uuid) {
    Database reader(paths.DatabasePath(), kReaderTimeoutMs);
    const QVariant md5 = reader.Value(u"SELECT md5 FROM file WHERE uuid = ?"_s, {uuid});
    if (!md5.isValid()) {
        throw DataError(Fault::kMissing, FaultText(Fault::kMissing, u"文件 "_s + uuid));
    }
    return md5.toString();
}

void Replace(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), error);
    if (error) {
        QFile::remove(from);
        throw DataError(Fault::kNotWritable, FaultText(Fault::kNotWritable, to));
    }
}

void Fetch(const QString& dataFolder, const QString& uuid, const QString& localPath,
           const TransferRules& rules, const std::function<void(qint64)>& onBytes) {
    const DataFolder paths(dataFolder);
    const FileStore store(paths.StorePath(), paths.BinPath());
    QFile source(store.PathOf(uuid));
    const QString md5 = StoredMd5(paths, uuid);
    const QString folder = QFileInfo(localPath).path();
    if (!QDir().mkpath(folder) || !source.open(QIODevice::ReadOnly)) {
        throw DataError(Fault::kNotWritable, FaultText(Fault::kNotWritable, folder));
    }
    if (rules.fail) {
        throw DataError(Fault::kOther, u"文件传输中断，请检查网络后重试。"_s);
    }
    const QString partial = folder + u'/' + NewStoreName() + u".part"_s;
    const CopyOutcome outcome = CopySynced(source, partial, [&](qint64 bytes) {
        if (rules.blockDelayMs > 0) {
            QThread::msleep(static_cast<unsigned long>(rules.blockDelayMs));
        }
        if (onBytes) {
            onBytes(bytes);
        }
        return true;
    });
    if (!outcome.ok) {
        const Fault fault = outcome.diskFull ? Fault::kDiskFull : Fault::kNotWritable;
        throw DataError(fault, FaultText(fault, folder));
    }
    if (outcome.md5 != md5) {
        QFile::remove(partial);
        throw DataError(Fault::kDamaged, u"文件 "_s + uuid + u" 的内容已损坏，请从备份恢复。"_s);
    }
    Replace(partial, localPath);
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

TransferOutcome FetchFile(const QString& dataFolder, const QString& uuid, const QString& localPath,
                          const TransferRules& rules, const std::function<void(qint64)>& onBytes) {
    try {
        Fetch(dataFolder, uuid, localPath, rules, onBytes);
    } catch (const DataError& error) {
        return {false, error.Text()};
    }
    return {true, {}};
}

} // namespace host
