// The surroundings of a test of the module's windows.
#pragma once

#include "tests/support/AnsweredPrompts.h"
#include "tests/support/ManualClock.h"
#include "tests/support/RecordingMainWindow.h"
#include "tests/support/RecordingSinks.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class CKXVeskPictureImpl;
class CVeskPicMngDlg;

/// Services, folder, clock, prompts, main window and sink of one test, over a module that is as
/// fresh as in a new process. The log of calls is empty at the start of the test.
class ModuleFixture : public testing::Test {
protected:
    ModuleFixture();
    ~ModuleFixture() override;

    [[nodiscard]] static CKXVeskPictureImpl& Facade();
    [[nodiscard]] static CVeskPicMngDlg& Console();
    [[nodiscard]] support::CallLog& Log() { return host.Log(); }
    /// Text of the module's own log file.
    [[nodiscard]] QString ModuleLog() const;

    using Calls = std::vector<std::string>;

    support::ScriptedHost host;
    support::TempFolder folder;
    support::ManualClock clock; ///< 2026-03-05 12:00:00
    support::RecordingMainWindow mainWindow{host.script};
    support::RecordingSink sink{host.script};
    support::AnsweredPrompts prompts{&host.Log()};
};
