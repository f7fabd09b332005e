#include "site/sqlite/DataFolder.h"

#include "site/blobs/FileStore.h"
#include "site/blobs/FileSync.h"
#include "site/blobs/FolderLook.h"
#include "site/blobs/SetAside.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/Migrations.h"
#include "site/transfer/Transfer.h"

#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace site {

using namespace Qt::StringLiterals;

namespace {

// Left behind when a statement met damage; the next opening then reads the whole database.
QString SuspicionPath(const QString& work) {
    return work + u"/check-database"_s;
}

[[noreturn]] void Throw(Fault fault, const QString& what) {
    throw DataError(fault, FaultText(fault, what));
}

} // namespace

DataFolder::DataFolder(const QString& path) : root(QDir(path).absolutePath()) {}

DataFolder::~DataFolder() {
    Close();
}

QString DataFolder::DatabasePath() const {
    return root + u'/' + place::kDatabase;
}
QString DataFolder::StorePath() const {
    return root + u'/' + place::kStore;
}
QString DataFolder::BinPath() const {
    return root + u'/' + place::kBin;
}
QString DataFolder::WorkPath() const {
    return root + u'/' + place::kWork;
}
QString DataFolder::LogPath() const {
    return root + u'/' + place::kLogs;
}

void DataFolder::Look() const {
    const FolderFinding found = LookAtFolder(root);
    const QString folder = QDir::toNativeSeparators(root);
    if (found.look == FolderLook::kForeign) {
        throw DataError(Fault::kNotASite,
                        u"文件夹 %1 里已有其他内容（%2），又没有站点的数据库 "
                        u"%3，因此没有打开，其中的内容原样未动。"
                        "请选择空文件夹或已有的数据文件夹；若数据库丢失，请从备份恢复。"_s.arg(
                            folder, found.name, place::kDatabase));
    }
    if (found.look == FolderLook::kLinked) {
        throw DataError(
            Fault::kNotASite,
            u"数据文件夹 %1 中的 %2 是一个链接，站点的内容不能放在链接后面，因此没有打开。"
            "请把链接换成它所指的内容。"_s.arg(folder, found.name));
    }
    if (QFileInfo(root).isFile()) {
        throw DataError(
            Fault::kNotASite,
            u"%1 是一个文件，不是文件夹，因此没有打开。请选择一个文件夹。"_s.arg(folder));
    }
    if (!QDir().mkpath(root) || !QFileInfo(root).isWritable()) {
        Throw(Fault::kNotWritable, u"数据文件夹 "_s + folder);
    }
}

void DataFolder::MakeFolders() const {
    for (const QString& path : {StorePath(), BinPath(), WorkPath(), LogPath()}) {
        if (!MakeFolderSynced(path) || !QFileInfo(path).isWritable()) {
            Throw(Fault::kNotWritable, u"数据文件夹 "_s + QDir::toNativeSeparators(path));
        }
    }
}

void DataFolder::OpenDatabase(int busyTimeoutMs) {
    const sqlite::FileLook look = sqlite::LookAtFile(DatabasePath());
    if (look == sqlite::FileLook::kBad) {
        Throw(Fault::kDamaged, DatabasePath());
    }
    if (look != sqlite::FileLook::kNone && !QFileInfo(DatabasePath()).isWritable()) {
        Throw(Fault::kNotWritable, DatabasePath());
    }
    database = std::make_unique<Database>(DatabasePath(), busyTimeoutMs);
    const QString suspicion = SuspicionPath(WorkPath());
    if (look == sqlite::FileLook::kSuspect || QFile::exists(suspicion)) {
        if (!database->PassesQuickCheck()) {
            Throw(Fault::kDamaged, DatabasePath());
        }
        QFile::remove(suspicion);
    }
    Migrate(*database);
    database->SetFaultWatch([suspicion](Fault fault) {
        if (fault == Fault::kDamaged) {
            QFile(suspicion).open(QIODevice::WriteOnly);
        }
    });
}

std::optional<OpenFault> DataFolder::Open(const Options& options) {
    Close();
    try {
        Look();
        // Before the folders: once there is anything in one of them, the database tells whose it
        // is.
        OpenDatabase(options.busyTimeoutMs);
        MakeFolders();
        store = std::make_unique<FileStore>(StorePath(), BinPath());
        store->SetTold([this](const QString& text) { Tell(text); });
        if (options.cleanUp) {
            CleanUp();
        }
    } catch (const DataError& error) {
        Close();
        return OpenFault{error.GetFault(), error.Text()};
    }
    return std::nullopt;
}

void DataFolder::Close() {
    store.reset();
    database.reset();
    untold.clear();
}

void DataFolder::SetTold(Told listener) {
    told = std::move(listener);
    if (told) {
        for (const QString& text : std::exchange(untold, {})) {
            told(text);
        }
    }
}

void DataFolder::Tell(const QString& text) {
    if (told) {
        told(text);
    } else {
        untold.append(text);
    }
}

void DataFolder::CleanUp() {
    SetAside aside(root, QDate::currentDate().toString(Qt::ISODate));
    // One statement, so one state of the data: a restore between two could hide the file from both.
    store->CleanUp(
        [this](const QString& uuid) {
            return database
                ->Value(u"SELECT 1 FROM (SELECT uuid FROM file UNION ALL"
                        " SELECT uuid FROM bin_file) WHERE uuid = ?"_s,
                        {uuid})
                .isValid();
        },
        aside);
    try {
        Bin bin(*database, *store);
        bin.Reconcile(aside);
        bin.PurgeOld(QDateTime::currentSecsSinceEpoch());
    } catch (const DataError& error) {
        // Who writes for so long does nothing that can't wait for the next opening.
        if (error.GetFault() != Fault::kLocked) {
            throw;
        }
    }
    RemoveLeftovers(root + u'/' + place::kCache);
    if (!aside.Story().isEmpty()) {
        Tell(aside.Story());
    }
}

} // namespace site
