// Rich texts that were written and not saved.
#pragma once

#include "host/services/SiteService.h"
#include "services/IRichTextDrafts.h"

namespace host {

/// Over the session's site, for the person who is signed in. What is kept is told to the person.
/// Thread: user interface.
class RichTextDrafts final : public KX_DATA::IRichTextDrafts, private SiteService {
public:
    using SiteService::SiteService;

    void Keep(const KX_DATA::RichTextDraft& draft) override;
    void KeepOpen(const KX_DATA::RichTextDraft& draft) override;
    void DropOpen(const KX_DATA::RichTextKey& key, const QString& docName) override;
};

/// What the person is told of a text that is kept.
[[nodiscard]] QString DraftKeptText();

} // namespace host
