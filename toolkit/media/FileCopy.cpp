#include "toolkit/media/FileCopy.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

std::filesystem::path ToPath(const QString& path) {
    return std::filesystem::path(path.toStdU16String());
}

bool IsSameFile(const QString& first, const QString& second) {
    std::error_code error;
    return std::filesystem::equivalent(ToPath(first), ToPath(second), error) && !error;
}

/// Also a link that leads nowhere takes the name.
bool IsTaken(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

CopyOutcome Move(const QString& from, const QString& target, IfExists ifExists) {
    if (ifExists == IfExists::Replace) {
        std::error_code error;
        std::filesystem::rename(ToPath(from), ToPath(target), error);
        return error ? CopyOutcome::Failed : CopyOutcome::Copied;
    }
    // Refuses a name that was taken meanwhile.
    if (QFile::rename(from, target)) {
        return CopyOutcome::Copied;
    }
    return IsTaken(target) ? CopyOutcome::TargetExists : CopyOutcome::Failed;
}

} // namespace

CopyOutcome CopyFileWhole(const QString& source, const QString& target, IfExists ifExists) {
    if (IsSameFile(source, target)) {
        return CopyOutcome::SameFile;
    }
    if (ifExists == IfExists::Keep && IsTaken(target)) {
        return CopyOutcome::TargetExists;
    }
    const QString temporary = QFileInfo(target).absolutePath() + u"/."_s +
                              QUuid::createUuid().toString(QUuid::Id128) + u".part"_s;
    if (!QFile::copy(source, temporary)) {
        return CopyOutcome::Failed;
    }
    const CopyOutcome outcome = Move(temporary, target, ifExists);
    if (outcome != CopyOutcome::Copied) {
        QFile::remove(temporary);
    }
    return outcome;
}

} // namespace toolkit
