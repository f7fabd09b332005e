#include "tests/support/services/ScriptedRichTexts.h"

#include "tests/support/ArgText.h"
#include "tests/support/services/ScriptedDrawings.h"
#include "tests/support/services/ScriptedVeskPicMng.h"

#include <QCryptographicHash>

#include <algorithm>
#include <tuple>

namespace support {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kRichOfIntersection = 1;
constexpr qint32 kRichOfCheckpoint = 2;
constexpr qint32 kRichPage = 1;
const QString kRichEveryState = u"全部"_s;

QString RichPlaceOf(const KX_DATA::BimPicRow& row) {
    return u"1 %1 %2 %3"_s.arg(row.ppid).arg(row.positionKey).arg(row.markId);
}

/// The record's names are crossed: its drawing is the point.
QString RichPlaceOf(const KX_DATA::PdfPicRecord& row) {
    return u"2 %1"_s.arg(row.drawingId);
}

bool IsRichName(const QString& name) {
    return !name.trimmed().isEmpty() && name.size() <= 255 && name != u"."_s && name != u".."_s &&
           std::none_of(name.begin(), name.end(), [](QChar letter) {
               return letter.unicode() < 0x20 || letter.unicode() == 0x7f ||
                      u"/\\:"_s.contains(letter);
           });
}

/// The state of the newest of them; null without any.
template <class Rows, class TimeOf>
QString NewestState(const Rows& rows, const QString& place, TimeOf timeOf) {
    using Row = typename Rows::value_type;
    const Row* newest = nullptr;
    for (const Row& row : rows) {
        if (RichPlaceOf(row) == place && (newest == nullptr || timeOf(*newest) <= timeOf(row))) {
            newest = &row;
        }
    }
    return newest != nullptr ? newest->rectifyText : QString();
}

template <class Rows>
void SetRichStates(Rows& rows, const QString& place, const QString& stateText) {
    for (auto& row : rows) {
        if (RichPlaceOf(row) == place) {
            row.rectifyText = stateText;
        }
    }
}

} // namespace

bool ScriptedRichTextMsgMng::Judges() const {
    return pics != nullptr && pics->judges;
}

std::optional<ScriptedRichTextMsgMng::Place>
ScriptedRichTextMsgMng::PlaceOf(const KX_DATA::RichTextKey& key) const {
    if (key.objectType == kRichOfIntersection && pics->IsOpen(key.projectId)) {
        return u"1 %1 %2 %3"_s.arg(key.projectId).arg(key.objectId).arg(key.subId);
    }
    if (key.objectType == kRichOfCheckpoint && drawings->IsThere(key.ownerId)) {
        return u"2 %1"_s.arg(key.ownerId);
    }
    return std::nullopt;
}

bool ScriptedRichTextMsgMng::IsThere(const KX_DATA::RichTextKey& key) const {
    const std::optional<Place> place = PlaceOf(key);
    if (!place || key.objectType == kRichOfCheckpoint || m_newest.contains(*place)) {
        return place.has_value();
    }
    const auto& rows = pics->bimPics;
    const bool hasPhoto = std::any_of(rows.begin(), rows.end(),
                                      [&](const auto& row) { return RichPlaceOf(row) == *place; });
    const auto& positions = pics->model->positions;
    const bool hasPosition =
        std::any_of(positions.begin(), positions.end(), [&](const ScriptedPosition& position) {
            return position.key == key.objectId && position.ppid == key.projectId;
        });
    return hasPhoto || (hasPosition && (key.subId == 0 || pics->markTable.contains(key.subId)));
}

QString ScriptedRichTextMsgMng::StateOf(const Place& place) const {
    const auto saved = m_newest.find(place);
    if (saved != m_newest.end()) {
        return saved->second.stateText;
    }
    QString state = NewestState(pics->bimPics, place, [](const KX_DATA::BimPicRow& row) {
        return std::tuple(std::max(row.updateStamp, row.uploadStamp), row.picId);
    });
    if (state.isNull()) {
        state = NewestState(pics->pdfPics, place, [](const KX_DATA::PdfPicRecord& row) {
            return std::tuple(std::max(row.updateTime, row.uploadTime), row.picId);
        });
    }
    return state.isNull() ? pics->stateNames.at(1) : state;
}

QString ScriptedRichTextMsgMng::StateOfNew(const KX_DATA::BimPicRow& row,
                                           const QString& own) const {
    const auto saved = m_newest.find(RichPlaceOf(row));
    return saved != m_newest.end() ? saved->second.stateText : own;
}

QString ScriptedRichTextMsgMng::StateOfNew(const KX_DATA::PdfPicRecord& row,
                                           const QString& own) const {
    const auto saved = m_newest.find(RichPlaceOf(row));
    return saved != m_newest.end() ? saved->second.stateText : own;
}

bool ScriptedRichTextMsgMng::GetRichText(const KX_DATA::RichTextKey& key,
                                         KX_DATA::RichTextMsg& target,
                                         std::vector<KX_DATA::RichAttachment>& attachments) {
    lastKey = key;
    if (!m_script.Call("GetRichText", {Arg("id", key.objectId)})) {
        return false;
    }
    if (!Judges()) {
        target = message;
    } else {
        const std::optional<Place> place = PlaceOf(key);
        if (!place) {
            return false;
        }
        const auto saved = m_newest.find(*place);
        target = saved != m_newest.end() ? saved->second : KX_DATA::RichTextMsg{};
        target.stateText = StateOf(*place);
    }
    attachments = target.attachments;
    if (filesInListOnly) {
        target.attachments.clear();
    }
    return true;
}

bool ScriptedRichTextMsgMng::MayAdd(const Place& place, const KX_DATA::RichAttachment& file) const {
    const auto owner = m_owners.find(file.uuid);
    return IsRichName(file.name) && stored->contains(file.uuid) &&
           (owner == m_owners.end() || owner->second == place);
}

KX_DATA::RichAttachment
ScriptedRichTextMsgMng::StoredAs(const KX_DATA::RichAttachment& file) const {
    const QByteArray& bytes = stored->at(file.uuid);
    KX_DATA::RichAttachment known = file;
    known.md5 =
        QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
    known.size = qint32(bytes.size());
    return known;
}

bool ScriptedRichTextMsgMng::SaveRichText(const QString& stateText,
                                          const KX_DATA::RichTextMsg& saved,
                                          const KX_DATA::RichTextKey& key,
                                          const std::vector<QString>& removedUuids,
                                          const std::vector<KX_DATA::RichAttachment>& added) {
    lastSaved = saved;
    lastKey = key;
    lastAdded = added;
    const bool succeeds = m_script.Call(
        "SaveRichText", {Arg("id", key.objectId), Arg("state", stateText),
                         Arg("removed", removedUuids), Arg("added", qint32(added.size()))});
    if (!succeeds || !Judges()) {
        return succeeds;
    }
    const auto place = IsThere(key) ? PlaceOf(key) : std::nullopt;
    if (!place || !Takes(*place, stateText, saved, added)) {
        return false;
    }
    KX_DATA::RichTextMsg made;
    made.attachments = NextFiles(*place, saved.versionText, removedUuids, added);
    const bool hasPage = std::any_of(made.attachments.begin(), made.attachments.end(),
                                     [](const auto& file) { return file.kind == kRichPage; });
    if (hasPage && saved.docName.isEmpty()) {
        return false;
    }
    made.docName = hasPage ? saved.docName : QString();
    made.editorName = pics->changer;
    made.stateText = stateText;
    made.versionText = u"version-%1"_s.arg(m_versions.size() + 1);
    m_versions[made.versionText] = {*place, made.attachments};
    m_newest[*place] = made;
    SetRichStates(pics->bimPics, *place, stateText);
    SetRichStates(pics->pdfPics, *place, stateText);
    return true;
}

bool ScriptedRichTextMsgMng::Takes(const Place& place, const QString& stateText,
                                   const KX_DATA::RichTextMsg& saved,
                                   const std::vector<KX_DATA::RichAttachment>& added) const {
    const auto& names = pics->stateNames;
    const auto base = m_versions.find(saved.versionText);
    const bool isState = stateText != kRichEveryState &&
                         std::find(names.begin(), names.end(), stateText) != names.end();
    const bool isBase =
        saved.versionText.isEmpty() || (base != m_versions.end() && base->second.place == place);
    return isState && isBase && (saved.docName.isEmpty() || IsRichName(saved.docName)) &&
           std::all_of(added.begin(), added.end(),
                       [&](const auto& file) { return MayAdd(place, file); });
}

std::vector<KX_DATA::RichAttachment>
ScriptedRichTextMsgMng::NextFiles(const Place& place, const QString& base,
                                  const std::vector<QString>& removedUuids,
                                  const std::vector<KX_DATA::RichAttachment>& added) {
    std::vector<KX_DATA::RichAttachment> files = m_versions[base].attachments;
    const auto remove = [&](const QString& uuid) {
        std::erase_if(files, [&](const auto& file) { return file.uuid == uuid; });
    };
    std::for_each(removedUuids.begin(), removedUuids.end(), remove);
    for (const KX_DATA::RichAttachment& file : added) {
        remove(file.uuid);
        files.push_back(StoredAs(file));
        m_owners[file.uuid] = place;
    }
    return files;
}

void ScriptedRichTextDrafts::Keep(const KX_DATA::RichTextDraft& draft) {
    if (m_script.Call("KeepDraft", {Arg("id", draft.key.objectId), Arg("state", draft.stateText),
                                    Arg("files", qint32(draft.files.size()))})) {
        DropOpen(draft.key, draft.docName);
        kept.push_back(draft);
        m_people.push_back(person != nullptr ? *person : std::string());
    }
}

// Both come by the clock, so they are no calls of a script.
void ScriptedRichTextDrafts::KeepOpen(const KX_DATA::RichTextDraft& draft) {
    DropOpen(draft.key, draft.docName);
    open.push_back(draft);
}

void ScriptedRichTextDrafts::DropOpen(const KX_DATA::RichTextKey& key, const QString& docName) {
    std::erase_if(open, [&](const KX_DATA::RichTextDraft& draft) {
        return draft.docName == docName && draft.key.objectId == key.objectId;
    });
}

std::vector<KX_DATA::RichTextDraft> ScriptedRichTextDrafts::Of(const std::string& name) const {
    std::vector<KX_DATA::RichTextDraft> drafts;
    for (size_t i = kept.size(); i > 0; --i) {
        if (m_people[i - 1] == name) {
            drafts.push_back(kept[i - 1]);
        }
    }
    return drafts;
}

} // namespace support
