// Numbered events between the module's windows and the host's main window.
#pragma once

namespace ZelvorNRQ_KXVeskPicture {

/// Sent to the main window by a reverse lookup. First parameter 0; second: const QString* with
/// floor-mark-picture, borrowed for the time of the send.
inline constexpr int WM_VESK_PIC_LOCATE = 7529;
/// Posted to the main window when a drawing is looked up; shares the number above. First parameter
/// 3, which tells the two apart; second: drawing id.
inline constexpr int WM_VESK_PDF_LOCATE = 7529;
/// Posted to the reminder's window: reminders are ready; both parameters 0.
inline constexpr int WM_VESK_PIC_MSG = 7538;
inline constexpr int WM_VESK_TN_MSG = 7539;
/// Sent to the main window when the state of a rich text changed.
inline constexpr int WM_RICH_STATE_CHANGED = 7540;

/// Sent or posted to the console's window: what it lists was changed by somebody else; both
/// parameters 0. Windows of the module that don't know the number pass it over.
inline constexpr int WM_PIC_MNG_REFRESH = 1029;

} // namespace ZelvorNRQ_KXVeskPicture
