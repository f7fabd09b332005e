// Roads on which components are picked on the plan.
#pragma once

#include "tests/roads/ClientFixture.h"

namespace KX_DATA {
class IKXView;
}

namespace host {
class PickCanvas;
}

namespace roads {

/// The client with the first project open on floor "1": columns KZ-1 and KZ-2 at 1/A, KZ-3 at 2/B;
/// KZ-9 hangs on no floor.
class PickRoad : public ClientOnAFolder {
protected:
    void Furnish() override;
    void SetUp() override;

    [[nodiscard]] static KX_DATA::IKXView& View();
    [[nodiscard]] host::PickCanvas& Picks() const;
    /// Waits until the plan for picking is in sight.
    [[nodiscard]] bool IsPicking() const;
    void ClickComponent(const QString& handle, Qt::KeyboardModifiers modifiers = {}) const;
    void PressOnPicks(Qt::Key key) const;
    [[nodiscard]] static QStringList PickedHandles();
    [[nodiscard]] QString Status() const;
};

} // namespace roads
