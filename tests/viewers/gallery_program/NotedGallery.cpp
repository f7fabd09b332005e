#include "tests/viewers/gallery_program/NotedGallery.h"

#include <QSize>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace support {

namespace {

constexpr int kNoteStripHeight = 95;
constexpr int kNoteBarHeight = 53;
constexpr int kEdge = 5;
constexpr int kTextLeft = 55;
constexpr int kTextHeight = 16;
constexpr int kMostWidth = 320;

} // namespace

NotedGallery::NotedGallery(NotesOf notesOf)
    : notes(notesOf), issueNote(*this), note(*this, Terms()) {}

gallery::NoteTerms NotedGallery::Terms() {
    if (notes == NotesOf::Issue) {
        return issueNote.Terms();
    }
    gallery::NoteTerms terms;
    terms.source = [this] { return gallery::CurrentNote(State()); };
    if (notes == NotesOf::Previews) {
        terms.change = gallery::NoteChange::StopsIfOther;
    }
    if (notes != NotesOf::Checkpoint) {
        return terms;
    }
    terms.change = gallery::NoteChange::GoesOn;
    terms.source = [this] {
        if (!State().items.empty()) {
            return gallery::CurrentNote(State());
        }
        return gallery::NoteSource{extraAudio.uuid, extraAudio.path, extraAudio.state};
    };
    return terms;
}

bool NotedGallery::HasNotes(const std::vector<GalleryItem>& items) {
    return std::any_of(items.begin(), items.end(),
                       [](const GalleryItem& item) { return !item.audioUuid.isEmpty(); });
}

void NotedGallery::OnCurPicChanged(int index) {
    Q_UNUSED(index);
    note.OnPicChanged();
    if (notes == NotesOf::Photos) {
        note.ShowNote();
    }
}

void NotedGallery::OnCreated() {
    CPicViewDlg::OnCreated();
    Widget()->setWindowTitle(u"照片"_s);
    note.MakeControls(Widget());
    LayOut();
}

void NotedGallery::OnTimer(int timerId) {
    if (!note.OnTimer(timerId)) {
        CPicViewDlg::OnTimer(timerId);
    }
}

void NotedGallery::OnClose() {
    note.OnClose();
    Destroy();
}

void NotedGallery::LayOut() {
    if (note.Button() == nullptr) {
        return;
    }
    const QSize size = Widget()->size();
    const int strip = size.height() - kNoteStripHeight - kEdge;
    const int bar = strip - kNoteBarHeight;
    note.Button()->move(kEdge, bar + kEdge);
    const int width = std::min(size.width() - kTextLeft - kEdge, kMostWidth);
    note.Status()->setGeometry(kTextLeft, bar + 12, width, kTextHeight);
    note.Progress()->setGeometry(kTextLeft, bar + 34, width, kEdge);
    SetPicRects(QRect(0, 0, size.width(), bar),
                QRect(kEdge, strip, size.width() - 2 * kEdge, kNoteStripHeight));
}

} // namespace support
