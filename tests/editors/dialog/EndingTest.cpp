// Input that was typed and not saved, at every way in which the editor ends.
#include "frame/HostObservers.h"
#include "tests/editors/dialog/EditorFixture.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAbstractItemView>

#include <functional>
#include <map>
#include <string>

using namespace Qt::StringLiterals;

namespace {

class EndingTest : public EditorFixture {
protected:
    /// Leaves something begun in a control that has the keyboard.
    [[nodiscard]] std::map<std::string, std::function<void()>> Beginnings() {
        return {{"name", [this] { Type(Name()); }},
                {"new label", [this] { Type(NewLabel()); }},
                {"description", [this] { Type(Description()); }},
                {"open list of floors",
                 [this] {
                     support::DropDown(Floor());
                     QTest::keyClick(Floor().view(), Qt::Key_Down);
                 }},
                {"open list of marks",
                 [this] {
                     support::DropDown(Mark());
                     QTest::keyClick(Mark().view(), Qt::Key_Down);
                 }},
                {"axis chosen by a key", [this] {
                     AxisX().setFocus();
                     QTest::keyClick(&AxisX(), Qt::Key_Down);
                 }}};
    }
    [[nodiscard]] std::map<std::string, std::function<void()>> Endings() {
        return {{"cancel",
                 [this] {
                     support::Click(&Cancel());
                     // The first click only ends an open list.
                     if (IsOpen()) {
                         support::Click(&Cancel());
                     }
                 }},
                {"close", [this] { Window()->close(); }},
                {"destroy", [this] { Editor().Destroy(); }},
                {"project",
                 [this] {
                     CVeskPicProjChangeObs().OnProjChange();
                     Editor().Destroy();
                 }},
                {"parent", [this] { parent.reset(); }},
                {"object", [this] { editor.reset(); }}};
    }
    void OpenBelowParent() {
        parent = std::make_unique<QWidget>();
        const toolkit::WindowId id =
            toolkit::RegisterWindow(parent.get(), [](const toolkit::WindowEvent&) { return 0; });
        parent->show();
        editor = std::make_unique<CBimPicEditDlg>(Photo());
        editor->Create(id);
        editor->ShowRestored();
        editor->BringToForeground();
        ASSERT_TRUE(support::WaitFor([this] { return Window()->isActiveWindow(); }));
    }

    std::unique_ptr<QWidget> parent;

private:
    static void Type(QWidget& field) {
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_Backspace);
        QTest::keyClick(&field, Qt::Key_8);
    }
};

TEST_F(EndingTest, WhatWasBegunIsDroppedWhicheverWayTheEditorEnds) {
    for (const auto& [begun, begin] : Beginnings()) {
        for (const auto& [ended, end] : Endings()) {
            OpenBelowParent();
            begin();
            Log().Clear();
            end();
            support::RunPendingEvents();
            EXPECT_TRUE(editor == nullptr || !editor->HasWindow()) << begun << ", " << ended;
            EXPECT_EQ(Saves(), 0) << begun << ", " << ended;
            EXPECT_EQ(Log().CountOf("AddLabel"), 0) << begun << ", " << ended;
            EXPECT_EQ(Log().CountOf("GetFloorAxesX"), 0) << begun << ", " << ended;
            editor.reset();
            parent.reset();
        }
    }
}

} // namespace
