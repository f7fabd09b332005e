// Drives the gallery as a person would and sees when it has painted what.
#pragma once

#include "bench/WatchedApplication.h"
#include "tests/viewers/gallery_program/FolderGallery.h"

#include <functional>
#include <vector>

namespace bench {

/// When something was on the screen, milliseconds from the event that asked for it; negative: it
/// never was.
struct PaintTimes {
    double picture = -1; ///< the big picture
    double strip = -1;   ///< the last of the visible thumbnails
};

/// A gallery in a window of 1920 by 1080 that is shown.
class GalleryDriver final {
public:
    explicit GalleryDriver(WatchedApplication& application);
    ~GalleryDriver();

    /// Opens a list on an item.
    PaintTimes Open(const QStringList& paths, int index);
    /// The same until the picture shows, whatever the strip does; the next event may follow at
    /// once. Milliseconds; likewise for a key and the wheel.
    [[nodiscard]] double OpenToPicture(const QStringList& paths, int index);
    [[nodiscard]] double PressToPicture(int key);
    [[nodiscard]] double WheelToPicture(int notches);
    /// Presses a key; `paths` of Open must hold the item that it leads to.
    PaintTimes Press(int key);
    /// Turns the wheel, positive towards the end of the list.
    PaintTimes Wheel(int notches);
    /// Paints all of the window again.
    [[nodiscard]] double Repaint();
    /// The step to the next picture by the button: the times between the frames of the slide.
    [[nodiscard]] std::vector<double> SlideToNext();

    [[nodiscard]] int CurrentIndex() const { return m_gallery.State().currentIndex; }
    [[nodiscard]] const gallery::GalleryState& State() const { return m_gallery.State(); }
    /// Device pixels of the big picture as it is shown.
    [[nodiscard]] QSize PictureSize() const;

private:
    PaintTimes Watch(const std::function<void()>& act, bool withStrip = true);
    void SetList(const QStringList& paths, int index);
    void SendKey(int key);
    void SendWheel(int notches);
    [[nodiscard]] bool StripIsComplete() const;

    WatchedApplication& m_application;
    support::FolderGallery m_gallery;
};

} // namespace bench
