// The pane of the console photo viewer: the photos of one page of the grid, with their texts.
#pragma once

#include "services/PicRecords.h"
#include "viewers/NotePlayer.h"
#include "viewers/PhotoBlock.h"
#include "viewers/PicViewDlg.h"

#include <vector>

/// What the console hands over. Set before the pane's window is made.
struct VeskPicPage {
    std::vector<KX_DATA::PicViewItem> items; ///< of the page, in row order
    qint32 kind = 0;                         ///< gallery::PageKind
    qint32 page = 1;                         ///< of the grid, from 1
    int index = 0;                           ///< the one that is shown first
};

/// What the pane tells the window around it.
class IPhotoShown {
public:
    virtual ~IPhotoShown() = default;

    virtual void ShowItem(const QString& caption, const KX_DATA::PicViewItem& item,
                          qint32 kind) = 0;
};

namespace gallery {

/// "name    number/(first-last)": the photo's number in the grid, and those of its page.
[[nodiscard]] QString PageTitle(const QString& name, qint32 page, int index, int count);

} // namespace gallery

/// Asks no service for photos: all that is shown came with the page. A note that belongs to two
/// neighbours plays on from one to the other. Thread: user interface. A member of the window around
/// it, as whose child it is created.
class CVeskPicViewDlg final : public CPicViewDlg {
public:
    /// @param around  not owned; outlives the pane.
    explicit CVeskPicViewDlg(IPhotoShown& around);

    /// Not while there is a window.
    void SetPage(VeskPicPage page);

    [[nodiscard]] const VeskPicPage& Page() const { return m_page; }
    [[nodiscard]] gallery::NotePlayer& Note() { return m_note; }
    [[nodiscard]] const gallery::PhotoBlock& Texts() const { return m_block; }

protected:
    void OnCurPicChanged(int index) override;
    void OnCreated() override;
    void OnDestroyed() override;
    void OnResized() override { LayoutPicPane(); }
    void OnClose() override;
    void OnTimer(int timerId) override;

private:
    void BuildGallery();
    void ShowPicDetail(int index);
    void LayoutPicPane();

    IPhotoShown& m_around;
    VeskPicPage m_page;
    gallery::NotePlayer m_note;
    gallery::PhotoBlock m_block;
};
