// A gallery and nothing beside it.
#pragma once

#include "viewers/PicViewDlg.h"

#include <vector>

namespace support {

/// Lays picture and strip out over the whole window and records what it is told.
class FolderGallery final : public CPicViewDlg {
public:
    using CPicViewDlg::extraAudio;
    using CPicViewDlg::ResetGallery;
    using CPicViewDlg::StartDownload;

    /// The strip lies below the picture, otherwise to its right.
    bool horizontal = true;
    std::vector<int> told;      ///< of OnCurPicChanged
    std::vector<int> audioTold; ///< of OnAudioProgress
    std::vector<int> timersTold;
    int closed = 0;

    /// Items for files, one each; their uuids are the files' base names. A voice note with the same
    /// base name beside the file belongs to it.
    [[nodiscard]] static std::vector<GalleryItem> ItemsOf(const QStringList& paths);
    /// The picture files of a folder by name.
    [[nodiscard]] static QStringList PicturesIn(const QString& folder);

protected:
    void OnCurPicChanged(int index) override { told.push_back(index); }
    void OnAudioProgress(int value) override { audioTold.push_back(value); }
    void OnCreated() override;
    void OnResized() override { LayOut(); }
    void OnClose() override;
    void OnTimer(int timerId) override {
        timersTold.push_back(timerId);
        CPicViewDlg::OnTimer(timerId);
    }

private:
    void LayOut();
};

} // namespace support
