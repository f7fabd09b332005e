// Who is signed in, and what they may do.
#pragma once

#include "host/services/SiteService.h"
#include "services/IKXAuthMng.h"
#include "services/IRichEditorAuth.h"

namespace host {

class AuthMng final : public KX_DATA::IKXAuthMng, private SiteService {
public:
    using SiteService::SiteService;

    void GetUserName(std::string& name) override;
    bool HasRight(qint32 right) override;
};

/// Thread: any.
class ActingUser final : public KX_DATA::INRQAuthMng, private SiteService {
public:
    using SiteService::SiteService;

    KX_DATA::LoginInfo GetLoginInfo() override;
};

/// Rich text isn't built yet: viewers come without its pane.
class RichEditorAuth final : public KX_DATA::IRichEditorAuth {
public:
    bool IsRichTextEnabled() override { return false; }
    bool IsRichTextReadOnly() override { return true; }
};

} // namespace host
