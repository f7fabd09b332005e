// From the console to a saved photo and through the viewer without a mouse.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QtTest/QTest>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

class KeyboardRoad : public PhotoRoad {
protected:
    static void PressIn(QWidget* window, Qt::Key key,
                        Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_TRUE(WaitFor([&] { return hands::PressKey(window, key, modifiers); })) << key;
    }
    static QString FocusName() {
        const QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? QString() : focus->objectName();
    }
    /// What gets the keyboard in a window once the window has it.
    static QString KeyboardIn(const QWidget* window) {
        return window->focusWidget() == nullptr ? QString() : window->focusWidget()->objectName();
    }
    /// Tab by Tab; the names of what had the keyboard on the way, the last one included.
    static QStringList TabTo(QWidget* window, const QString& name) {
        constexpr int kMost = 30;
        QStringList names;
        while (FocusName() != name && names.size() < kMost) {
            PressIn(window, Qt::Key_Tab);
            names << FocusName();
        }
        EXPECT_EQ(FocusName(), name) << names.join(u' ').toStdString();
        return names;
    }
    static void TypeText(const QString& text) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QInputMethodEvent typed; // Chinese comes so
        typed.setCommitString(text);
        QApplication::sendEvent(QApplication::focusWidget(), &typed);
    }
    static void ChooseInMenuByKeys(int entry) {
        ASSERT_TRUE(WaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
        QWidget* menu = QApplication::activePopupWidget();
        for (int step = 0; step < entry; ++step) {
            QTest::keyClick(menu, Qt::Key_Down);
        }
        QTest::keyClick(menu, Qt::Key_Return);
    }
};

TEST_F(KeyboardRoad, APhotoIsFoundEditedLookedUpAndLeft) {
    OpenConsole();
    QWidget* console = tour::Console();
    PressIn(console, Qt::Key_K, Qt::AltModifier);
    TypeText(u"楼上"_s);
    PressIn(console, Qt::Key_Return);
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 1; }));
    TabTo(console, u"resultGrid"_s);
    PressIn(console, Qt::Key_Down);
    EXPECT_EQ(SelectedRow(), 0);
    {
        const support::ModalVisit visit(u"BimPicEditDlg"_s, [](QWidget& editor) {
            EXPECT_EQ(FocusName(), u"picNameEdit"_s);
            PressIn(&editor, Qt::Key_A, Qt::ControlModifier);
            TypeText(u"键盘"_s);
            EXPECT_EQ(TabTo(&editor, u"okButton"_s),
                      (QStringList{u"markCombo"_s, u"statusCombo"_s, u"floorCombo"_s,
                                   u"axisXCombo"_s, u"axisYCombo"_s, u"labelTree"_s,
                                   u"newLabelEdit"_s, u"descriptionEdit"_s, u"okButton"_s}));
            PressIn(&editor, Qt::Key_Return);
        });
        PressIn(console, Qt::Key_Menu);
        ChooseInMenuByKeys(1);
        ASSERT_TRUE(WaitFor([this] {
            return Other().Photo(site.firstProject, upstairsPhoto).fileName == u"键盘.jpg"_s;
        }));
    }
    EXPECT_EQ(KeyboardIn(console), u"resultGrid"_s);
    PressIn(console, Qt::Key_K, Qt::AltModifier);
    PressIn(console, Qt::Key_A, Qt::ControlModifier);
    TypeText(u"照片"_s);
    PressIn(console, Qt::Key_Return);
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 5; }));
    TabTo(console, u"resultGrid"_s);
    PressIn(console, Qt::Key_Home);
    PressIn(console, Qt::Key_Return);
    ASSERT_TRUE(WaitFor([] { return Viewer() != nullptr; }));
    const QString first = ViewerTitle();
    PressIn(Viewer(), Qt::Key_Right);
    EXPECT_NE(ViewerTitle(), first);
    PressIn(Viewer(), Qt::Key_Left);
    EXPECT_EQ(ViewerTitle(), first);
    CloseViewer();
    EXPECT_EQ(KeyboardIn(console), u"resultGrid"_s);
    EXPECT_EQ(SelectedRow(), 0);
}

TEST_F(KeyboardRoad, EveryDialogOfTheMainWindowIsLeftByEscape) {
    const std::vector<std::pair<Qt::Key, QString>> dialogs = {{Qt::Key_B, u"binWindow"_s},
                                                              {Qt::Key_I, u"importDialog"_s}};
    for (const auto& [key, dialog] : dialogs) {
        const QString& name = dialog;
        ASSERT_TRUE(Press(key));
        ASSERT_TRUE(WaitFor([&] { return tour::FindWindow(name) != nullptr; }))
            << name.toStdString();
        PressIn(tour::FindWindow(name), Qt::Key_Escape);
        EXPECT_TRUE(WaitFor([&] { return tour::FindWindow(name) == nullptr; }))
            << name.toStdString();
    }
    EXPECT_EQ(OpenWindows(), QStringList{tour::kMain});
}

} // namespace
} // namespace roads
