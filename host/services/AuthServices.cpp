#include "host/services/AuthServices.h"

#include "host/session/HostSession.h"
#include "toolkit/GbkText.h"

namespace host {

namespace {

std::string SignedInName() {
    const HostSession* session = HostSession::Current();
    return session != nullptr ? toolkit::ToGbk(session->UserName()) : std::string();
}

} // namespace

void AuthMng::GetUserName(std::string& name) {
    name = SignedInName();
}

bool AuthMng::HasRight(qint32 right) {
    const HostSession* session = HostSession::Current();
    return session != nullptr && session->HasRight(right);
}

KX_DATA::LoginInfo ActingUser::GetLoginInfo() {
    return {SignedInName()};
}

} // namespace host
