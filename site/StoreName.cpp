#include "site/StoreName.h"

#include <QUuid>

#include <algorithm>

namespace site {

using namespace Qt::StringLiterals;

bool IsStoreName(const QString& uuid) {
    constexpr qsizetype kLongest = 64;
    return !uuid.isEmpty() && uuid.size() <= kLongest &&
           std::all_of(uuid.begin(), uuid.end(), [](QChar letter) {
               const char16_t code = letter.unicode();
               return (code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z') ||
                      (code >= u'a' && code <= u'z') || code == u'_' || code == u'-';
           });
}

bool IsGivenName(const QString& uuid) {
    const QUuid read = QUuid::fromString(uuid);
    return !read.isNull() && read.toString(QUuid::WithoutBraces) == uuid;
}

QString NewStoreName() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

bool IsPlainFileName(const QString& name) {
    constexpr qsizetype kLongest = 255;
    const bool dots = name == u"."_s || name == u".."_s;
    return !name.trimmed().isEmpty() && name.size() <= kLongest && !dots &&
           std::none_of(name.begin(), name.end(), [](QChar letter) {
               return letter.unicode() < 0x20 || letter.unicode() == 0x7f || letter == u'/' ||
                      letter == u'\\' || letter == u':';
           });
}

} // namespace site
