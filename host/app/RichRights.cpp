#include "host/app/RichRights.h"

#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IRichEditorAuth.h"

namespace host {

using namespace Qt::StringLiterals;

QString LackOfRichRight() {
    if (GetRichEditorAuth()->IsRichTextReadOnly()) {
        return u"您没有编辑权限，请联系管理员。"_s;
    }
    if (GetKXGlobalData()->IsWorksetMode()) {
        return u"工作集中不能修改记录，请先打开单个工程。"_s;
    }
    return {};
}

} // namespace host
