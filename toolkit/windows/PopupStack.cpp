#include "toolkit/windows/PopupStack.h"

#include "toolkit/windows/PopupPlaces.h"
#include "toolkit/windows/PopupWindow.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace toolkit {

namespace {

/// That of the main window.
QRect ScreenPlace() {
    const QWidget* main = WidgetOf(MainWindow());
    const QScreen* screen = main != nullptr ? main->screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

} // namespace

PopupStack& PopupStack::Instance() {
    static PopupStack& stack = *new PopupStack;
    return stack;
}

PopupStack::PopupStack() {
    m_soon.setSingleShot(true);
    QObject::connect(&m_soon, &QTimer::timeout, &m_soon, [this] { ShowWaiting(); });
}

int PopupStack::PlaceFor(const CBCGPPopupWindow& popup) const {
    const int capacity = PopupCapacity(ScreenPlace(), popup.FrameSize());
    for (int place = 0; place < capacity; ++place) {
        if (place >= int(m_places.size()) || m_places[size_t(place)] == nullptr) {
            return place;
        }
    }
    return -1;
}

void PopupStack::Take(std::unique_ptr<CBCGPPopupWindow> popup) {
    const int place = m_waiting.empty() ? PlaceFor(*popup) : -1;
    if (place < 0) {
        m_waiting.push_back(std::move(popup));
    } else {
        Show(std::move(popup), place);
    }
}

void PopupStack::Show(std::unique_ptr<CBCGPPopupWindow> popup, int place) {
    CBCGPPopupWindow& shown = *popup;
    m_places.resize(std::max(m_places.size(), size_t(place) + 1));
    m_places[size_t(place)] = std::move(popup);
    shown.ShowAt(PopupPlace(ScreenPlace(), shown.FrameSize(), place));
}

void PopupStack::ShowWaiting() {
    while (!m_waiting.empty()) {
        if (m_waiting.front()->IsOver()) {
            m_waiting.pop_front();
            continue;
        }
        const int place = PlaceFor(*m_waiting.front());
        if (place < 0) {
            return;
        }
        auto popup = std::move(m_waiting.front());
        m_waiting.pop_front();
        Show(std::move(popup), place);
    }
}

void PopupStack::Free(CBCGPPopupWindow& popup) {
    const auto at = std::find_if(m_places.begin(), m_places.end(),
                                 [&](const auto& taken) { return taken.get() == &popup; });
    if (at == m_places.end()) {
        return;
    }
    // Whoever closes it may be one of its own handlers.
    QTimer::singleShot(0, [dead = std::shared_ptr<CBCGPPopupWindow>(std::move(*at))] {});
    m_soon.start(0);
}

void PopupStack::CloseAll() {
    m_waiting.clear();
    for (size_t place = 0; place < m_places.size(); ++place) {
        if (m_places[place] != nullptr) {
            m_places[place]->Destroy();
        }
    }
}

int PopupStack::CountShown() const {
    return int(std::count_if(m_places.begin(), m_places.end(),
                             [](const auto& popup) { return popup != nullptr; }));
}

} // namespace toolkit
