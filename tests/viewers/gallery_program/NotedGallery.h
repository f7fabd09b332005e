// A gallery with the player of voice notes under the picture.
#pragma once

#include "viewers/IssueNote.h"
#include "viewers/NotePlayer.h"
#include "viewers/PicViewDlg.h"

#include <vector>

namespace support {

/// Whose rules the notes of a gallery follow.
enum class NotesOf {
    Photos,     ///< one for each photo, stopped by each change
    Previews,   ///< one for each photo, stopped by a change to another note
    Checkpoint, ///< one for all photos, or for none at all
    Issue,      ///< one of the issue, fetched at the press
};

/// Picture, player, strip, from top to bottom.
class NotedGallery final : public CPicViewDlg {
public:
    explicit NotedGallery(NotesOf notesOf = NotesOf::Photos);

    using CPicViewDlg::extraAudio;
    using CPicViewDlg::ServerText;
    using CPicViewDlg::StartDownload;

    /// Whether one of the items has a note.
    [[nodiscard]] static bool HasNotes(const std::vector<GalleryItem>& items);

    void OnTimer(int timerId) override;

    const NotesOf notes;
    gallery::IssueNote issueNote; ///< NotesOf::Issue
    gallery::NotePlayer note;

protected:
    void OnCurPicChanged(int index) override;
    void OnAudioProgress(int value) override { issueNote.OnAudioProgress(value); }
    void OnCreated() override;
    void OnResized() override { LayOut(); }
    void OnClose() override;

private:
    [[nodiscard]] gallery::NoteTerms Terms();
    void LayOut();
};

} // namespace support
