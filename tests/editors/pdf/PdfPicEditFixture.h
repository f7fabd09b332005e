// The editor of a drawing photo over the console, worked with mouse and keys.
#pragma once

#include "console/VeskPicMngDlg.h"
#include "editors/PdfPicEditDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "include/IKXVeskPicture.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/DropCombo.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest/QTest>

#include <gmock/gmock.h>

/// Three drawing photos in the service; photo 1 at checkpoint 101 of drawing 500 "一层平面".
class PdfPicEditFixture : public ModuleFixture {
protected:
    PdfPicEditFixture() {
        FillService(host, kModePdf, 3);
        host.drawings.drawings[201].checkpointNo = 21;
        host.drawings.drawings[201].markName = QStringLiteral("安全");
        host.project.drawing = {500, QStringLiteral("一层平面")};
        // Takes the keyboard while nothing of the module can be seen.
        toolkit::WidgetOf(mainWindow.Id())->show();
        Facade().ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
    }
    [[nodiscard]] static CPdfPicEditDlg& Editor() { return CPdfPicEditDlg::Instance(); }
    [[nodiscard]] static QWidget* Window() { return Editor().Widget(); }
    [[nodiscard]] bool IsConsoleVisible() {
        return Console().HasWindow() && Console().Widget()->isVisible();
    }
    void Open(const KX_DATA::PdfPicRecord& record) { Editor().EditPic(record, Console().Id()); }
    void Open() { Open(host.pics.pdfPics[0]); }
    template <class Control> [[nodiscard]] Control& Find(const char* name) {
        auto* control = Window()->findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }
    [[nodiscard]] QLineEdit& Name() { return Find<QLineEdit>("picNameEdit"); }
    [[nodiscard]] QPlainTextEdit& Description() { return Find<QPlainTextEdit>("descriptionEdit"); }
    [[nodiscard]] DropCombo& Point() { return Find<DropCombo>("pointCombo"); }
    [[nodiscard]] DropCombo& Drawing() { return Find<DropCombo>("drawingCombo"); }
    [[nodiscard]] DropCombo& Status() { return Find<DropCombo>("statusCombo"); }
    [[nodiscard]] CColorTxtComboBox& Mark() { return Find<CColorTxtComboBox>("markCombo"); }
    void Click(const char* name) { support::Click(&Find<QPushButton>(name)); }
    /// As the host tells it: by the facade.
    void Pick(qint32 pointId) {
        Facade().ShowPdfPicView(1, pointId, QString(), mainWindow.Id());
        support::RunPendingEvents();
    }
    [[nodiscard]] const KX_DATA::PdfPicUpdate& Sent() { return host.pics.lastPdfUpdate; }
    static QStringList Entries(const QComboBox& combo) {
        QStringList texts;
        for (int at = 0; at < combo.count(); ++at) {
            texts << combo.itemText(at);
        }
        return texts;
    }
};
