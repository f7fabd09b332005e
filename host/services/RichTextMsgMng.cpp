#include "host/services/RichTextMsgMng.h"

#include "site/RectifyStates.h"

#include <algorithm>
#include <iterator>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kAtIntersection = 1;
constexpr qint32 kAtCheckpoint = 2;

KX_DATA::RichAttachment RichAttachmentOf(const site::RichFile& file) {
    KX_DATA::RichAttachment attachment;
    attachment.name = file.name;
    attachment.md5 = file.md5;
    attachment.uuid = file.uuid;
    attachment.size = static_cast<qint32>(file.size);
    attachment.kind = file.kind;
    return attachment;
}

KX_DATA::RichTextMsg RichMessageOf(const site::RichVersion& version) {
    KX_DATA::RichTextMsg message;
    message.docName = version.docName;
    if (version.number > 0) {
        message.updateTime = version.at;
    }
    message.editorName = version.person;
    message.versionText = version.text;
    message.stateText = site::StateName(version.state);
    std::transform(version.files.begin(), version.files.end(),
                   std::back_inserter(message.attachments), RichAttachmentOf);
    return message;
}

site::NewRichVersion NewVersionOf(const QString& stateText, const KX_DATA::RichTextMsg& message,
                                  const std::vector<QString>& removedUuids,
                                  const std::vector<KX_DATA::RichAttachment>& added) {
    site::NewRichVersion version;
    version.base = message.versionText;
    version.docName = message.docName;
    version.state = site::StateFromName(stateText);
    version.removed = removedUuids;
    std::transform(added.begin(), added.end(), std::back_inserter(version.added),
                   [](const KX_DATA::RichAttachment& file) {
                       return site::RichFile{file.name, {}, file.uuid, 0, file.kind};
                   });
    return version;
}

} // namespace

site::RichPlace RichPlaceOf(const KX_DATA::RichTextKey& key) {
    if (key.objectType == kAtIntersection) {
        return site::AtIntersection(key.projectId, key.objectId, key.subId);
    }
    if (key.objectType != kAtCheckpoint) {
        throw site::DataError(site::Fault::Refused,
                              site::FaultText(site::Fault::Refused, u"富文本类别"_s));
    }
    return site::AtCheckpoint(key.ownerId);
}

bool RichTextMsgMng::GetRichText(const KX_DATA::RichTextKey& key, KX_DATA::RichTextMsg& message,
                                 std::vector<KX_DATA::RichAttachment>& attachments) {
    return GuardedQuestion(u"读取富文本"_s, false, [&](HostSession& session) {
        const auto newest =
            session.Site().RichTexts().Newest(session.OpenPpids(), RichPlaceOf(key));
        RequireFound(newest.has_value(), u"富文本的位置"_s);
        message = RichMessageOf(*newest);
        attachments = message.attachments;
        return true;
    });
}

bool RichTextMsgMng::SaveRichText(const QString& stateText, const KX_DATA::RichTextMsg& message,
                                  const KX_DATA::RichTextKey& key,
                                  const std::vector<QString>& removedUuids,
                                  const std::vector<KX_DATA::RichAttachment>& added) {
    QString where;
    const bool isSaved = Guarded(u"保存富文本"_s, false, [&](HostSession& session) {
        site::IRichTexts& texts = session.Site().RichTexts();
        const site::Projects ppids = session.OpenPpids();
        // Before: nothing may fail once it is saved.
        where = texts.Where(ppids, RichPlaceOf(key)).value_or(QString());
        const auto saved =
            texts.Save(ppids, RichPlaceOf(key),
                       NewVersionOf(stateText, message, removedUuids, added), SignatureOf(session));
        RequireFound(saved.has_value(), u"富文本的位置"_s);
        return true;
    });
    LogIf(isSaved, u"保存富文本“%1”"_s.arg(where));
    return isSaved;
}

} // namespace host
