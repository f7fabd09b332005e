#include "base/StoredFile.h"

#include <QFileInfo>

#include <algorithm>

namespace ZelvorNRQ_KXVeskPicture {

namespace {

bool IsNameCharacter(QChar c) {
    const char16_t code = c.unicode();
    return (code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z') ||
           (code >= u'a' && code <= u'z') || code == u'-' || code == u'_';
}

} // namespace

bool IsUuid(const QString& text) {
    return !text.isEmpty() && text.size() <= kLongestUuid &&
           std::all_of(text.begin(), text.end(), IsNameCharacter);
}

QString StoredFilePath(const QString& folder, const QString& uuid, QStringView ending) {
    return IsUuid(uuid) ? folder + uuid + ending.toString() : QString();
}

bool IsFetched(const QString& path) {
    const QFileInfo file(path);
    return !path.isEmpty() && file.isFile() && file.size() > 0;
}

} // namespace ZelvorNRQ_KXVeskPicture
