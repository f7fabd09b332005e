#include "reminder/feed/MessageText.h"

#include "toolkit/GbkText.h"

namespace reminder {

std::optional<QString> MessageText(const std::string& json) {
    if (json.empty() || json.size() > kMostBytes) {
        return std::nullopt;
    }
    return toolkit::FromGbk(json);
}

} // namespace reminder
