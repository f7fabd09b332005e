#include "console/RecentKeywords.h"

#include <algorithm>

namespace {

constexpr size_t kFullCount = 5;
constexpr size_t kDroppedIndex = 6;

} // namespace

std::vector<QString> WithRecentKeyword(std::vector<QString> entries, const QString& keyword) {
    if (keyword.isEmpty()) {
        return entries;
    }
    const size_t count = entries.size();
    const auto known = std::find(entries.begin(), entries.end(), keyword);
    if (known != entries.end()) {
        entries.erase(known);
    }
    entries.insert(entries.begin(), keyword);
    // The count from before decides; a keyword that was in a full list leaves nothing at the index.
    if (count > kFullCount && entries.size() > kDroppedIndex) {
        entries.erase(entries.begin() + kDroppedIndex);
    }
    return entries;
}

QString EffectiveKeyword(const QString& boxText, const QString& hint) {
    const QString keyword = boxText.trimmed();
    return keyword == hint ? QString() : keyword;
}
