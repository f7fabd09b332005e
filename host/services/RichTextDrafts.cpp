#include "host/services/RichTextDrafts.h"

#include "site/IDrafts.h"

namespace host {

using namespace Qt::StringLiterals;

void RichTextDrafts::Keep(const KX_DATA::RichTextDraft& draft) {
    Guarded(u"保存草稿"_s, false, [&](HostSession& session) {
        session.Site().Drafts().Keep(draft, session.UserName());
        session.Desk()->Report(MessageLevel::Info,
                               u"未保存的富文本已放入草稿箱，可以从“文件”菜单的“草稿箱”恢复。"_s);
        return true;
    });
}

} // namespace host
