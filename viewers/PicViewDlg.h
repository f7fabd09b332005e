// The gallery that every viewer is built on.
#pragma once

#include "toolkit/windows/PopTipDlg.h"
#include "viewers/DownloadQueue.h"
#include "viewers/DownloadWorker.h"
#include "viewers/GalleryInput.h"
#include "viewers/GalleryPane.h"
#include "viewers/GalleryPictures.h"
#include "viewers/GalleryState.h"
#include "viewers/GalleryTimers.h"
#include "viewers/PaneSurface.h"
#include "viewers/PictureStage.h"
#include "viewers/StripStage.h"

#include <optional>
#include <vector>

/// A big picture, a strip of thumbnails with page buttons and indicator, two step buttons; pictures
/// and voice notes that are not on disk arrive in the background.
///
/// Knows nothing of photos, issues or checkpoints: a subclass hands it items and is told which one
/// is current. What a viewer shows beside the pictures is the subclass's, as children of the pane.
/// Thread: user interface. The object outlives its window and can be created again.
class CPicViewDlg : public CPopTipDlg, private gallery::IGalleryEvents {
public:
    CPicViewDlg();
    ~CPicViewDlg() override;

    /// Replaces the list. Set the current index first. The current item is told, unless the list is
    /// empty.
    void SetPicItems(const std::vector<GalleryItem>& items);
    /// Places of picture and strip, device-independent pixels of the pane; ignored if either is
    /// empty.
    void SetPicRects(const QRect& bigArea, const QRect& stripArea);
    /// Shows another item; an index that is current or not in the list only has the present picture
    /// rendered again.
    void SelectPic(int index, gallery::StripMode mode);
    /// Pages the strip; the current item stays.
    void PageStrip(bool forward);
    void SetCurrentIndex(int index) { m_state.currentIndex = index; }

    [[nodiscard]] const gallery::GalleryState& State() const { return m_state; }
    /// Whether the current picture is what a paint shows now, not the one before it.
    [[nodiscard]] bool ShowsPicture() const { return m_picture.ShowsPicture(); }

protected:
    /// The current item is now `index`: show its texts.
    virtual void OnCurPicChanged(int index) = 0;
    /// Percent of a running voice note's download; 1 also when one has ended well.
    virtual void OnAudioProgress(int value) { Q_UNUSED(value); }

    /// Starts a download unless enough run; index kExtraAudio: the list's own voice note.
    void StartDownload(int index, gallery::DownloadKind kind);
    /// Frees all items and renderings.
    void ClearPicItems();
    /// The state of a new gallery, with the texts of the services.
    void ResetGallery();
    /// First field of each download record.
    [[nodiscard]] const QString& ServerText() const { return m_serverText; }

    QWidget* MakeWindow(QWidget* parent) override;
    void OnCreated() override;
    void OnDestroyed() override;
    qintptr OnEvent(const toolkit::WindowEvent& event) override;
    /// Subclasses call it at the end of their own.
    void OnTimer(int timerId) override;

    gallery::ExtraAudio extraAudio;

private:
    // Painting.
    void OnShown() override;
    void OnPictureTaken() override;
    void OnPaint(QPainter& painter, const QRegion& region) const override;
    void UpdateAreas();
    void EraseFreed(const QRect& oldBig, const QRect& oldStrip);

    // Input.
    void OnLeftButtonDown(const QPoint& point) override;
    void OnLeftButtonUp(const QPoint& point) override;
    void OnDoubleClick(const QPoint& point) override;
    void OnMouseMove(const QPoint& point) override;
    void OnMouseLeave() override;
    void OnMouseWheel(int delta, const QPoint& point, bool control) override;
    bool OnKey(int key, Qt::KeyboardModifiers modifiers, bool onPane) override;
    [[nodiscard]] QString TipAt(const QPoint& point) const override;
    [[nodiscard]] QRect TipPlace(const QPoint& point) const override;
    [[nodiscard]] std::span<const CDirectUIButton> Buttons() const override;
    void OnButtonPressed(int index) override;
    void Do(gallery::GalleryAction action);
    void Select(const gallery::Selection& selection);
    bool PressButton(const QPoint& point);
    void ClickThumb(int index);
    void SetHover(int index);
    void UpdateCursor(const QPoint& point);
    void CopyPicture() const;

    // Downloads.
    void StartDownloads();
    void UpdateStripTimer();
    void Fetch(const gallery::Download& download);
    void OnDownloadDone(const gallery::DownloadKey& key, qint32 status);
    void OnDownloadProgress(const gallery::DownloadKey& key, int percent);
    void ShowFinishedPicture(int index);

    gallery::GalleryState m_state;
    gallery::GalleryPictures m_pictures;
    gallery::PaneSurface m_surface{*this};
    gallery::PictureStage m_picture{m_state, m_pictures, m_surface};
    gallery::StripStage m_strip{m_state, m_pictures, m_surface, m_picture};
    gallery::DownloadQueue m_downloads{m_state, extraAudio};
    QString m_serverText;
    QString m_defaultPicPath;
    std::optional<QPoint> m_dragFrom;
};
