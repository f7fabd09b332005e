// Small helpers under the names that the whole client uses.
#pragma once

#include "toolkit/ToolkitExport.h"
#include "toolkit/windows/WindowId.h"

#include <QString>

namespace KXTools {

/// What ShowQuestionBox answers for yes.
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;

/// A plain message box. Parent kNoWindow: none.
TOOLKIT_EXPORT void ShowMsgBox(toolkit::WindowId parent, const QString& text);
/// A question with yes and no: kYes or kNo.
TOOLKIT_EXPORT int ShowQuestionBox(toolkit::WindowId parent, const QString& text);

/// Start and end of the local day that holds a time. Seconds since 1970, in and out.
TOOLKIT_EXPORT void Set0Hour0Minute0Second(qint64& time);
TOOLKIT_EXPORT void Set23Hour59Minute59Second(qint64& time);

/// A time in local form: "yyyy-MM-dd HH:mm" and the same with seconds.
[[nodiscard]] TOOLKIT_EXPORT QString MinuteText(qint64 time);
[[nodiscard]] TOOLKIT_EXPORT QString SecondText(qint64 time);
/// A record's time as viewers show it, to the second; empty for 0, which is no time.
[[nodiscard]] TOOLKIT_EXPORT QString timeToCString(qint64 time);

} // namespace KXTools
