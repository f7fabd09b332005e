#include "editors/EditorOpening.h"

#include "base/Guard.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"

namespace ZelvorNRQ_KXVeskPicture {

void FillAtOpening(const toolkit::WindowObject& dialog, const std::function<void()>& fill) {
    const toolkit::WindowId window = dialog.Id();
    const toolkit::StillThere still(window);
    const auto fault = CatchStatus([&] {
        const toolkit::WaitCursor wait;
        fill();
    });
    if (fault && still) {
        QMetaObject::invokeMethod(
            dialog.Widget(), [window, fault] { ShowStatus(window, *fault); }, Qt::QueuedConnection);
    }
}

} // namespace ZelvorNRQ_KXVeskPicture
