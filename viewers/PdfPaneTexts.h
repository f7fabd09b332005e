// The texts beside the pictures of a checkpoint.
#pragma once

#include "toolkit/controls/StaticText.h"
#include "toolkit/controls/TitledGroup.h"
#include "viewers/DrawingViewItem.h"
#include "viewers/PdfPaneLayout.h"

#include <QPointer>

namespace gallery {

/// Who took a picture and when, and the checkpoint's mark, labels and texts, in their groups.
/// Children of the viewer's pane, made anew with each window. Knows no service. Thread: user
/// interface. A member of the viewer.
class PdfPaneTexts final {
public:
    void MakeControls(QWidget& pane);
    void LayOut(const PdfPaneLayout& layout);
    [[nodiscard]] bool HasControls() const { return !markText.isNull(); }

    void ShowPicture(const DrawingViewItem& item);
    void ShowCheckpoint(const KX_DATA::DrawingRecord& record);

    QPointer<CTitledGroup> picGroup;
    QPointer<CTitledGroup> noteGroup;
    QPointer<CTitledGroup> checkpointGroup;
    QPointer<CStaticFilespec> uploaderText;
    QPointer<CStaticFilespec> uploadTimeText;
    QPointer<CStaticFilespec> updaterText;
    QPointer<CStaticFilespec> updateTimeText;
    QPointer<CStaticFilespec> picDescText;
    QPointer<CColorStatic> markText;
    QPointer<CStaticFilespec> cpLabelText;
    QPointer<CStaticFilespec> cpDescText;
    QPointer<CStaticFilespec> cpUpdateTimeText;
    QPointer<CStaticFilespec> remarkText;
};

} // namespace gallery
