#include "site/transfer/Transfer.h"

#include "site/DataError.h"
#include "site/StoreName.h"
#include "site/blobs/FileSync.h"
#include "site/blobs/FolderLook.h"
#include "site/transfer/FetchedFiles.h"
#include "site/transfer/TransferSteps.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSecondsOfADay = 24 * 3600;
const QString kPartial = u".part"_s;

void Replace(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), error);
    if (error) {
        QFile::remove(from);
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, to));
    }
}

void CopyChecked(const StoredCopy& stored, QFile& source, const QString& partial,
                 TransferSteps& steps) {
    try {
        const CopyOutcome outcome =
            CopySynced(source, partial, [&](qint64 bytes) { return steps.Next(bytes), true; });
        steps.End();
        if (!outcome.ok) {
            const Fault fault = outcome.diskFull ? Fault::DiskFull : Fault::NotWritable;
            throw DataError(fault, FaultText(fault, QFileInfo(partial).path()));
        }
        if (outcome.md5 != stored.md5) {
            throw DataError(Fault::Damaged,
                            u"文件 "_s + stored.uuid + u" 的内容已损坏，请从备份恢复。"_s);
        }
    } catch (const DataError&) {
        QFile::remove(partial);
        throw;
    }
}

} // namespace

void FetchCopy(const StoredCopy& stored, const QString& localPath, const TransferTerms& terms) {
    if (IsWhole(localPath, stored.uuid, stored.md5)) {
        if (terms.onBytes) {
            terms.onBytes(QFileInfo(localPath).size());
        }
        return;
    }
    QFile source(stored.path);
    if (!source.open(QIODevice::ReadOnly)) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, u"文件 "_s + stored.uuid));
    }
    const QString folder = QFileInfo(localPath).path();
    if (!QDir().mkpath(folder)) {
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, folder));
    }
    TransferSteps steps(terms, source.size());
    const QString partial = folder + u'/' + NewStoreName() + kPartial;
    CopyChecked(stored, source, partial, steps);
    Replace(partial, localPath);
    NoteWhole(localPath, stored.uuid);
}

void RemoveLeftovers(const QString& folder) {
    // By the system's clock, which dates files.
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
