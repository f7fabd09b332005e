#include "site/blobs/DraftFolder.h"

#include "site/DataError.h"
#include "site/blobs/FileSync.h"
#include "site/blobs/FolderLook.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace site {

using namespace Qt::StringLiterals;

namespace {

const QString kTold = u"draft.json"_s;
const QString kUnfinished = u".part-"_s;
constexpr qint32 kPageFile = 1;
constexpr qint64 kMostTold = 1 << 20;
constexpr qint64 kHour = 3600;

/// A name below a folder and nothing else.
bool IsPlainName(const QString& name) {
    return !name.isEmpty() && !name.startsWith(u'.') && !name.contains(u'/') &&
           !name.contains(u'\\') && name != kTold;
}

/// Files of the page keep their names, by which it knows them. Others may be called like each
/// other.
QString NameInFolder(const KX_DATA::UploadItem& file, std::size_t index) {
    return file.kind == kPageFile && IsPlainName(file.name) ? file.name : u"file-%1"_s.arg(index);
}

QJsonObject ToldOf(const KX_DATA::RichTextDraft& draft, const QString& person, qint64 at) {
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

void WriteTold(const QJsonObject& told, const QString& path) {
    QFile file(path);
    const QByteArray bytes = QJsonDocument(told).toJson(QJsonDocument::Compact);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !SyncFile(file)) {
        Fail(file.error() == QFileDevice::ResourceError, path);
    }
}

QString PageOf(const KX_DATA::RichTextDraft& draft) {
    const auto page = std::ranges::find_if(draft.files, [](const auto& file) {
        return file.kind == kPageFile && file.name.endsWith(u".html"_s);
    });
    return page == draft.files.end() ? QString() : page->name;
}

bool IsSame(const KX_DATA::RichTextDraft& one, const KX_DATA::RichTextDraft& other) {
    return one.docName == other.docName && one.key.objectId == other.key.objectId &&
           one.key.subId == other.key.subId && one.key.ownerId == other.key.ownerId &&
           one.key.projectId == other.key.projectId && one.key.objectType == other.key.objectType &&
           PageOf(one) == PageOf(other);
}

} // namespace

DraftFolder::DraftFolder(QString folderPath, std::function<qint64()> now)
    : m_folder(std::move(folderPath)), m_now(std::move(now)) {}

void DraftFolder::Keep(const KX_DATA::RichTextDraft& draft, const QString& person) {
    const std::vector<Draft> others = Young();
    const QString id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QString part = m_folder + u'/' + kUnfinished + id;
    if (!MakeFolderSynced(part)) {
        Fail(false, part);
    }
    try {
        for (std::size_t i = 0; i < draft.files.size(); ++i) {
            CopyFile(draft.files[i].path, part + u'/' + NameInFolder(draft.files[i], i));
        }
        WriteTold(ToldOf(draft, person, m_now()), part + u'/' + kTold);
        if (!SyncFolder(part) || !QDir().rename(part, m_folder + u'/' + id)) {
            Fail(false, part);
        }
    } catch (const DataError&) {
        QDir(part).removeRecursively();
        throw;
    }
    SyncFolder(m_folder);
    for (const Draft& other : others) {
        if (other.person == person && IsSame(other.text, draft)) {
            Remove(other.id);
        }
    }
}

std::optional<Draft> DraftFolder::Read(const QString& id) const {
    const QString folder = m_folder + u'/' + id + u'/';
    QFile file(folder + kTold);
    if (!IsRealFile(folder + kTold) || file.size() > kMostTold || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QJsonObject told = QJsonDocument::fromJson(file.readAll()).object();
    Draft draft;
    draft.id = id;
    draft.folder = folder;
    draft.person = told[u"person"_s].toString();
    draft.at = told[u"at"_s].toInteger();
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
        if (!IsPlainName(name) || !IsRealFile(folder + name)) {
            return std::nullopt;
        }
        draft.text.files.push_back(
            {folder + name, one[u"name"_s].toString(), one[u"kind"_s].toInt()});
    }
    if (draft.person.isEmpty() || draft.text.files.empty()) {
        return std::nullopt;
    }
    return draft;
}

std::vector<Draft> DraftFolder::All() const {
    std::vector<Draft> drafts;
    for (const QString& name : EntriesOf(m_folder)) {
        if (QUuid::fromString(name).isNull()) {
            continue;
        }
        if (auto draft = Read(name)) {
            drafts.push_back(*std::move(draft));
        }
    }
    std::ranges::stable_sort(drafts, [](const Draft& a, const Draft& b) { return a.at > b.at; });
    return drafts;
}

std::vector<Draft> DraftFolder::Of(const QString& person) {
    std::vector<Draft> drafts = Young();
    std::erase_if(drafts, [&](const Draft& draft) { return draft.person != person; });
    return drafts;
}

void DraftFolder::Remove(const QString& id) {
    if (QUuid::fromString(id).isNull()) {
        return;
    }
    const QString path = m_folder + u'/' + id;
    if (IsThere(path) && !QDir(path).removeRecursively()) {
        throw DataError(Fault::NotWritable, FaultText(Fault::NotWritable, u"删除草稿"_s), path);
    }
}

std::vector<Draft> DraftFolder::Young() {
    std::vector<Draft> drafts = All();
    std::erase_if(drafts, [this](const Draft& draft) {
        const bool isOld = draft.at + kDraftSeconds < m_now();
        if (isOld) {
            Remove(draft.id);
        }
        return isOld;
    });
    for (const QString& name : EntriesOf(m_folder)) {
        const QString path = m_folder + u'/' + name;
        // A young one may be another client's that is at it now.
        if (name.startsWith(kUnfinished) &&
            QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime()) > kHour) {
            QDir(path).removeRecursively();
        }
    }
    return drafts;
}

} // namespace site
