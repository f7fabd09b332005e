#include "editors/PdfPicEditDlg.h"

#include "base/FacadeAccess.h"
#include "base/Guard.h"
#include "base/OpenProject.h"
#include "editors/MarkChoice.h"
#include "include/IKXVeskPictureSink.h"
#include "include/KXEvents.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IPDFDrawingMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/controls/TextLimit.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"
#include "ui_PdfPicEditDlg.h"

#include <map>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::CatchStatus;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::GetStatusMessage;
using ZelvorNRQ_KXVeskPicture::PictureFacade;

namespace {

constexpr int kNameLimit = 255;
constexpr int kDescriptionLimit = 255;
/// What a box without a selection gives for the item's data.
constexpr qint32 kNoData = -1;

qint32 DataOf(const QComboBox& combo) {
    return combo.currentIndex() < 0 ? kNoData : combo.currentData().toInt();
}

} // namespace

CPdfPicEditDlg::CPdfPicEditDlg() = default;
CPdfPicEditDlg::~CPdfPicEditDlg() = default;

void CPdfPicEditDlg::EditPic(const KX_DATA::PdfPicRecord& record, toolkit::WindowId console) {
    Create(console);
    m_console = console;
    m_edit = ZelvorNRQ_KXVeskPicture::EditOf(record);
    const toolkit::StillThere still(Id());
    const auto fault = CatchStatus([this] {
        const toolkit::WaitCursor wait;
        LoadPic();
    });
    if (!still) {
        return;
    }
    if (fault) {
        Destroy();
        ZelvorNRQ_KXVeskPicture::ShowStatus(console, *fault);
        return;
    }
    ShowRestored();
    BringToForeground();
    if (QWidget* window = toolkit::WidgetOf(console)) {
        window->hide();
    }
}

void CPdfPicEditDlg::OnCreated() {
    m_form = std::make_unique<Ui::PdfPicEditDlg>();
    m_form->setupUi(Widget());
    toolkit::ScrollIfTooLarge(*Widget());
    toolkit::LimitText(*m_form->picNameEdit, kNameLimit);
    toolkit::LimitText(*m_form->descriptionEdit, kDescriptionLimit);
    m_form->statusCombo->addItems({u"显示"_s, u"隐藏"_s});
    // Looks like what it is: nobody writes here.
    QPalette readOnly = m_form->checkLabelEdit->palette();
    readOnly.setColor(QPalette::Base, readOnly.color(QPalette::Window));
    m_form->checkLabelEdit->setPalette(readOnly);
    ConnectControls();
    const toolkit::StillThere still(Id());
    if (!GetKXAuthMng()->HasRight(KX_DATA::kRightShowHide) && still) {
        m_form->statusCaption->hide();
        m_form->statusCombo->hide();
    }
    if (still) {
        Widget()->adjustSize();
        toolkit::CentreWindow(*Widget());
    }
}

void CPdfPicEditDlg::ConnectControls() {
    QObject::connect(m_form->okButton, &QPushButton::clicked, Widget(), [this] { OnSave(); });
    QObject::connect(m_form->cancelButton, &QPushButton::clicked, Widget(), [this] { OnClose(); });
    QObject::connect(m_form->pickButton, &QPushButton::clicked, Widget(), [this] { PickPoint(); });
    QObject::connect(m_form->pointCombo, &QComboBox::activated, Widget(),
                     [this] { OnPointSelected(); });
    for (QComboBox* combo : Widget()->findChildren<QComboBox*>()) {
        ZelvorNRQ_KXVeskPicture::KeepTextInTip(*combo);
    }
}

void CPdfPicEditDlg::LoadPic() {
    const toolkit::StillThere still(Id());
    KX_DATA::PdfPicDetail detail;
    const qint32 result =
        GetVeskPicMng()->GetPdfPicDetail(m_edit.projectId, m_edit.pic.picId, detail);
    if (!still) {
        return;
    }
    if (result != KX_DATA::kServiceOk) {
        throw e_VeskPicMngStatus::PicInfoFailed;
    }
    m_edit.drawingId = detail.drawingId;
    // Of a photo that the console just showed or hid it is the number of a column, for which the
    // box has no entry: -1 is saved then, with which the service leaves the status.
    m_edit.statusIndex = m_edit.pic.status;
    m_form->drawingCombo->clear();
    m_form->drawingCombo->addItem(m_edit.pic.drawingName, m_edit.drawingId);
    m_form->pointCombo->clear();
    AddPoint(m_edit.pic.drawingId, m_edit.pic.checkpointNo);
    m_edit.description = m_edit.pic.description;
    FillMarks();
    if (still) {
        ShowFields();
    }
}

void CPdfPicEditDlg::FillMarks() {
    CColorTxtComboBox& combo = *m_form->markCombo;
    combo.clear();
    const toolkit::StillThere still(Id());
    const std::map<qint32, KX_DATA::MarkRecord> table = ZelvorNRQ_KXVeskPicture::FetchMarks();
    if (!still) {
        return;
    }
    static_cast<void>(ZelvorNRQ_KXVeskPicture::FillMarkBox(combo, table));
    const auto own = table.find(m_edit.pic.markId);
    if (own == table.end()) {
        combo.setCurrentIndex(kNoData);
    } else {
        // Of two marks with one name the first is selected; required as is.
        combo.SetSelectColorName(own->second.name);
    }
}

void CPdfPicEditDlg::AddPoint(qint32 pointId, qint32 number) {
    DropCombo& combo = *m_form->pointCombo;
    const int known = combo.findData(pointId);
    if (known >= 0) {
        combo.setCurrentIndex(known);
        return;
    }
    combo.insertItem(0, u"检查点%1"_s.arg(number), pointId);
    combo.setCurrentIndex(0);
    m_edit.pointNumbers[pointId] = number;
}

void CPdfPicEditDlg::ShowFields() {
    m_form->picNameEdit->setText(m_edit.picName);
    m_form->picNameEdit->setCursorPosition(0);
    m_form->extensionText->setText(m_edit.extension);
    m_form->descriptionEdit->setPlainText(m_edit.description);
    m_form->checkLabelEdit->setText(m_edit.checkLabel);
    m_form->statusCombo->setCurrentIndex(m_edit.statusIndex);
}

void CPdfPicEditDlg::ReadFields() {
    m_edit.picName = m_form->picNameEdit->text();
    // The box has its own line breaks and blanks: an untouched text is sent as it came.
    if (m_form->descriptionEdit->document()->isModified()) {
        m_edit.description = m_form->descriptionEdit->toPlainText();
    }
    m_edit.statusIndex = m_form->statusCombo->currentIndex();
}

void CPdfPicEditDlg::OnPointSelected() {
    // Another checkpoint that is selected changes nothing: the mark shown stays that of the photo;
    // required as is.
    if (m_form->pointCombo->currentIndex() >= 0) {
        return;
    }
    ZelvorNRQ_KXVeskPicture::Guarded(Id(), [this] {
        const toolkit::StillThere still(Id());
        KX_DATA::DrawingRecord point;
        const qint32 result = GetPDFDrawingMng()->GetDrawing(DataOf(*m_form->pointCombo), point);
        if (!still) {
            return;
        }
        if (result != KX_DATA::kServiceOk) {
            throw e_VeskPicMngStatus::CheckpointFailed;
        }
        m_form->markCombo->SetSelectColorName(point.markName);
    });
}

void CPdfPicEditDlg::PickPoint() {
    const toolkit::StillThere still(Id());
    const qint32 drawingId = m_edit.drawingId;
    Hide();
    if (QWidget* main = toolkit::WidgetOf(toolkit::MainWindow())) {
        main->raise();
        main->activateWindow();
    }
    PictureFacade().backToPdfEdit = true;
    PictureFacade().Sink().SelectCheckpoint(drawingId);
}

void CPdfPicEditDlg::OnPointPicked(qint32 pointId) {
    const toolkit::StillThere still(Id());
    if (!still) {
        return;
    }
    // Nobody asks whether it could be read: the number stays 0 then; required as is.
    KX_DATA::DrawingRecord point;
    static_cast<void>(GetPDFDrawingMng()->GetDrawing(pointId, point));
    if (!still) {
        return;
    }
    const KX_DATA::CurrentDrawing current = ZelvorNRQ_KXVeskPicture::CurrentDrawing();
    if (!still) {
        return;
    }
    if (current.drawingId != m_edit.drawingId) {
        m_edit.pic.drawingName = current.drawingName;
        m_edit.drawingId = current.drawingId;
        m_form->drawingCombo->insertItem(0, current.drawingName, current.drawingId);
        m_form->drawingCombo->setCurrentIndex(0);
        m_form->pointCombo->clear();
        m_edit.pointNumbers.clear();
    }
    AddPoint(pointId, point.checkpointNo);
}

void CPdfPicEditDlg::OnSave() {
    const toolkit::StillThere still(Id());
    const auto status = CatchStatus([this] { Save(); });
    if (status && still) {
        ShowMsg(GetStatusMessage(*status),
                *status == e_VeskPicMngStatus::NameMissing ? m_form->picNameEdit : nullptr);
    }
}

void CPdfPicEditDlg::Save() {
    ReadFields();
    const KX_DATA::PdfPicUpdate update = TakeUpdate(m_edit, DataOf(*m_form->pointCombo));
    const toolkit::StillThere still(Id());
    bool saved = false;
    {
        const toolkit::WaitCursor wait;
        saved = GetVeskPicMng()->UpdatePdfPic(m_edit.projectId, update);
    }
    if (!saved) {
        throw e_VeskPicMngStatus::UpdateFailed;
    }
    // Sent, not posted: the console has read its page anew before this window ends.
    toolkit::SendWindowEvent(m_console, ZelvorNRQ_KXVeskPicture::WM_PIC_MNG_REFRESH);
    ShowConsole();
    if (still) {
        Destroy();
    }
}

void CPdfPicEditDlg::ShowConsole() const {
    if (QWidget* console = toolkit::WidgetOf(m_console)) {
        console->show();
    }
}

void CPdfPicEditDlg::OnClose() {
    ShowConsole();
    Destroy();
}

void CPdfPicEditDlg::OnDestroyed() {
    m_form.reset();
    // Nobody waits for a checkpoint any more: the next one that is clicked opens its viewer.
    PictureFacade().backToPdfEdit = false;
}
