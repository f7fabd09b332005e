// Rich texts on records in memory.
#pragma once

#include "services/IRichTextDrafts.h"
#include "services/IRichTextMsgMng.h"
#include "services/PicRecords.h"
#include "tests/support/Reserved.h"
#include "tests/support/Script.h"

#include <QByteArray>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace support {

class ScriptedPDFDrawingMng;
class ScriptedVeskPicMng;

/// With photos that judge it keeps a record for each place as a site does; else, for tests of what
/// is sent, all places have the same one and saves change nothing.
class ScriptedRichTextMsgMng final : public WithReserved1<KX_DATA::IRichTextMsgMng> {
public:
    explicit ScriptedRichTextMsgMng(Script& script) : m_script(script) {}

    KX_DATA::RichTextMsg message; ///< of every object
    /// Files are given in the list alone, and the record comes without them.
    bool filesInListOnly = false;
    KX_DATA::RichTextMsg lastSaved;
    KX_DATA::RichTextKey lastKey; ///< of a question or a save
    std::vector<KX_DATA::RichAttachment> lastAdded;

    ScriptedVeskPicMng* pics = nullptr; ///< whose states follow
    ScriptedPDFDrawingMng* drawings = nullptr;
    const std::map<QString, QByteArray>* stored = nullptr; ///< what was uploaded, by uuid

    bool GetRichText(const KX_DATA::RichTextKey& key, KX_DATA::RichTextMsg& target,
                     std::vector<KX_DATA::RichAttachment>& attachments) override;
    bool SaveRichText(const QString& stateText, const KX_DATA::RichTextMsg& saved,
                      const KX_DATA::RichTextKey& key, const std::vector<QString>& removedUuids,
                      const std::vector<KX_DATA::RichAttachment>& added) override;

    /// What a photo that is filed now shows: the state of its place, else its own.
    [[nodiscard]] QString StateOfNew(const KX_DATA::BimPicRow& row, const QString& own) const;
    [[nodiscard]] QString StateOfNew(const KX_DATA::PdfPicRecord& row, const QString& own) const;

private:
    /// Tells a place from others.
    using Place = QString;
    [[nodiscard]] bool Judges() const;
    /// Nothing for one that isn't open.
    [[nodiscard]] std::optional<Place> PlaceOf(const KX_DATA::RichTextKey& key) const;
    /// Whether something may be written there.
    [[nodiscard]] bool IsThere(const KX_DATA::RichTextKey& key) const;
    [[nodiscard]] QString StateOf(const Place& place) const;
    [[nodiscard]] bool MayAdd(const Place& place, const KX_DATA::RichAttachment& file) const;
    [[nodiscard]] bool Takes(const Place& place, const QString& stateText,
                             const KX_DATA::RichTextMsg& saved,
                             const std::vector<KX_DATA::RichAttachment>& added) const;
    [[nodiscard]] std::vector<KX_DATA::RichAttachment>
    NextFiles(const Place& place, const QString& base, const std::vector<QString>& removedUuids,
              const std::vector<KX_DATA::RichAttachment>& added);
    [[nodiscard]] KX_DATA::RichAttachment StoredAs(const KX_DATA::RichAttachment& file) const;

    Script& m_script;
    std::map<Place, KX_DATA::RichTextMsg> m_newest;
    struct Version {
        Place place;
        std::vector<KX_DATA::RichAttachment> attachments;
    };
    std::map<QString, Version> m_versions; ///< by their texts; one without files has none
    std::map<QString, Place> m_owners;     ///< of files, by uuid
};

class ScriptedRichTextDrafts final : public KX_DATA::IRichTextDrafts {
public:
    explicit ScriptedRichTextDrafts(Script& script) : m_script(script) {}

    std::vector<KX_DATA::RichTextDraft> kept;
    std::vector<KX_DATA::RichTextDraft> open; ///< still being written
    const std::string* person = nullptr;      ///< who is signed in; null: nobody asks

    /// The latest first.
    [[nodiscard]] std::vector<KX_DATA::RichTextDraft> Of(const std::string& name) const;

    void Keep(const KX_DATA::RichTextDraft& draft) override;
    void KeepOpen(const KX_DATA::RichTextDraft& draft) override;
    void DropOpen(const KX_DATA::RichTextKey& key, const QString& docName) override;

private:
    std::vector<std::string> m_people; ///< of what is kept
    Script& m_script;
};

} // namespace support
