#include "site/sqlite/DataFolder.h"

#include "site/blobs/FileStore.h"
#include "site/blobs/FileSync.h"
#include "site/blobs/FolderLook.h"
#include "site/blobs/SetAside.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/FilingTable.h"
#include "site/sqlite/Migrations.h"
#include "site/sqlite/UploadSweep.h"
#include "site/transfer/Transfer.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <utility>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kUploadSeconds = 24LL * 60 * 60;

// Left behind when a statement met damage; the next opening then reads the whole database.
QString SuspicionPath(const QString& work) {
    return work + u"/check-database"_s;
}

[[noreturn]] void Throw(Fault fault, const QString& what) {
    throw DataError(fault, FaultText(fault, what));
}

} // namespace

DataFolder::DataFolder(const QString& path)
    : m_root(QDir(path).absolutePath()),
      m_opening(static_cast<qint64>(QRandomGenerator::global()->generate64() >> 1)) {}

DataFolder::~DataFolder() {
    Close();
}

QString DataFolder::DatabasePath() const {
    return m_root + u'/' + place::kDatabase;
}
QString DataFolder::StorePath() const {
    return m_root + u'/' + place::kStore;
}
QString DataFolder::BinPath() const {
    return m_root + u'/' + place::kBin;
}
QString DataFolder::WorkPath() const {
    return m_root + u'/' + place::kWork;
}
QString DataFolder::LogPath() const {
    return m_root + u'/' + place::kLogs;
}

void DataFolder::Look() const {
    const FolderFinding found = LookAtFolder(m_root);
    const QString folder = QDir::toNativeSeparators(m_root);
    if (found.look == FolderLook::Foreign) {
        throw DataError(Fault::NotASite,
                        u"文件夹 %1 里已有其他内容（%2），又没有站点的数据库 "
                        u"%3，因此没有打开，其中的内容原样未动。"
                        "请选择空文件夹或已有的数据文件夹；若数据库丢失，请从备份恢复。"_s.arg(
                            folder, found.name, place::kDatabase));
    }
    if (found.look == FolderLook::Linked) {
        throw DataError(
            Fault::NotASite,
            u"数据文件夹 %1 中的 %2 是一个链接，站点的内容不能放在链接后面，因此没有打开。"
            "请把链接换成它所指的内容。"_s.arg(folder, found.name));
    }
    if (QFileInfo(m_root).isFile()) {
        throw DataError(
            Fault::NotASite,
            u"%1 是一个文件，不是文件夹，因此没有打开。请选择一个文件夹。"_s.arg(folder));
    }
    if (!QDir().mkpath(m_root) || !QFileInfo(m_root).isWritable()) {
        Throw(Fault::NotWritable, u"数据文件夹 "_s + folder);
    }
}

void DataFolder::MakeFolders() const {
    for (const QString& path : {StorePath(), BinPath(), WorkPath(), LogPath()}) {
        if (!MakeFolderSynced(path) || !QFileInfo(path).isWritable()) {
            Throw(Fault::NotWritable, u"数据文件夹 "_s + QDir::toNativeSeparators(path));
        }
    }
}

void DataFolder::OpenDatabase(int busyTimeoutMs) {
    const sqlite::FileLook look = sqlite::LookAtFile(DatabasePath());
    if (look == sqlite::FileLook::Bad) {
        Throw(Fault::Damaged, DatabasePath());
    }
    if (look != sqlite::FileLook::None && !QFileInfo(DatabasePath()).isWritable()) {
        Throw(Fault::NotWritable, DatabasePath());
    }
    m_database = std::make_unique<Database>(DatabasePath(), busyTimeoutMs);
    const QString suspicion = SuspicionPath(WorkPath());
    if (look == sqlite::FileLook::Suspect || QFile::exists(suspicion)) {
        if (!m_database->PassesQuickCheck()) {
            Throw(Fault::Damaged, DatabasePath());
        }
        QFile::remove(suspicion);
    }
    Migrate(*m_database, Now());
    m_database->Log().SetOpening(m_opening);
    m_database->SetFaultWatch([suspicion](Fault fault) {
        if (fault == Fault::Damaged) {
            QFile(suspicion).open(QIODevice::WriteOnly);
        }
    });
}

std::optional<OpenFault> DataFolder::Open(const Options& options) {
    Close();
    m_now = options.now;
    try {
        Look();
        // Before the folders: once there is anything in one of them, the database tells whose it
        // is.
        OpenDatabase(options.busyTimeoutMs);
        MakeFolders();
        m_store = std::make_unique<FileStore>(StorePath(), BinPath());
        m_store->SetTold([this](const QString& text) { Tell(text); });
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
    m_store.reset();
    m_database.reset();
    m_untold.clear();
}

void DataFolder::SetTold(Told listener) {
    m_told = std::move(listener);
    if (m_told) {
        for (const QString& text : std::exchange(m_untold, {})) {
            m_told(text);
        }
    }
}

void DataFolder::Tell(const QString& text) {
    if (m_told) {
        m_told(text);
    } else {
        m_untold.append(text);
    }
}

QString DataFolder::Today() const {
    return QDateTime::fromSecsSinceEpoch(Now()).date().toString(Qt::ISODate);
}

void DataFolder::CleanUp() {
    SetAside aside(m_root, Today());
    // One statement, so one state of the data: a restore between two could hide the file from both.
    m_store->CleanUp(
        [this](const QString& uuid) {
            return m_database
                ->Value(u"SELECT 1 FROM (SELECT uuid FROM file UNION ALL"
                        " SELECT uuid FROM bin_file) WHERE uuid = ?"_s,
                        {uuid})
                .isValid();
        },
        aside);
    try {
        Bin bin(*m_database, *m_store);
        bin.Reconcile(aside);
        bin.PurgeOld(Now());
        // Whoever uploaded them is gone; a younger one may be another running client's.
        SweepUploads(*m_database, *m_store, Now() - kUploadSeconds);
        m_database->Log().Trim();
        FilingTable::Trim(*m_database);
    } catch (const DataError& error) {
        // Who writes for so long does nothing that can't wait for the next opening.
        if (error.GetFault() != Fault::Locked) {
            throw;
        }
    }
    RemoveLeftovers(m_root + u'/' + place::kCache);
    if (!aside.Story().isEmpty()) {
        Tell(aside.Story());
    }
}

} // namespace site
