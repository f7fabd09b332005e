#include "host/ui/rich/PageText.h"

#include "toolkit/richtext/NoteHtml.h"

namespace host {

using namespace Qt::StringLiterals;

QString FaultOf(const PageText& page) {
    if (page.isThere) {
        return {};
    }
    return page.fault.isEmpty() ? u"内容已不存在"_s : page.fault;
}

QString FaultText(toolkit::NoteFault fault) {
    switch (fault) {
    case toolkit::NoteFault::TooLarge:
        return u"内容过长"_s;
    case toolkit::NoteFault::TooDeep:
        return u"内容嵌套过深"_s;
    case toolkit::NoteFault::None:
        break;
    }
    return {};
}

QString FaultSentence(const QString& what, QString reason) {
    while (reason.endsWith(u'。')) {
        reason.chop(1);
    }
    return u"无法读取%1：%2。请稍后按 F5 重试。"_s.arg(what, reason);
}

QString PictureFolder(const QString& folder) {
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

} // namespace host
