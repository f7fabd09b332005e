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

/// Whoever uses this client has rich texts.
class RichEditorAuth final : public KX_DATA::IRichEditorAuth, private SiteService {
public:
    using SiteService::SiteService;

    bool IsRichTextEnabled() override { return true; }
    /// Whoever may not edit photos reads.
    bool IsRichTextReadOnly() override;
};

} // namespace host
