// The records of places: what is written there, and how far they are rectified.
#pragma once

#include "host/services/SiteService.h"
#include "services/IRichTextMsgMng.h"
#include "site/IRichTexts.h"

namespace host {

/// The viewers fill in what they have at hand: with an intersection its project or a checkpoint as
/// owner, with a checkpoint a key and a mark or none. What doesn't name the place is left aside, so
/// that all of them find the same record. Throws DataError for a key of no kind.
[[nodiscard]] site::RichPlace RichPlaceOf(const KX_DATA::RichTextKey& key);

class RichTextMsgMng final : public KX_DATA::IRichTextMsgMng, private SiteService {
public:
    using SiteService::SiteService;

    void Reserved1() override {}
    /// The record is filled with its attachments; what it held before is gone then.
    bool GetRichText(const KX_DATA::RichTextKey& key, KX_DATA::RichTextMsg& message,
                     std::vector<KX_DATA::RichAttachment>& attachments) override;
    bool SaveRichText(const QString& stateText, const KX_DATA::RichTextMsg& message,
                      const KX_DATA::RichTextKey& key, const std::vector<QString>& removedUuids,
                      const std::vector<KX_DATA::RichAttachment>& added) override;
};

} // namespace host
