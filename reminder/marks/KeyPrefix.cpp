#include "reminder/marks/KeyPrefix.h"

#include <algorithm>

namespace {

constexpr char16_t kLastOfLatin = 0xFF;

} // namespace

void KeyPrefix::Finder::Add(const QString& key) {
    m_first = m_hasKeys ? std::min(m_first, key) : key;
    m_last = m_hasKeys ? std::max(m_last, key) : key;
    m_hasKeys = true;
    m_isLatin = m_isLatin && std::all_of(key.begin(), key.end(), [](QChar character) {
                    return character.unicode() <= kLastOfLatin;
                });
}

KeyPrefix KeyPrefix::Finder::Result() const {
    KeyPrefix prefix;
    // What the ends have in common, all between them have.
    const auto end =
        std::mismatch(m_first.begin(), m_first.end(), m_last.begin(), m_last.end()).first;
    prefix.m_common = m_first.left(end - m_first.begin());
    prefix.m_isLatin = m_isLatin;
    return prefix;
}

quint64 KeyPrefix::NumberOf(const QString& key) const {
    const int characters = m_isLatin ? 8 : 4;
    const int bits = m_isLatin ? 8 : 16;
    quint64 number = 0;
    for (qsizetype at = m_common.size(); at < m_common.size() + characters; ++at) {
        const char16_t character = at < key.size() ? key[at].unicode() : u'\0';
        // A key from elsewhere may have others; cut off, they keep their place at the end.
        number = (number << bits) | (m_isLatin ? std::min(character, kLastOfLatin) : character);
    }
    return number;
}
