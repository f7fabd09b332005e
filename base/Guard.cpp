#include "base/Guard.h"

#include "toolkit/KXTools.h"

namespace ZelvorNRQ_KXVeskPicture {

void ShowStatus(toolkit::WindowId parent, e_VeskPicMngStatus status) {
    KXTools::ShowMsgBox(parent, GetStatusMessage(status));
}

} // namespace ZelvorNRQ_KXVeskPicture
