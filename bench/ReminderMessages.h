// Reminder messages as a push channel brings them, very many and all different.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct ReminderMessage {
    bool isPicture = true;
    std::string json; ///< code page 936
};

/// Photos and issues in turn, each of some 300 bytes, with Chinese names and three labels.
[[nodiscard]] std::vector<ReminderMessage> MakeReminderMessages(int count);

} // namespace bench
