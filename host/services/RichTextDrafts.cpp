#include "host/services/RichTextDrafts.h"

#include "site/IDrafts.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

const QString kKeepingOpen = u"自动保存草稿"_s;

} // namespace

QString DraftKeptText() {
    return u"未保存的富文本已放入草稿箱，可以从“文件”菜单的“草稿箱”恢复。"_s;
}

void RichTextDrafts::Keep(const KX_DATA::RichTextDraft& draft) {
    Guarded(u"保存草稿"_s, false, [&](HostSession& session) {
        session.Site().Drafts().Keep(draft, session.UserName());
        session.Desk()->Report(MessageLevel::Info, DraftKeptText());
        return true;
    });
}

void RichTextDrafts::KeepOpen(const KX_DATA::RichTextDraft& draft) {
    Guarded(kKeepingOpen, false, [&](HostSession& session) {
        session.Site().Drafts().KeepOpen(draft, session.UserName());
        return true;
    });
}

void RichTextDrafts::DropOpen(const KX_DATA::RichTextKey& key, const QString& docName) {
    Guarded(kKeepingOpen, false, [&](HostSession& session) {
        session.Site().Drafts().DropOpen(key, docName, session.UserName());
        return true;
    });
}

} // namespace host
