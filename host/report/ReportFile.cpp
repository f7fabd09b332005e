#include "host/report/ReportFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStorageInfo>

#include <filesystem>
#include <system_error>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostTries = 100;
constexpr qsizetype kMostWorkName = 40; ///< letters of the final name
/// With less than that a disk counts as full, bytes: the write that failed was no larger.
constexpr qint64 kFullDisk = 1024 * 1024;

/// Through a link to the file that it leads to.
QString TargetOf(const QString& path) {
    const QFileInfo info(path);
    const QString target = info.canonicalFilePath();
    return target.isEmpty() ? info.absoluteFilePath() : target;
}

ReportFault FaultAt(const QString& path, const QString& why) {
    return ReportFault(u"无法保存“%1”：%2。请检查文件夹后重试，或保存到其他位置。"_s.arg(
        QDir::toNativeSeparators(path), why));
}

std::filesystem::path NativePath(const QString& path) {
    return {path.toStdU16String()};
}

bool IsNameTooLong(const QString& path) {
    std::error_code fault;
    (void)std::filesystem::status(NativePath(path), fault);
    return fault == std::errc::filename_too_long;
}

/// The beginning of a name; no half of a character, which no path can have.
QString WorkNameOf(const QString& name) {
    const QString begin = name.left(kMostWorkName);
    return !begin.isEmpty() && begin.back().isHighSurrogate() ? begin.chopped(1) : begin;
}

} // namespace

void ReportSteps::Next(int done, int total) const {
    if (stop.stop_requested()) {
        throw ReportFault({});
    }
    if (onStep) {
        onStep(done, total);
    }
}

ReportFile::ReportFile(const QString& finalPath) : m_finalPath(TargetOf(finalPath)) {
    const QFileInfo target(m_finalPath);
    if (target.isDir()) {
        throw FaultAt(m_finalPath, u"这是一个文件夹"_s);
    }
    if (!target.dir().exists()) {
        throw FaultAt(m_finalPath, u"文件夹已不存在"_s);
    }
    if (target.exists() && !target.isWritable()) {
        throw FaultAt(m_finalPath, u"已有的文件是只读的"_s);
    }
    if (IsNameTooLong(m_finalPath)) {
        throw WriteFault(u"文件名太长"_s);
    }
    for (int tries = 0; tries < kMostTries; ++tries) {
        const auto number = QRandomGenerator::global()->bounded(0x100000);
        QFile file(target.dir().filePath(u"~%1.%2.part"_s.arg(WorkNameOf(target.completeBaseName()))
                                             .arg(number, 5, 16, QLatin1Char('0'))));
        if (file.open(QIODevice::NewOnly | QIODevice::WriteOnly)) {
            m_workPath = file.fileName();
            return;
        }
        if (!file.exists()) {
            throw FaultAt(m_finalPath, u"文件夹不能写入，没有权限或磁盘只读"_s);
        }
    }
    throw FaultAt(m_finalPath, u"文件夹中有太多未完成的文件"_s);
}

ReportFile::~ReportFile() {
    QFile::remove(m_workPath);
    QFile::remove(SecondPath());
}

void ReportFile::Commit(const QString& path) {
    std::error_code fault;
    std::filesystem::rename(NativePath(path), NativePath(m_finalPath), fault);
    if (fault) {
        throw FaultAt(m_finalPath, u"文件可能正被其他程序打开"_s);
    }
}

ReportFault ReportFile::WriteFault(const QString& reason) const {
    const QFileInfo target(m_finalPath);
    const QStorageInfo disk(target.path());
    const bool isFull = disk.isValid() && disk.bytesAvailable() < kFullDisk;
    return FaultAt(m_finalPath, isFull ? u"磁盘已满"_s : reason);
}

} // namespace host
