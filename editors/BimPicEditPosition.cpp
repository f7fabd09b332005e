// The place of the photo: floor, X axis, Y axis, a cascade from left to right.
#include "editors/BimPicEditDlg.h"

#include "base/Guard.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "toolkit/SelectionChange.h"
#include "toolkit/WaitCursor.h"
#include "ui_BimPicEditDlg.h"

#include <utility>

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
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
    const qint32 entry = ZelvorNRQ_KXVeskPicture::EntryFor(names, present);
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

void CBimPicEditDlg::FillPosition() {
    // The whole lists are fetched when they drop down.
    ShowAlone(*m_form->floorCombo, m_edit.floorName);
    ShowAlone(*m_form->axisXCombo, m_edit.axisXName);
    ShowAlone(*m_form->axisYCombo, m_edit.axisYName);
}

void CBimPicEditDlg::ConnectPosition() {
    QWidget* window = Widget();
    QObject::connect(m_form->floorCombo, &DropCombo::dropDown, window,
                     [this] { OnFloorDropDown(); });
    QObject::connect(m_form->axisXCombo, &DropCombo::dropDown, window,
                     [this] { OnAxisXDropDown(); });
    QObject::connect(m_form->axisYCombo, &DropCombo::dropDown, window,
                     [this] { OnAxisYDropDown(); });
    // The entry that is chosen already moves nothing. A chosen Y axis is read when saving, and its
    // list, fetched once more, goes back to the first entry; required as is.
    toolkit::ConnectSelectionChange(m_form->floorCombo, window, [this](int) { OnFloorChosen(); });
    toolkit::ConnectSelectionChange(m_form->axisXCombo, window, [this](int) { OnAxisXChosen(); });
}

// Each list is fetched once when it drops down, failed or not: the flag is set before the call. A
// choice leaves the flags alone, so that a list it has fetched is fetched once more; required as
// is.
void CBimPicEditDlg::OnFloorDropDown() {
    if (std::exchange(m_edit.floorsLoaded, true)) {
        return;
    }
    Guarded(Id(), [this] { LoadFloors(); });
}

void CBimPicEditDlg::OnAxisXDropDown() {
    if (std::exchange(m_edit.axesXLoaded, true)) {
        return;
    }
    Guarded(Id(), [this] { LoadAxesX(); });
}

void CBimPicEditDlg::OnAxisYDropDown() {
    if (std::exchange(m_edit.axesYLoaded, true)) {
        return;
    }
    Guarded(Id(), [this] { LoadAxesY(); });
}

void CBimPicEditDlg::OnFloorChosen() {
    Guarded(Id(), [this] {
        m_edit.floorName = m_form->floorCombo->currentText();
        m_edit.axisXName.clear();
        LoadAxesX();
        if (HasWindow()) {
            TakeAxisX();
        }
    });
}

void CBimPicEditDlg::OnAxisXChosen() {
    Guarded(Id(), [this] { TakeAxisX(); });
}

void CBimPicEditDlg::TakeAxisX() {
    m_edit.axisXName = m_form->axisXCombo->currentText();
    m_edit.axisYName.clear();
    LoadAxesY();
}

void CBimPicEditDlg::LoadFloors() {
    std::vector<QString> floors;
    Ask(e_VeskPicMngStatus::FloorsFailed, [&](KX_DATA::IVeskPicMng& photos) {
        return photos.GetProjectFloors(m_edit.projectId, floors);
    });
    if (HasWindow()) {
        Refill(*m_form->floorCombo, floors, m_edit.floorName);
    }
}

void CBimPicEditDlg::LoadAxesX() {
    std::vector<QString> axes;
    Ask(e_VeskPicMngStatus::AxesFailed, [&](KX_DATA::IVeskPicMng& photos) {
        return photos.GetFloorAxesX(m_edit.projectId, m_edit.floorName, axes);
    });
    if (HasWindow()) {
        Refill(*m_form->axisXCombo, axes, m_edit.axisXName);
    }
}

void CBimPicEditDlg::LoadAxesY() {
    m_edit.positionKeys.clear();
    m_edit.keysFetched = true;
    m_form->axisYCombo->clear();
    std::vector<KX_DATA::AxisYEntry> axes;
    Ask(e_VeskPicMngStatus::AxesFailed, [&](KX_DATA::IVeskPicMng& photos) {
        return photos.GetFloorAxesY(m_edit.projectId, m_edit.floorName, m_edit.axisXName, axes);
    });
    if (!HasWindow()) {
        return;
    }
    for (const auto& [name, positionKey] : axes) {
        m_form->axisYCombo->addItem(name);
        m_edit.positionKeys.push_back(positionKey);
    }
    m_form->axisYCombo->setCurrentIndex(ZelvorNRQ_KXVeskPicture::EntryFor(axes, m_edit.axisYName));
}
