// The console photo viewer on scripted services.
#pragma once

#include "tests/console/ModuleFixture.h"
#include "tests/support/ScriptedAudio.h"
#include "viewers/VeskPicViewWrap.h"

/// Photos 1 to 4 of project 1, with their pictures in its folder; 2 and 3 have the same voice note
/// of 2 s. Marks 1 and 2 are known.
class PageFixture : public ModuleFixture {
protected:
    PageFixture();

    void AddItem(int number);
    void Open();
    CVeskPicViewDlg& Pane() { return wrap.Pane(); }
    /// A key to the pane.
    void Press(int key);
    [[nodiscard]] QString Title() { return wrap.Widget()->windowTitle(); }
    [[nodiscard]] QString PlayerText();
    /// Opens on photo 2 and starts its note.
    void PlayTheNote();

    support::ScriptedAudio audio;
    VeskPicPage page;
    CVeskPicViewWrap wrap;
};
