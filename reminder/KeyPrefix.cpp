#include "reminder/KeyPrefix.h"

#include <algorithm>

namespace {

constexpr char16_t kLastOfLatin = 0xFF;

} // namespace

void KeyPrefix::Finder::Add(const QString& key) {
    first = hasKeys ? std::min(first, key) : key;
    last = hasKeys ? std::max(last, key) : key;
    hasKeys = true;
    isLatin = isLatin && std::all_of(key.begin(), key.end(), [](QChar character) {
                  return character.unicode() <= kLastOfLatin;
              });
}

KeyPrefix KeyPrefix::Finder::Result() const {
    KeyPrefix prefix;
    // What the ends have in common, all between them have.
    const auto end = std::mismatch(first.begin(), first.end(), last.begin(), last.end()).first;
    prefix.common = first.left(end - first.begin());
    prefix.isLatin = isLatin;
    return prefix;
}

quint64 KeyPrefix::NumberOf(const QString& key) const {
    const int characters = isLatin ? 8 : 4;
    const int bits = isLatin ? 8 : 16;
    quint64 number = 0;
    for (qsizetype at = common.size(); at < common.size() + characters; ++at) {
        const char16_t character = at < key.size() ? key[at].unicode() : u'\0';
        // A key from elsewhere may have others; cut off, they keep their place at the end.
        number = (number << bits) | (isLatin ? std::min(character, kLastOfLatin) : character);
    }
    return number;
}
