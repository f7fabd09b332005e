#include "host/services/AuthServices.h"

#include "toolkit/GbkText.h"

namespace host {

namespace {

std::string SignedInName(const HostSession* session) {
    return session != nullptr ? toolkit::ToGbk(session->UserName()) : std::string();
}

} // namespace

void AuthMng::GetUserName(std::string& name) {
    name = SignedInName(Around().Session());
}

bool AuthMng::HasRight(qint32 right) {
    const HostSession* session = Around().Session();
    return session != nullptr && session->HasRight(right);
}

KX_DATA::LoginInfo ActingUser::GetLoginInfo() {
    // Uploads ask from a thread of their own.
    const auto desk = Around().Desk();
    return {desk != nullptr ? toolkit::ToGbk(desk->WhoActs().person) : std::string()};
}

bool RichEditorAuth::IsRichTextReadOnly() {
    const HostSession* session = Around().Session();
    return session == nullptr || !session->HasRight(KX_DATA::kRightEdit);
}

} // namespace host
