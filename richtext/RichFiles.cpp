#include "richtext/RichFiles.h"

#include "services/Factories.h"
#include "services/IKXFilesMng.h"
#include "services/IKXPathMng.h"

#include <QFile>

#include <algorithm>
#include <set>

namespace richtext {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kDownloadKind = 5;
constexpr qint32 kOneFile = 1;

/// Whichever system wrote the path.
QString LastPart(const QString& path) {
    const qsizetype slash = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    return path.mid(slash + 1);
}

/// A path made of it stays in its folder.
bool IsNameInFolder(const QString& name) {
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !name.contains(u':') &&
           LastPart(name) == name;
}

QString KeyOf(const KX_DATA::RichAttachment& attachment) {
    return attachment.md5 + u'$' + attachment.name;
}

QString KeyOf(const NoteFile& file) {
    const qsizetype dot = file.storeName.lastIndexOf(u'.');
    return file.storeName.left(dot) + u'$' + LastPart(file.localPath);
}

qint32 KindOf(const NoteFile& file) {
    if (file.isEmbedded != 0) {
        return kEmbedded;
    }
    return file.isAttachment != 0 ? kAttachment : kPageFile;
}

} // namespace

QString StoreNameOf(const KX_DATA::RichAttachment& attachment) {
    const qsizetype dot = attachment.name.lastIndexOf(u'.');
    return dot < 0 ? attachment.md5 : attachment.md5 + attachment.name.mid(dot);
}

std::vector<QString> ListRemoved(const std::vector<KX_DATA::RichAttachment>& attachments,
                                 const std::vector<NoteFile>& files) {
    std::set<QString> present;
    for (const NoteFile& file : files) {
        present.insert(KeyOf(file));
    }
    std::vector<QString> removed;
    for (const KX_DATA::RichAttachment& attachment : attachments) {
        if (!present.contains(KeyOf(attachment))) {
            removed.push_back(attachment.uuid);
        }
    }
    return removed;
}

std::vector<KX_DATA::UploadItem>
ListUploads(const std::vector<KX_DATA::RichAttachment>& attachments,
            const std::vector<NoteFile>& files) {
    std::set<QString> known;
    for (const KX_DATA::RichAttachment& attachment : attachments) {
        known.insert(KeyOf(attachment));
    }
    std::vector<KX_DATA::UploadItem> items;
    for (const NoteFile& file : files) {
        if (!known.contains(KeyOf(file))) {
            items.push_back({file.localPath, LastPart(file.localPath), KindOf(file)});
        }
    }
    return items;
}

bool FetchRichFile(const QString& uuid, const QString& path, QString& error) {
    KX_DATA::TransferResult result;
    GetKXFilesDownloadMng()->DownloadFile(result, uuid, path, kDownloadKind, false, 0);
    if (result.success == 0) {
        error = result.message;
    }
    return result.success != 0;
}

Prepared PrepareFiles(const std::vector<KX_DATA::RichAttachment>& attachments) {
    Prepared prepared;
    for (const KX_DATA::RichAttachment& attachment : attachments) {
        const bool isFetched = attachment.kind == kPageFile || attachment.kind == kEmbedded;
        if (isFetched && !IsNameInFolder(attachment.name)) {
            continue; // no client of ours saved it
        }
        if (attachment.kind != kPageFile) {
            prepared.sizes.try_emplace(StoreNameOf(attachment), quint64(attachment.size));
        }
        if (attachment.kind == kPageFile) {
            prepared.names.push_back(attachment.name);
        }
        if (!isFetched) {
            continue;
        }
        QString path;
        GetVeskPathTool()->GetRichFolder(path);
        path += attachment.name;
        prepared.isWhole =
            QFile::exists(path) || FetchRichFile(attachment.uuid, path, prepared.error);
        if (!prepared.isWhole) {
            return prepared;
        }
    }
    return prepared;
}

Uploaded UploadAll(const std::vector<KX_DATA::UploadItem>& items) {
    Uploaded uploaded;
    for (const KX_DATA::UploadItem& item : items) {
        KX_DATA::UploadResult result;
        if (!GetKXFilesUploadMng()->UploadFile({item}, kOneFile, result, uploaded.error)) {
            uploaded.isWhole = false;
            return uploaded;
        }
        KX_DATA::RichAttachment file;
        file.name = item.name;
        file.md5 = result.md5;
        file.uuid = result.uuid;
        file.size = qint32(result.size);
        file.kind = item.kind;
        uploaded.files.push_back(file);
    }
    return uploaded;
}

} // namespace richtext
