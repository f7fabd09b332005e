#include "editors/PositionPicker.h"

#include "base/Guard.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "toolkit/controls/DropCombo.h"
#include "toolkit/controls/SelectionChange.h"
#include "toolkit/windows/PopTipDlg.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"

#include <utility>

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::EntryFor;
using ZelvorNRQ_KXVeskPicture::Guarded;
using ZelvorNRQ_KXVeskPicture::kNoEntry;

namespace {

void ShowAlone(DropCombo& combo, const QString& name) {
    combo.addItem(name);
    combo.setCurrentIndex(0);
}

/// Replaces the entries and selects the present name, or else the first, whose name is then the
/// present one.
void Refill(DropCombo& combo, const std::vector<QString>& names, QString& present) {
    combo.clear();
    for (const QString& name : names) {
        combo.addItem(name);
    }
    const qint32 entry = EntryFor(names, present);
    combo.setCurrentIndex(entry);
    if (entry != kNoEntry) {
        present = names[size_t(entry)];
    }
}

/// Asks a service while the wait cursor shows; raises `failure` unless it succeeds.
template <class Call> void Ask(e_VeskPicMngStatus failure, Call&& call) {
    const toolkit::WaitCursor wait;
    if (call(*GetVeskPicMng()) != KX_DATA::kServiceOk) {
        throw failure;
    }
}

} // namespace

PositionPicker::PositionPicker(CPopTipDlg& dialog, const Boxes& boxes, qint32 projectId,
                               ZelvorNRQ_KXVeskPicture::PicPlace& place)
    : m_dialog(dialog), m_boxes(boxes), m_projectId(projectId), m_place(place) {
    Connect();
}

void PositionPicker::Show() {
    // The whole lists are fetched when they drop down.
    ShowAlone(*m_boxes.floor, m_place.floorName);
    ShowAlone(*m_boxes.axisX, m_place.axisXName);
    ShowAlone(*m_boxes.axisY, m_place.axisYName);
}

// Each list is fetched once when it drops down, failed or not: the flag is set before the call. A
// choice leaves the flags alone, so that a list it has fetched is fetched once more; required as
// is.
void PositionPicker::Connect() {
    OnFirstDropDown(*m_boxes.floor, m_place.floorsLoaded, &PositionPicker::LoadFloors);
    OnFirstDropDown(*m_boxes.axisX, m_place.axesXLoaded, &PositionPicker::LoadAxesX);
    OnFirstDropDown(*m_boxes.axisY, m_place.axesYLoaded, &PositionPicker::LoadAxesY);
    // The entry that is chosen already moves nothing. A chosen Y axis is read when saving, and its
    // list, fetched once more, goes back to the first entry; required as is.
    toolkit::ConnectSelectionChange(m_boxes.floor, m_boxes.floor, [this](int) {
        Guarded(m_dialog.Id(), [this] { TakeFloor(); });
    });
    toolkit::ConnectSelectionChange(m_boxes.axisX, m_boxes.axisX, [this](int) {
        Guarded(m_dialog.Id(), [this] { TakeAxisX(); });
    });
}

void PositionPicker::OnFirstDropDown(DropCombo& box, bool& loaded, void (PositionPicker::*load)()) {
    QObject::connect(&box, &DropCombo::dropDown, &box, [this, &loaded, load] {
        if (!std::exchange(loaded, true)) {
            Guarded(m_dialog.Id(), [this, load] { (this->*load)(); });
        }
    });
}

void PositionPicker::TakeFloor() {
    m_place.floorName = m_boxes.floor->currentText();
    m_place.axisXName.clear();
    const toolkit::StillThere still(m_dialog.Id());
    LoadAxesX();
    if (still) {
        TakeAxisX();
    }
}

void PositionPicker::TakeAxisX() {
    m_place.axisXName = m_boxes.axisX->currentText();
    m_place.axisYName.clear();
    LoadAxesY();
}

void PositionPicker::LoadFloors() {
    const toolkit::StillThere still(m_dialog.Id());
    std::vector<QString> floors;
    Ask(e_VeskPicMngStatus::FloorsFailed,
        [&](KX_DATA::IVeskPicMng& photos) { return photos.GetProjectFloors(m_projectId, floors); });
    if (still) {
        Refill(*m_boxes.floor, floors, m_place.floorName);
    }
}

void PositionPicker::LoadAxesX() {
    const toolkit::StillThere still(m_dialog.Id());
    std::vector<QString> axes;
    Ask(e_VeskPicMngStatus::AxesFailed, [&](KX_DATA::IVeskPicMng& photos) {
        return photos.GetFloorAxesX(m_projectId, m_place.floorName, axes);
    });
    if (still) {
        Refill(*m_boxes.axisX, axes, m_place.axisXName);
    }
}

void PositionPicker::LoadAxesY() {
    m_place.positionKeys.clear();
    m_place.keysFetched = true;
    m_boxes.axisY->clear();
    const toolkit::StillThere still(m_dialog.Id());
    std::vector<KX_DATA::AxisYEntry> axes;
    Ask(e_VeskPicMngStatus::AxesFailed, [&](KX_DATA::IVeskPicMng& photos) {
        return photos.GetFloorAxesY(m_projectId, m_place.floorName, m_place.axisXName, axes);
    });
    if (!still) {
        return;
    }
    for (const auto& [name, positionKey] : axes) {
        m_boxes.axisY->addItem(name);
        m_place.positionKeys.push_back(positionKey);
    }
    m_boxes.axisY->setCurrentIndex(EntryFor(axes, m_place.axisYName));
}
