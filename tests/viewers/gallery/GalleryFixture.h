// A gallery on scripted services, in a window with four cells.
#pragma once

#include "tests/support/ManualClock.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"
#include "tests/viewers/gallery_program/FolderGallery.h"

#include <QImage>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// The window is 500 by 400: the picture area 500 by 295, the strip 490 by 95 at 5, 300 with four
/// cells from x 50 on (see kFirstCell).
class GalleryFixture : public testing::Test {
protected:
    GalleryFixture();
    ~GalleryFixture() override;

    static constexpr int kFirstCell = 50; ///< left edge of a full strip's first cell

    /// Makes the gallery's window, visible unless said otherwise.
    void Open(bool visible = true, bool horizontal = true);
    /// Items with pictures on disk: number n is filled with ColourOf(n), 300 by 200.
    std::vector<GalleryItem> OnDisk(int count);
    /// Items whose pictures "pN" and notes "aN" only the store has.
    std::vector<GalleryItem> InStore(int count, bool notes = true);
    [[nodiscard]] static QColor ColourOf(int index);
    void SetItems(const std::vector<GalleryItem>& items, int current = 0);
    /// The same, and waits until the picture shows.
    void ShowItems(const std::vector<GalleryItem>& items, int current = 0);

    [[nodiscard]] QWidget* Pane() { return gallery->Widget(); }
    [[nodiscard]] QImage Shown() { return gallery->Widget()->grab().toImage(); }
    [[nodiscard]] QColor PixelAt(const QPoint& point) { return Shown().pixelColor(point); }
    /// Whether the picture area shows the navy text "无图片" in its middle.
    [[nodiscard]] bool SaysNoPicture();
    [[nodiscard]] QPoint PictureMiddle() const { return gallery->State().bigArea.center(); }
    [[nodiscard]] QPoint ThumbMiddle(int index) const;
    [[nodiscard]] const gallery::GalleryState& State() const { return gallery->State(); }
    [[nodiscard]] support::CallLog& Log() { return host.Log(); }
    /// Lets the event loop run until nothing is downloaded.
    [[nodiscard]] bool WaitForDownloads();
    /// Uuids in the order in which their downloads began.
    [[nodiscard]] std::vector<std::string> Started();
    [[nodiscard]] QString ModuleLog() const;

    support::ScriptedHost host;
    support::TempFolder folder;
    support::ManualClock clock;
    std::unique_ptr<support::FolderGallery> gallery;
};
