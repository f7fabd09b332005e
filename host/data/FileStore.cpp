#include "host/data/FileStore.h"

#include "host/data/FileSync.h"
#include "host/data/StoreName.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace host {

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
        throw DataError(Fault::kNotWritable, FaultText(Fault::kNotWritable, u"保存文件"_s), place);
    }
    QFile(note).open(QIODevice::WriteOnly);
}

} // namespace

FileStore::FileStore(QString storeFolder, QString binFolder)
    : store(std::move(storeFolder)), bin(std::move(binFolder)) {}

FileStore::~FileStore() {
    if (notesLock) {
        notesLock->unlock();
        QDir().rmdir(notes);
    }
}

QString FileStore::PlaceOf(const QString& uuid) const {
    if (!IsStoreName(uuid)) {
        throw DataError(Fault::kBadName, FaultText(Fault::kBadName, uuid.left(64)));
    }
    const QString lower = uuid.toLower();
    const QChar second = lower.size() > 1 ? lower[1] : u'0';
    return store + u'/' + lower[0] + u'/' + second + u'/' + uuid;
}

QString FileStore::BinPlaceOf(const QString& uuid) const {
    if (!IsStoreName(uuid)) {
        throw DataError(Fault::kBadName, FaultText(Fault::kBadName, uuid.left(64)));
    }
    return bin + u'/' + uuid;
}

QString FileStore::NotePath(const QString& uuid) const {
    return notes + u'/' + uuid;
}

void FileStore::TakeNotesFolder() {
    if (notesLock) {
        return;
    }
    notes = store + u'/' + NotesFolder() + u'/' + NewStoreName();
    notesLock =
        QDir().mkpath(notes) ? std::make_unique<QLockFile>(notes + u'/' + LockName()) : nullptr;
    if (notesLock) {
        notesLock->setStaleLockTime(0);
    }
    if (!notesLock || !notesLock->tryLock()) {
        notesLock.reset();
        throw DataError(Fault::kNotWritable, FaultText(Fault::kNotWritable, u"保存文件"_s), notes);
    }
}

StoredFile FileStore::Put(const FileSource& source) {
    TakeNotesFolder();
    StoredFile stored{NewStoreName(), {}, 0};
    QFile file(source.path);
    QBuffer buffer;
    buffer.setData(source.bytes);
    QIODevice& device = source.path.isEmpty() ? static_cast<QIODevice&>(buffer) : file;
    if (!device.open(QIODevice::ReadOnly)) {
        throw DataError(Fault::kMissing, FaultText(Fault::kMissing, source.path));
    }
    const QString note = NotePath(stored.uuid);
    const CopyOutcome outcome = CopySynced(device, note);
    if (!outcome.ok) {
        const Fault fault = outcome.diskFull ? Fault::kDiskFull : Fault::kNotWritable;
        throw DataError(fault, FaultText(fault, u"保存文件"_s), note);
    }
    stored.md5 = outcome.md5;
    stored.size = outcome.size;
    const QString place = PlaceOf(stored.uuid);
    const QString folder = QFileInfo(place).path();
    QDir().mkpath(folder);
    LeaveNote(note, place);
    SyncFolder(folder);
    return stored;
}

void FileStore::Settle(const QString& uuid) {
    QFile::remove(NotePath(uuid));
}

void FileStore::Discard(const QString& uuid) {
    QFile::remove(PlaceOf(uuid));
    QFile::remove(NotePath(uuid));
}

QString FileStore::PathOf(const QString& uuid) const {
    // A file on its way into the bin or out of it, seen by another process, is still the file.
    for (const QString& place : {PlaceOf(uuid), BinPlaceOf(uuid)}) {
        if (QFileInfo(place).isFile()) {
            return place;
        }
    }
    throw DataError(Fault::kMissing,
                    u"文件 "_s + uuid + u" 不在文件库中，可能已丢失，请从备份恢复。"_s);
}

bool FileStore::Has(const QString& uuid) const {
    return IsStoreName(uuid) && QFileInfo(PlaceOf(uuid)).isFile();
}

void FileStore::MoveToBin(const QString& uuid) {
    QDir().mkpath(bin);
    QFile::rename(PlaceOf(uuid), BinPlaceOf(uuid));
    SyncFolder(bin);
}

void FileStore::MoveFromBin(const QString& uuid) {
    const QString place = PlaceOf(uuid);
    const QString folder = QFileInfo(place).path();
    QDir().mkpath(folder);
    QFile::rename(BinPlaceOf(uuid), place);
    SyncFolder(folder);
}

void FileStore::RemoveFromBin(const QString& uuid) {
    QFile::remove(BinPlaceOf(uuid));
}

std::vector<QString> FileStore::NamesInBin() const {
    std::vector<QString> names;
    for (const QString& name : QDir(bin).entryList(QDir::Files)) {
        if (IsStoreName(name)) {
            names.push_back(name);
        }
    }
    return names;
}

void FileStore::CleanUp(const std::function<bool(const QString&)>& hasRow) {
    const QDir incoming(store + u'/' + NotesFolder());
    for (const QString& name : incoming.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = incoming.filePath(name);
        QLockFile lock(folder + u'/' + LockName());
        lock.setStaleLockTime(0);
        if (folder != notes && lock.tryLock()) {
            CleanNotes(folder, hasRow);
            lock.unlock();
            QDir().rmdir(folder);
        }
    }
}

void FileStore::CleanNotes(const QString& folder,
                           const std::function<bool(const QString&)>& hasRow) {
    for (const QString& name : QDir(folder).entryList(QDir::Files)) {
        if (!IsStoreName(name)) {
            continue;
        }
        if (!hasRow(name)) {
            QFile::remove(PlaceOf(name));
        }
        QFile::remove(folder + u'/' + name);
    }
}

} // namespace host
