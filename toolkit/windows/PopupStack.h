// The toasts of the process: who stands where, who waits.
#pragma once

#include <QTimer>

#include <deque>
#include <memory>
#include <vector>

class CBCGPPopupWindow;

namespace toolkit {

/// Owns all toasts. Those in sight keep their places; one that is freed goes to who waits longest.
/// Who waits has no widget and ends when its time is over. Thread: user interface.
class PopupStack final {
public:
    /// Left to the process.
    [[nodiscard]] static PopupStack& Instance();

    void Take(std::unique_ptr<CBCGPPopupWindow> popup);
    /// Its window has ended: the place is free at once, the object dies when the events in progress
    /// have unwound.
    void Free(CBCGPPopupWindow& popup);
    void CloseAll();
    [[nodiscard]] int CountShown() const;
    [[nodiscard]] int CountWaiting() const { return int(m_waiting.size()); }

private:
    PopupStack();
    /// The first free place for it; -1: there is none.
    [[nodiscard]] int PlaceFor(const CBCGPPopupWindow& popup) const;
    void ShowWaiting();
    void Show(std::unique_ptr<CBCGPPopupWindow> popup, int place);

    std::vector<std::unique_ptr<CBCGPPopupWindow>> m_places; ///< null: free
    std::deque<std::unique_ptr<CBCGPPopupWindow>> m_waiting;
    QTimer m_soon; ///< shows who waits, later than the event in progress
};

} // namespace toolkit
