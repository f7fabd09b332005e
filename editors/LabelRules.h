// What may become a label of a photo.
#pragma once

#include "base/Status.h"

#include <QString>

#include <optional>
#include <vector>

namespace ZelvorNRQ_KXVeskPicture {

/// A text with the place of its cursor, counted from 0.
struct TypedText {
    QString text;
    int cursor = 0;
    bool operator==(const TypedText&) const = default;
};

/// Labels are typed without blanks (U+0020).
[[nodiscard]] bool HasBlank(const QString& text);
/// Without its first blank; the cursor stays at its character. Unchanged if there is none.
[[nodiscard]] TypedText WithoutFirstBlank(const TypedText& typed);

/// Why a text can't become a label beside those that are there: LabelEmpty, LabelExists (compared
/// exactly); none if it can.
[[nodiscard]] std::optional<e_VeskPicMngStatus> NewLabelFault(const QString& label,
                                                              const std::vector<QString>& present);

} // namespace ZelvorNRQ_KXVeskPicture
