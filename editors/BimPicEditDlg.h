// The editor of one BIM photo.
#pragma once

#include "base/Status.h"
#include "editors/BimPicEdit.h"
#include "toolkit/windows/PopTipDlg.h"

#include <memory>

class LabelTreeEdit;
class PositionPicker;

namespace Ui {
class BimPicEditDlg;
}

/// Shows name, mark, status, place, labels and description of one photo, and saves them.
///
/// Knows neither the console nor the viewers: it gets a copy of the photo's record, asks the
/// services by itself and answers by DoModal's result alone; Ok: the photo has changed. Thread:
/// user interface. Made by its opener for one run.
class CBimPicEditDlg final : public CPopTipDlg {
public:
    explicit CBimPicEditDlg(const KX_DATA::BimPicRow& row);
    /// @param detail  as the service gave it, with the opener's photo and project in it.
    explicit CBimPicEditDlg(const KX_DATA::BimPicDetail& detail);
    ~CBimPicEditDlg() override;

    /// As they were last read from the window.
    [[nodiscard]] const ZelvorNRQ_KXVeskPicture::BimPicEdit& Fields() const { return m_edit; }

protected:
    void OnCreated() override;

private:
    explicit CBimPicEditDlg(ZelvorNRQ_KXVeskPicture::BimPicEdit edit);

    // Opening.
    void Open();
    void ShowTexts();
    void FillStatus();
    void FillMarks();
    void ConnectControls();

    // Saving.
    void ReadFields();
    void OnSave();
    void Save();
    [[nodiscard]] QWidget* ControlOf(ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus status) const;

    ZelvorNRQ_KXVeskPicture::BimPicEdit m_edit;
    std::unique_ptr<Ui::BimPicEditDlg> m_form;
    std::unique_ptr<LabelTreeEdit> m_labels;
    std::unique_ptr<PositionPicker> m_position;
};
