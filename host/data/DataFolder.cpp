#include "host/data/DataFolder.h"

#include "host/data/Bin.h"
#include "host/data/Database.h"
#include "host/data/FileStore.h"
#include "host/data/Migrations.h"
#include "host/data/Transfer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace host {

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
    return root + u"/site.db"_s;
}
QString DataFolder::StorePath() const {
    return root + u"/store"_s;
}
QString DataFolder::BinPath() const {
    return root + u"/bin"_s;
}
QString DataFolder::WorkPath() const {
    return root + u"/work"_s;
}
QString DataFolder::LogPath() const {
    return root + u"/logs"_s;
}

QString DataFolder::CachePath(qint32 ppid, const QString& leaf) const {
    const QString path = root + u"/cache/"_s + QString::number(ppid) + u'/' + leaf;
    return QDir().mkpath(path) ? path : QString();
}

void DataFolder::MakeFolders() const {
    for (const QString& path : {root, StorePath(), BinPath(), WorkPath(), LogPath()}) {
        if (!QDir().mkpath(path) || !QFileInfo(path).isWritable()) {
            Throw(Fault::kNotWritable, u"数据文件夹 "_s + QDir::toNativeSeparators(path));
        }
    }
}

std::optional<OpenFault> DataFolder::Open(const Options& options) {
    Close();
    try {
        MakeFolders();
        const sqlite::FileLook look = sqlite::LookAtFile(DatabasePath());
        if (look == sqlite::FileLook::kBad) {
            Throw(Fault::kDamaged, DatabasePath());
        }
        if (look != sqlite::FileLook::kNone && !QFileInfo(DatabasePath()).isWritable()) {
            Throw(Fault::kNotWritable, DatabasePath());
        }
        database = std::make_unique<Database>(DatabasePath(), options.busyTimeoutMs);
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
        store = std::make_unique<FileStore>(StorePath(), BinPath());
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
}

void DataFolder::CleanUp() const {
    store->CleanUp([this](const QString& uuid) {
        return database->Value(u"SELECT 1 FROM file WHERE uuid = ?"_s, {uuid}).isValid() ||
               database->Value(u"SELECT 1 FROM bin_file WHERE uuid = ?"_s, {uuid}).isValid();
    });
    Bin bin(*database, *store);
    bin.Reconcile();
    bin.PurgeOld();
    RemoveLeftovers(root + u"/cache"_s);
}

} // namespace host
