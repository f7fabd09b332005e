// A gallery with a player, on scripted services and devices.
#pragma once

#include "tests/support/AmrFiles.h"
#include "tests/support/ManualClock.h"
#include "tests/support/ScriptedAudio.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/gallery_program/NotedGallery.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

class NoteFixture : public testing::Test {
protected:
    NoteFixture();
    ~NoteFixture() override;

    /// Makes the window, 500 by 400, visible.
    void Open(support::NotesOf notes);
    /// An item with a picture on disk and, unless `uuid` is empty, a note of so many frames there.
    GalleryItem Item(const QString& uuid, int frames = 100);
    /// An item whose note waits behind its picture, since the queue takes one at a time.
    GalleryItem WaitingItem(const QString& uuid);
    void SetItems(const std::vector<GalleryItem>& items);
    void Step(int index) { gallery->SelectPic(index, gallery::kCurrentMiddle); }
    /// A mouse click on the play button.
    void Press();
    /// A second of the note is over.
    void Tick() { gallery->OnTimer(gallery::kNoteTickTimer); }
    /// A second of waiting is over.
    void WaitTick() { gallery->OnTimer(gallery::kNoteWaitTimer); }

    [[nodiscard]] QString Text() const { return gallery->note.Status()->text(); }
    [[nodiscard]] QString Image() const { return gallery->note.Button()->ButtonImage(); }
    [[nodiscard]] bool IsEnabled() const { return gallery->note.Button()->isEnabled(); }
    [[nodiscard]] bool IsPlaying() const { return gallery->note.IsPlaying(); }
    [[nodiscard]] int Pos() const { return gallery->note.Progress()->GetPos(); }
    /// Nothing plays, the bar is empty, the button offers to play, and the text says this.
    void ExpectAtRest(const QString& text) const;
    /// A note of ten seconds plays on with its time display.
    void ExpectPlaysOn() const;
    /// Transfers that were begun.
    [[nodiscard]] int Downloads();
    [[nodiscard]] QString ModuleLog() const;

    support::ScriptedHost host;
    support::TempFolder folder;
    support::ManualClock clock;
    support::ScriptedAudio audio;
    std::unique_ptr<support::NotedGallery> gallery;
};
