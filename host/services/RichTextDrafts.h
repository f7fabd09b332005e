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
};

} // namespace host
