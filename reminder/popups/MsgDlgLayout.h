// Where the parts of a toast stand.
#pragma once

#include <QRect>
#include <QSize>

namespace reminder {

/// The size of a dialog unit's base: a character of the dialog's font, in device-independent
/// pixels.
struct DialogBase {
    int width = 0;
    int height = 0;
};

/// Parts of the dialog from top to bottom.
enum class MsgPart { First, Second, Third, Fourth, Fifth, PreviewCaption, Preview, Button };
inline constexpr int kMsgParts = 8;

[[nodiscard]] QSize MsgDlgSize(const DialogBase& base);
/// On a toast of an issue the second line stands 8 pixels lower and the fourth 8 higher.
[[nodiscard]] QRect PlaceOf(MsgPart part, bool isIssue, const DialogBase& base);

} // namespace reminder
