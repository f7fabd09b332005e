#include "site/IssueCode.h"

namespace site {

using namespace Qt::StringLiterals;

QString IssueCodeStart() {
    return u"kxissue:1:"_s;
}

QString IssueCode(qint32 ppid, const QString& id) {
    return IssueCodeStart() + QString::number(ppid) + u':' + id;
}

std::optional<IssueRef> ReadIssueCode(const QString& text) {
    if (!text.startsWith(IssueCodeStart())) {
        return std::nullopt;
    }
    const QString rest = text.sliced(IssueCodeStart().size());
    bool isNumber = false;
    const IssueRef ref{rest.section(u':', 0, 0).toInt(&isNumber), rest.section(u':', 1)};
    return isNumber && ref.ppid > 0 && !ref.questionId.isEmpty() ? std::optional(ref)
                                                                 : std::nullopt;
}

} // namespace site
