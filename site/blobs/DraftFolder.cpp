#include "site/blobs/DraftFolder.h"

#include "site/DataError.h"
#include "site/blobs/FileSync.h"
#include "site/blobs/FolderLook.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QUuid>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace site {

using namespace Qt::StringLiterals;

namespace {

const QString kTold = u"draft.json"_s;
const QString kUnfinished = u".part-"_s;
constexpr qint32 kPageFile = 1;
constexpr qint32 kAttached = 2;
constexpr qint64 kMostTold = 1 << 20;
constexpr qint64 kHour = 3600;
constexpr qint64 kLastTime = 253'402'300'799; // of the year 9999

/// As they are made here; Qt takes what follows one for a part of it.
bool IsId(const QString& text) {
    const QUuid id = QUuid::fromString(text);
    return !id.isNull() && id.toString(QUuid::WithoutBraces) == text;
}

/// A name below a folder and nothing else.
bool IsPlainName(const QString& name) {
    return !name.isEmpty() && !name.startsWith(u'.') && !name.contains(u'/') &&
           !name.contains(u'\\') && name != kTold;
}

/// Files of the page keep their names, by which it knows them. Others may be called like each
/// other.
QString NameInFolder(const KX_DATA::UploadItem& file, std::size_t index) {
    if (file.path.isEmpty()) {
        return {};
    }
    return file.kind == kPageFile && IsPlainName(file.name) ? file.name : u"file-%1"_s.arg(index);
}

QJsonObject ToldOf(const KX_DATA::RichTextDraft& draft, const QString& person, qint64 at,
                   const QString& client) {
    QJsonArray files;
    for (std::size_t i = 0; i < draft.files.size(); ++i) {
        files.append(QJsonObject{{u"name"_s, draft.files[i].name},
                                 {u"kind"_s, draft.files[i].kind},
                                 {u"file"_s, NameInFolder(draft.files[i], i)}});
    }
    return {{u"person"_s, person},
            {u"at"_s, at},
            {u"objectId"_s, draft.key.objectId},
            {u"subId"_s, draft.key.subId},
            {u"ownerId"_s, draft.key.ownerId},
            {u"projectId"_s, draft.key.projectId},
            {u"objectType"_s, draft.key.objectType},
            {u"docName"_s, draft.docName},
            {u"version"_s, draft.versionText},
            {u"state"_s, draft.stateText},
            {u"client"_s, client},
            {u"files"_s, files}};
}

[[noreturn]] void Fail(bool isDiskFull, const QString& path) {
    const Fault fault = isDiskFull ? Fault::DiskFull : Fault::NotWritable;
    throw DataError(fault, FaultText(fault, u"保存草稿"_s), path);
}

void CopyFile(const QString& from, const QString& to) {
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly)) {
        throw DataError(Fault::Missing, FaultText(Fault::Missing, u"保存草稿"_s), from);
    }
    const CopyOutcome copied = CopySynced(source, to);
    if (!copied.ok) {
        Fail(copied.diskFull, to);
    }
}

/// A second name costs nothing, and the files of an editor are called by their content: nobody
/// writes into them.
void LinkFile(const QString& from, const QString& to) {
    std::error_code fault;
    std::filesystem::create_hard_link(from.toStdU16String(), to.toStdU16String(), fault);
    if (fault) {
        CopyFile(from, to); // another disk, or one without second names
    }
}

/// Of folders all, of links the link; a link may stand in anybody's folder.
bool RemoveAll(const QString& path) {
    std::error_code fault;
    std::filesystem::remove_all(path.toStdU16String(), fault);
    return !fault;
}

/// The file is new: a link that stands there leads elsewhere.
void WriteTold(const QJsonObject& told, const QString& path) {
    QFile file(path);
    const QByteArray bytes = QJsonDocument(told).toJson(QJsonDocument::Compact);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
        file.write(bytes) != bytes.size() || !SyncFile(file)) {
        Fail(file.error() == QFileDevice::ResourceError, path);
    }
}

QString PageOf(const KX_DATA::RichTextDraft& draft) {
    const auto page = std::ranges::find_if(draft.files, [](const auto& file) {
        return file.kind == kPageFile && file.name.endsWith(u".html"_s);
    });
    return page == draft.files.end() ? QString() : page->name;
}

bool IsOf(const KX_DATA::RichTextDraft& draft, const KX_DATA::RichTextKey& key,
          const QString& docName) {
    return draft.docName == docName && draft.key.objectId == key.objectId &&
           draft.key.subId == key.subId && draft.key.ownerId == key.ownerId &&
           draft.key.projectId == key.projectId && draft.key.objectType == key.objectType;
}

bool IsSame(const KX_DATA::RichTextDraft& one, const KX_DATA::RichTextDraft& other) {
    return IsOf(one, other.key, other.docName) && PageOf(one) == PageOf(other);
}

QString Md5Of(const QByteArray& bytes) {
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

void WriteAll(const QByteArray& bytes, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        Fail(file.error() == QFileDevice::ResourceError, path);
    }
}

} // namespace

DraftFolder::DraftFolder(QString folderPath, std::function<qint64()> now)
    : m_folder(std::move(folderPath)), m_now(std::move(now)),
      m_client(QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

DraftFolder::~DraftFolder() = default;

QString DraftFolder::Put(const KX_DATA::RichTextDraft& whole, const QString& person,
                         const QString& client) {
    const QString id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QString part = m_folder + u'/' + kUnfinished + id;
    if (!MakeFolderSynced(part)) {
        Fail(false, part);
    }
    try {
        KX_DATA::RichTextDraft draft = whole;
        if (!draft.page.isEmpty()) {
            const QString name = Md5Of(draft.page) + u".html"_s;
            WriteAll(draft.page, part + u'/' + name);
            draft.files.insert(draft.files.begin(), {part + u'/' + name, name, kPageFile});
        }
        for (std::size_t i = draft.page.isEmpty() ? 0 : 1; i < draft.files.size(); ++i) {
            // What is attached was fetched only if somebody opened it; the site has it.
            if (draft.files[i].kind == kAttached && !IsThere(draft.files[i].path)) {
                draft.files[i].path.clear();
                continue;
            }
            const QString to = part + u'/' + NameInFolder(draft.files[i], i);
            client.isEmpty() ? CopyFile(draft.files[i].path, to)
                             : LinkFile(draft.files[i].path, to);
        }
        WriteTold(ToldOf(draft, person, m_now(), client), part + u'/' + kTold);
        if (!SyncFolder(part) || !QDir().rename(part, m_folder + u'/' + id)) {
            Fail(false, part);
        }
    } catch (const DataError&) {
        RemoveAll(part);
        throw;
    }
    SyncFolder(m_folder);
    return id;
}

void DraftFolder::Keep(const KX_DATA::RichTextDraft& draft, const QString& person) {
    const std::vector<Found> others = Young();
    Put(draft, person, {});
    for (const Found& other : others) {
        const bool isMine = other.draft.person == person;
        const bool isTheOpenOne =
            other.client == m_client && IsOf(other.draft.text, draft.key, draft.docName);
        if (isMine &&
            (isTheOpenOne || (other.client.isEmpty() && IsSame(other.draft.text, draft)))) {
            RemoveAll(other.draft.folder); // what stays is one too many, and nothing is lost
        }
    }
}

void DraftFolder::KeepOpen(const KX_DATA::RichTextDraft& draft, const QString& person) {
    TellThatThisRuns();
    const QString id = Put(draft, person, m_client);
    for (const Found& other : All()) {
        if (other.draft.id != id && other.client == m_client && other.draft.person == person &&
            IsOf(other.draft.text, draft.key, draft.docName)) {
            RemoveAll(other.draft.folder); // the next one takes what stays
        }
    }
}

void DraftFolder::DropOpen(const KX_DATA::RichTextKey& key, const QString& docName,
                           const QString& person) {
    for (const Found& found : All()) {
        if (found.client == m_client && found.draft.person == person &&
            IsOf(found.draft.text, key, docName)) {
            Remove(found.draft.id);
        }
    }
}

int DraftFolder::AdoptOpen(const QString& person) {
    int adopted = 0;
    for (const Found& found : All()) {
        const bool isLeft = !found.client.isEmpty() && !IsRunning(found.client);
        if (isLeft && found.draft.person == person) {
            const QString told = found.draft.folder + kTold;
            const QString whole = told + kUnfinished;
            RemoveAll(whole);
            WriteTold(ToldOf(found.draft.text, person, found.draft.at, {}), whole);
            std::error_code fault; // replaces, as QFile doesn't
            std::filesystem::rename(whole.toStdU16String(), told.toStdU16String(), fault);
            adopted += fault ? 0 : 1;
        }
    }
    return adopted;
}

QString DraftFolder::SignOf(const QString& client) const {
    return m_folder + u"/.client-"_s + client;
}

void DraftFolder::TellThatThisRuns() {
    if (m_sign) {
        return;
    }
    if (!MakeFolderSynced(m_folder)) {
        Fail(false, m_folder);
    }
    auto sign = std::make_unique<QLockFile>(SignOf(m_client));
    sign->setStaleLockTime(0); // as long as the process runs
    if (!sign->tryLock(0)) {
        Fail(false, SignOf(m_client));
    }
    m_sign = std::move(sign);
}

bool DraftFolder::IsRunning(const QString& client) const {
    if (client == m_client) {
        return true;
    }
    // Anything else that stands there may hold its reader, or lead elsewhere.
    if (!IsId(client) || !IsRealFile(SignOf(client))) {
        return false;
    }
    QLockFile sign(SignOf(client));
    sign.setStaleLockTime(0);
    // One that is left behind by a process that has ended can be taken, and goes with it.
    qint64 process = 0;
    QString machine;
    QString program;
    return !sign.tryLock(0) && sign.error() == QLockFile::LockFailedError &&
           sign.getLockInfo(&process, &machine, &program);
}

std::optional<DraftFolder::Found> DraftFolder::Read(const QString& id) const {
    const QString folder = m_folder + u'/' + id + u'/';
    QFile file(folder + kTold);
    if (!IsRealFolder(m_folder + u'/' + id) || !IsRealFile(folder + kTold) ||
        file.size() > kMostTold || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QJsonObject told = QJsonDocument::fromJson(file.readAll()).object();
    Draft draft;
    draft.id = id;
    draft.folder = folder;
    draft.person = told[u"person"_s].toString();
    draft.at = std::clamp(told[u"at"_s].toInteger(), qint64(0), kLastTime);
    draft.text.key.objectId = told[u"objectId"_s].toString();
    draft.text.key.subId = told[u"subId"_s].toInt();
    draft.text.key.ownerId = told[u"ownerId"_s].toInt();
    draft.text.key.projectId = told[u"projectId"_s].toInt();
    draft.text.key.objectType = told[u"objectType"_s].toInt();
    draft.text.docName = told[u"docName"_s].toString();
    draft.text.versionText = told[u"version"_s].toString();
    draft.text.stateText = told[u"state"_s].toString();
    const QJsonArray files = told[u"files"_s].toArray();
    for (const auto& entry : files) {
        const QJsonObject one = entry.toObject();
        const QString name = one[u"file"_s].toString();
        if (name.isEmpty() && one[u"kind"_s].toInt() == kAttached) {
            draft.text.files.push_back({QString(), one[u"name"_s].toString(), kAttached});
            continue;
        }
        if (!IsPlainName(name) || !IsRealFile(folder + name)) {
            return std::nullopt;
        }
        draft.text.files.push_back(
            {folder + name, one[u"name"_s].toString(), one[u"kind"_s].toInt()});
    }
    if (draft.person.isEmpty() || PageOf(draft.text).isEmpty()) {
        return std::nullopt;
    }
    return Found{draft, told[u"client"_s].toString()};
}

std::vector<DraftFolder::Found> DraftFolder::All() const {
    std::vector<Found> drafts;
    for (const QString& name : EntriesOf(m_folder)) {
        if (!IsId(name)) {
            continue;
        }
        if (auto draft = Read(name)) {
            drafts.push_back(*std::move(draft));
        }
    }
    std::ranges::stable_sort(
        drafts, [](const Found& a, const Found& b) { return a.draft.at > b.draft.at; });
    return drafts;
}

std::vector<Draft> DraftFolder::Of(const QString& person) {
    std::vector<Draft> drafts;
    for (Found& found : Young()) {
        if (found.draft.person == person && (found.client.isEmpty() || !IsRunning(found.client))) {
            drafts.push_back(std::move(found.draft));
        }
    }
    return drafts;
}

std::optional<Draft> DraftFolder::One(const QString& id, const QString& person) {
    auto found = IsId(id) ? Read(id) : std::nullopt;
    if (!found || found->draft.person != person || found->draft.at + kDraftSeconds < m_now()) {
        return std::nullopt;
    }
    return std::move(found->draft);
}

void DraftFolder::Remove(const QString& id) {
    if (!IsId(id)) {
        return;
    }
    const QString path = m_folder + u'/' + id;
    if (!RemoveAll(path)) {
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, u"删除草稿"_s), path);
    }
}

std::vector<DraftFolder::Found> DraftFolder::Young() {
    std::vector<Found> drafts = All();
    std::erase_if(drafts, [this](const Found& found) {
        const bool isOld = found.draft.at + kDraftSeconds < m_now();
        if (isOld) {
            RemoveAll(found.draft.folder); // in use by somebody, perhaps; the next time then
        }
        return isOld;
    });
    for (const QString& name : EntriesOf(m_folder)) {
        const QString path = m_folder + u'/' + name;
        // A young one may be another client's that is at it now.
        if (name.startsWith(kUnfinished) &&
            QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime()) > kHour) {
            RemoveAll(path);
        }
    }
    return drafts;
}

} // namespace site
