// The BIM photo viewer on scripted services.
#pragma once

#include "tests/console/ModuleFixture.h"
#include "viewers/BimPicViewWrap.h"

/// Photos 1 to 3 hang on position "K" of floor 1 with mark 1; photo 2 has a voice note of 3 s. All
/// files are in the project's folder.
class BimViewFixture : public ModuleFixture {
protected:
    BimViewFixture();

    static CBimPicViewWrap& Wrap() { return CBimPicViewWrap::Instance(); }
    static CBimPicViewDlg& Pane() { return Wrap().Pane(); }
    static const gallery::PhotoBlock& Texts() { return Pane().Texts(); }

    /// Opens the viewer on the position through the facade.
    bool Open(qint32 wantedPicId = -1);
    [[nodiscard]] int Current() const { return Pane().State().currentIndex; }
    /// Files a photo on the position, with its picture in the folder.
    void AddPhoto(qint32 picId, const QString& audioUuid = {});
    /// A key to the pane.
    static void Press(int key);
    static void Click(QWidget* control);
    [[nodiscard]] static QString PlayerText() { return Pane().Note().Status()->text(); }

    [[nodiscard]] QString PictureFolder() const { return QStringLiteral("1/pics/"); }
};
