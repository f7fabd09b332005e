// Where a photo is: floor, X axis, Y axis, a cascade from left to right.
#pragma once

#include "editors/BimPicEdit.h"

class CPopTipDlg;
class DropCombo;

/// Fetches each list when it drops down, and behind a choice all lists to its right. What can't be
/// fetched is told in a message at the dialog.
///
/// Works on boxes of the dialog's window and keeps what is chosen in `place`; both outlive it.
/// Thread: user interface.
class PositionPicker final {
public:
    struct Boxes {
        DropCombo* floor = nullptr;
        DropCombo* axisX = nullptr;
        DropCombo* axisY = nullptr;
    };
    PositionPicker(CPopTipDlg& dialog, const Boxes& boxes, qint32 projectId,
                   ZelvorNRQ_KXVeskPicture::PicPlace& place);

    /// Shows the place as it is; fetches nothing.
    void Show();

private:
    void Connect();
    void OnFirstDropDown(DropCombo& box, bool& loaded, void (PositionPicker::*load)());
    void TakeFloor();
    void TakeAxisX();
    void LoadFloors();
    void LoadAxesX();
    void LoadAxesY();

    CPopTipDlg& m_dialog;
    Boxes m_boxes;
    qint32 m_projectId;
    ZelvorNRQ_KXVeskPicture::PicPlace& m_place;
};
