// The window of the console photo viewer.
#pragma once

#include "richtext/RichEditorDlg.h"
#include "viewers/PicViewWrap.h"
#include "viewers/VeskPicViewDlg.h"

/// Steps through the photos of one page of the console's grid, over the console, and shows the
/// records of their places, which can't be changed here. Made for one preview and run modally.
/// Thread: user interface.
class CVeskPicViewWrap final : public CPicViewWrap, public IPhotoShown {
public:
    CVeskPicViewWrap();

    /// Before the run.
    void SetPage(VeskPicPage page) { Pane().SetPage(std::move(page)); }

    [[nodiscard]] CVeskPicViewDlg& Pane() { return static_cast<CVeskPicViewDlg&>(PicView()); }
    /// Without a window for people who have no rich text.
    [[nodiscard]] CRichEditorDlg& RichEditor() { return richEditor; }

    void ShowItem(const QString& caption, const KX_DATA::PicViewItem& item, qint32 kind) override;

protected:
    Lower LowerPane() override;
    void OnCreated() override;
    void OnDestroyed() override;

private:
    CRichEditorDlg richEditor;
};
