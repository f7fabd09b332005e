// The editor of one drawing photo.
#pragma once

#include "base/SingletonTmpl.h"
#include "editors/PdfPicEdit.h"
#include "toolkit/windows/PopTipDlg.h"

#include <memory>

namespace Ui {
class PdfPicEditDlg;
}

/// Shows name, description, status and place of one drawing photo, and saves them. It takes over
/// from the console, which it shows again when it ends; while a checkpoint is picked in the host,
/// both are hidden.
///
/// Knows the console as a window alone. Its window exists from EditPic until it is saved, cancelled
/// or closed. Thread: user interface. Exists once in a process.
class CPdfPicEditDlg final : public CPopTipDlg, public NRQUtility::SingletonTmpl<CPdfPicEditDlg> {
public:
    CPdfPicEditDlg();
    ~CPdfPicEditDlg() override;

    /// Opens on a photo, in front of `console`, which hides. What can't be loaded is told, and
    /// leaves the console as it is.
    void EditPic(const KX_DATA::PdfPicRecord& record, toolkit::WindowId console);
    /// The person picked a checkpoint in the host. Shows nothing.
    void OnPointPicked(qint32 pointId);

    /// As they were last read from the window.
    [[nodiscard]] const ZelvorNRQ_KXVeskPicture::PdfPicEdit& Fields() const { return m_edit; }

protected:
    void OnCreated() override;
    void OnDestroyed() override;
    void OnClose() override;

private:
    void ConnectControls();
    void LoadPic();
    void FillMarks();
    void AddPoint(qint32 pointId, qint32 number);
    void ShowFields();
    void ReadFields();
    void OnPointSelected();
    void PickPoint();
    void OnSave();
    void Save();
    void ShowConsole() const;

    ZelvorNRQ_KXVeskPicture::PdfPicEdit m_edit;
    toolkit::WindowId m_console = toolkit::kNoWindow;
    std::unique_ptr<Ui::PdfPicEditDlg> m_form;
};
