#include "site/blobs/FileStore.h"

#include "site/StoreName.h"
#include "site/blobs/FileSync.h"
#include "site/blobs/FolderLook.h"
#include "site/blobs/OwnedLock.h"
#include "site/blobs/SetAside.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace site {

using namespace Qt::StringLiterals;

namespace {

const QString& NotesFolder() {
    static const QString name = u"incoming"_s;
    return name;
}

const QString& LockName() {
    static const QString name = u"lock.pid"_s; // the dot keeps it apart from every uuid
    return name;
}

// The name of a file under its note and its name in the store are one file, so the note costs no
// second copy; where the file system has no links, a note is an empty file.
void LeaveNote(const QString& note, const QString& place) {
    std::error_code error;
    std::filesystem::create_hard_link(note.toStdU16String(), place.toStdU16String(), error);
    if (!error) {
        return;
    }
    if (!QFile::rename(note, place)) {
        QFile::remove(note);
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, u"保存文件"_s), place);
    }
    QFile(note).open(QIODevice::WriteOnly);
}

CopyOutcome CopyToNote(QIODevice& device, const QString& note, const FileStore::OnBlock& onBlock) {
    try {
        return CopySynced(device, note, [&](qint64 bytes) {
            if (onBlock) {
                onBlock(bytes);
            }
            return true;
        });
    } catch (...) {
        QFile::remove(note);
        throw;
    }
}

[[noreturn]] void ThrowUnreadable(const QString& path) {
    if (!QFileInfo::exists(path)) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, path));
    }
    throw DataError(Fault::Refused,
                    path + u"：文件无法读取，请检查权限，或关闭占用它的程序后重试。"_s);
}

} // namespace

FileStore::FileStore(QString storeFolder, QString binFolder)
    : m_store(std::move(storeFolder)), m_bin(std::move(binFolder)) {}

FileStore::~FileStore() {
    if (m_notesLock) {
        m_notesLock->unlock();
        QDir().rmdir(m_notes);
    }
}

QString FileStore::PlaceOf(const QString& uuid) const {
    if (!IsStoreName(uuid)) {
        throw DataError(Fault::BadName, FaultText(Fault::BadName, uuid.left(64)));
    }
    const QString lower = uuid.toLower();
    const QChar second = lower.size() > 1 ? lower[1] : u'0';
    return m_store + u'/' + lower[0] + u'/' + second + u'/' + uuid;
}

QString FileStore::BinPlaceOf(const QString& uuid) const {
    if (!IsStoreName(uuid)) {
        throw DataError(Fault::BadName, FaultText(Fault::BadName, uuid.left(64)));
    }
    return m_bin + u'/' + uuid;
}

QString FileStore::NotePath(const QString& uuid) const {
    return m_notes + u'/' + uuid;
}

void FileStore::TakeNotesFolder() {
    if (m_notesLock) {
        return;
    }
    m_notes = m_store + u'/' + NotesFolder() + u'/' + NewStoreName();
    m_notesLock =
        QDir().mkpath(m_notes) ? std::make_unique<QLockFile>(m_notes + u'/' + LockName()) : nullptr;
    if (m_notesLock) {
        m_notesLock->setStaleLockTime(0);
    }
    if (!m_notesLock || !m_notesLock->tryLock()) {
        m_notesLock.reset();
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, u"保存文件"_s), m_notes);
    }
}

StoredFile FileStore::Put(const FileSource& source, const OnBlock& onBlock) {
    QFile file(source.path);
    QBuffer buffer;
    buffer.setData(source.bytes);
    QIODevice& device = source.path.isEmpty() ? static_cast<QIODevice&>(buffer) : file;
    if (!device.open(QIODevice::ReadOnly)) {
        ThrowUnreadable(source.path);
    }
    TakeNotesFolder();
    StoredFile stored{NewStoreName(), {}, 0};
    const QString note = NotePath(stored.uuid);
    const CopyOutcome outcome = CopyToNote(device, note, onBlock);
    if (!outcome.ok) {
        const Fault fault = outcome.diskFull ? Fault::DiskFull : Fault::NotWritable;
        throw DataError(fault, FaultText(fault, u"保存文件"_s), note);
    }
    stored.md5 = outcome.md5;
    stored.size = outcome.size;
    const QString place = PlaceOf(stored.uuid);
    const QString folder = QFileInfo(place).path();
    if (!MakeFolderSynced(folder)) {
        QFile::remove(note);
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, u"保存文件"_s), place);
    }
    LeaveNote(note, place);
    if (!SyncFolder(folder)) {
        Discard(stored.uuid);
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, u"保存文件"_s), place);
    }
    return stored;
}

void FileStore::Settle(const QString& uuid) {
    QFile::remove(NotePath(uuid));
}

void FileStore::Discard(const QString& uuid) {
    RemoveStored(uuid);
    QFile::remove(NotePath(uuid));
}

void FileStore::Remove(const QString& uuid) {
    if (IsStoreName(uuid)) {
        RemoveStored(uuid);
    }
}

QString FileStore::PathOf(const QString& uuid) const {
    // A file on its way into the bin or out of it, seen by another process, is still the file.
    for (const QString& place : {PlaceOf(uuid), BinPlaceOf(uuid)}) {
        if (QFileInfo(place).isFile()) {
            return place;
        }
    }
    throw DataError(Fault::Missing,
                    u"文件 "_s + uuid + u" 不在文件库中，可能已丢失，请从备份恢复。"_s);
}

bool FileStore::Has(const QString& uuid) const {
    return IsStoreName(uuid) && QFileInfo(PlaceOf(uuid)).isFile();
}

void FileStore::Tell(const QString& text) const {
    if (m_told) {
        m_told(text);
    }
}

void FileStore::Move(const QString& uuid, const QString& from, const QString& to) {
    if (!IsRealFile(from)) {
        return;
    }
    const QString folder = QFileInfo(to).path();
    // Another process may have been quicker: then the source is gone.
    if (!MakeFolderSynced(folder) || (!QFile::rename(from, to) && IsThere(from))) {
        Tell(
            u"文件 %1 未能从 %2 移到 %3，下次打开数据文件夹时会再试；请检查磁盘空间和文件夹权限。"_s
                .arg(uuid, QDir::toNativeSeparators(QFileInfo(from).path()),
                     QDir::toNativeSeparators(folder)));
        return;
    }
    SyncFolder(folder);
}

void FileStore::MoveToBin(const QString& uuid) {
    if (IsStoreName(uuid)) {
        Move(uuid, PlaceOf(uuid), BinPlaceOf(uuid));
    }
}

void FileStore::MoveFromBin(const QString& uuid) {
    if (IsStoreName(uuid)) {
        Move(uuid, BinPlaceOf(uuid), PlaceOf(uuid));
    }
}

void FileStore::RemoveFromBin(const QString& uuid) {
    if (IsStoreName(uuid) && IsRealFolder(m_bin) && IsRealFile(BinPlaceOf(uuid)) &&
        !QFile::remove(BinPlaceOf(uuid))) {
        Tell(u"回收站里的文件 %1 未能删除，仍占用磁盘；请检查文件夹 %2 的权限。"_s.arg(
            uuid, QDir::toNativeSeparators(m_bin)));
    }
}

std::vector<QString> FileStore::NamesInBin() const {
    std::vector<QString> names;
    for (const QString& name : EntriesOf(m_bin)) {
        if (!name.startsWith(u'.')) {
            names.push_back(name);
        }
    }
    return names;
}

void FileStore::RemoveStored(const QString& uuid) {
    const QString place = PlaceOf(uuid);
    const QString folder = QFileInfo(place).path();
    if (IsRealFolder(QFileInfo(folder).path()) && IsRealFolder(folder) && IsRealFile(place)) {
        QFile::remove(place);
    }
}

void FileStore::CleanUp(const std::function<bool(const QString&)>& hasRow, SetAside& aside) {
    const QString incoming = m_store + u'/' + NotesFolder();
    const QString below = place::kStore + u'/' + NotesFolder();
    if (IsThere(incoming) && !IsRealFolder(incoming)) {
        aside.Take(below);
        return;
    }
    for (const QString& name : EntriesOf(incoming)) {
        const QString folder = incoming + u'/' + name;
        if (!IsRealFolder(folder)) {
            aside.Take(below + u'/' + name);
            continue;
        }
        QLockFile lock(folder + u'/' + LockName());
        lock.setStaleLockTime(0);
        if (folder != m_notes && TakeLock(lock)) {
            CleanNotes(name, hasRow, aside);
            lock.unlock();
            QDir().rmdir(folder);
        }
    }
}

void FileStore::CleanNotes(const QString& name, const std::function<bool(const QString&)>& hasRow,
                           SetAside& aside) {
    const QString below = NotesFolder() + u'/' + name + u'/';
    for (const QString& note : EntriesOf(m_store + u'/' + below)) {
        const QString path = m_store + u'/' + below + note;
        if (note == LockName()) {
            continue;
        }
        if (!IsGivenName(note) || !IsRealFile(path)) {
            aside.Take(place::kStore + u'/' + below + note);
            continue;
        }
        if (!hasRow(note)) {
            RemoveStored(note);
        }
        QFile::remove(path);
    }
}

} // namespace site
