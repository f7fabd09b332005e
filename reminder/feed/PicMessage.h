// Reminder messages as the host's push channel brings them: JSON, one record each. Their size is
// limited in MessageText.h.
#pragma once

#include "services/PicRecords.h"

#include <vector>

namespace reminder {

/// A message whose objects and arrays lie deeper in each other is void before it is parsed: the
/// reader goes down by recursion.
inline constexpr int kDeepest = 32;

/// Appends the record of a photo message. False, and nothing appended, for a project that isn't
/// open, and for what is no such message: malformed JSON (RFC 8259), a missing key, an id that is
/// no integer. Numbers are read as text and converted, so 12 and "12" are the same; of a key that
/// comes twice the first counts. Every key is required. Thread: any.
[[nodiscard]] bool ReadPicMessage(const QString& json, const std::vector<qint32>& openProjects,
                                  std::vector<KX_DATA::PicMsgRecord>& records);

/// The same for an issue message.
[[nodiscard]] bool ReadIssueMessage(const QString& json, const std::vector<qint32>& openProjects,
                                    std::vector<KX_DATA::PicMsgRecord>& records);

} // namespace reminder
