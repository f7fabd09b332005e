#include "host/ui/MainWindow.h"

#include "host/ui/MessageBar.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/pick/ComponentDock.h"
#include "include/KXEvents.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QDropEvent>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <set>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using ZelvorNRQ_KXVeskPicture::WM_VESK_PIC_LOCATE;

TEST(Commands, HaveEachAKeyOfTheirOwnThatTheTipNames) {
    std::set<QString> keys;
    for (const CommandRow& row : CommandTable()) {
        if (row.key.isEmpty()) {
            continue;
        }
        const QString key = row.key.toString(QKeySequence::NativeText);
        EXPECT_TRUE(keys.insert(key).second) << qPrintable(key);
        EXPECT_TRUE(TipWithKey(row).endsWith(u"（%1）"_s.arg(key)));
        EXPECT_TRUE(KeysText().contains(key + u'\t' + row.text));
    }
    EXPECT_GT(keys.size(), 8U);
}

class ClientWindow : public testing::Test {
protected:
    ClientWindow() {
        QObject::connect(&window, &MainWindow::CommandGiven,
                         [this](Command command) { commands.push_back(command); });
        QObject::connect(&window, &MainWindow::PathsDropped,
                         [this](const QStringList& paths) { dropped = paths; });
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    [[nodiscard]] QComboBox* Projects() const {
        return window.findChild<QComboBox*>(u"projectChoice"_s);
    }

    bool Drop(const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &drop);
        return enter.isAccepted() && drop.isAccepted();
    }

    MainWindow window;
    /// The dock in which the focus is; empty: in none.
    [[nodiscard]] QString FocusedDock() const {
        for (const QWidget* at = window.focusWidget(); at != nullptr; at = at->parentWidget()) {
            if (qobject_cast<const QDockWidget*>(at) != nullptr) {
                return at->objectName();
            }
        }
        return {};
    }

    std::vector<Command> commands;
    QStringList dropped;
};

TEST_F(ClientWindow, CtrlQQuitsFromAnyWindowOfTheClientAndOtherKeysBelongToTheirs) {
    QWidget viewer;
    viewer.show();
    viewer.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&viewer));
    QTest::keyClick(&viewer, Qt::Key_B, Qt::ControlModifier);
    EXPECT_TRUE(commands.empty());
    QTest::keyClick(&viewer, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(commands, std::vector{Command::Quit});
}

TEST_F(ClientWindow, TabPassesOverADockBehindAnotherTabInBothDirections) {
    window.Marks().raise();
    support::RunPendingEvents();
    for (const bool forth : {true, false}) {
        QSet<QString> docks;
        for (int presses = 0; presses < 60; ++presses) {
            QTest::keyClick(window.focusWidget() != nullptr ? window.focusWidget() : &window,
                            forth ? Qt::Key_Tab : Qt::Key_Backtab);
            docks << FocusedDock();
        }
        EXPECT_TRUE(docks.contains(window.Marks().objectName()));
        EXPECT_FALSE(docks.contains(window.CatchUpList().objectName()));
    }
    window.CatchUpList().raise();
    support::RunPendingEvents();
    QSet<QString> docks;
    for (int presses = 0; presses < 60; ++presses) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        docks << FocusedDock();
    }
    EXPECT_FALSE(docks.contains(window.Marks().objectName()));
}

TEST_F(ClientWindow, PropertiesAskedForInFrontOfAnotherWindowComeOutOfTheMainOne) {
    QDialog front(&window);
    front.setGeometry(window.geometry());
    front.show();
    front.activateWindow();
    ASSERT_TRUE(support::WaitFor([&] { return QApplication::activeWindow() == &front; }));
    ComponentDock& dock = window.Properties();
    dock.ShowFacts({u"柱 KZ-2"_s, {{u"名称"_s, u"KZ-2"_s}}});
    EXPECT_TRUE(dock.isVisible());
    EXPECT_TRUE(dock.isFloating());
    auto& table = *dock.findChild<QWidget*>(u"componentTable"_s);
    EXPECT_EQ(dock.focusWidget(), &table);
    front.activateWindow();
    ASSERT_TRUE(support::WaitFor([&] { return QApplication::activeWindow() == &front; }));
    dock.ShowFacts({u"柱 KZ-3"_s, {{u"名称"_s, u"KZ-3"_s}}});
    EXPECT_TRUE(support::WaitFor([&] { return QApplication::activeWindow() == &dock; }));
    QTest::keyClick(&table, Qt::Key_Escape);
    EXPECT_FALSE(dock.isVisible());
    EXPECT_FALSE(dock.isFloating()) << "it goes back to its place";
    front.close();
    window.activateWindow();
    ASSERT_TRUE(support::WaitFor([&] { return QApplication::activeWindow() == &window; }));
    dock.ShowFacts({u"柱 KZ-3"_s, {{u"名称"_s, u"KZ-3"_s}}});
    EXPECT_FALSE(dock.isFloating());
}

TEST_F(ClientWindow, IsTheToolkitsMainWindowWhileItLives) {
    EXPECT_EQ(toolkit::MainWindow(), window.Id());
    EXPECT_EQ(toolkit::WidgetOf(window.Id()), &window);
    toolkit::WindowId id = toolkit::kNoWindow;
    {
        const MainWindow second;
        id = second.Id();
        EXPECT_EQ(toolkit::MainWindow(), id);
    }
    EXPECT_EQ(toolkit::WidgetOf(id), nullptr);
    EXPECT_EQ(toolkit::MainWindow(), toolkit::kNoWindow);
}

TEST_F(ClientWindow, AWindowThatComesUpWhileAnotherClosesIsClosedToo) {
    class Parting final : public QWidget {
    public:
        QWidget next;

    protected:
        void closeEvent(QCloseEvent* event) override {
            QWidget::closeEvent(event);
            next.show();
        }
    } parting;
    parting.show();
    EXPECT_TRUE(window.CloseOtherWindows());
    EXPECT_FALSE(parting.isVisible());
    EXPECT_FALSE(parting.next.isVisible());
}

TEST_F(ClientWindow, KeysGiveTheirCommandsUnlessTheseAreDisabled) {
    QTest::keyClick(&window, Qt::Key_1, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_B, Qt::ControlModifier);
    window.SetEnabled(Command::IssueConsole, false);
    QTest::keyClick(&window, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(commands, (std::vector<Command>{Command::BimConsole, Command::Bin}));
}

TEST_F(ClientWindow, TellsALookupOfAPhotoFromOneOfADrawingByTheFirstParameter) {
    QStringList photos;
    std::vector<int> drawings;
    QObject::connect(&window, &MainWindow::PhotoLocated,
                     [&](const QString& text) { photos << text; });
    QObject::connect(&window, &MainWindow::DrawingLocated,
                     [&](int drawingId) { drawings.push_back(drawingId); });
    const QString text = u"-1-3-17"_s;
    toolkit::SendWindowEvent(window.Id(), WM_VESK_PIC_LOCATE, 0, quintptr(&text));
    toolkit::PostWindowEvent(window.Id(), WM_VESK_PIC_LOCATE, 3, 12);
    toolkit::DeliverPostedEvents();
    toolkit::SendWindowEvent(window.Id(), WM_VESK_PIC_LOCATE, 0, 0);
    toolkit::SendWindowEvent(window.Id(), WM_VESK_PIC_LOCATE + 1, 3, 13);
    EXPECT_EQ(photos, QStringList{text});
    EXPECT_EQ(drawings, std::vector<int>{12});
}

TEST_F(ClientWindow, TheProjectCannotBeChangedUnderADialog) {
    window.SetProjects({u"一期"_s, u"二期"_s}, 0);
    EXPECT_TRUE(Projects()->isEnabled());
    QDialog dialog(&window);
    dialog.open();
    EXPECT_TRUE(support::WaitFor([&] { return !Projects()->isEnabled(); }));
    EXPECT_FALSE(Drop({QUrl::fromLocalFile(u"/tmp/a"_s)}));
    dialog.close();
    EXPECT_TRUE(support::WaitFor([&] { return Projects()->isEnabled(); }));
}

TEST_F(ClientWindow, OnlyThePersonsChoiceOfProjectIsTold) {
    std::vector<int> chosen;
    QObject::connect(&window, &MainWindow::ProjectChosen,
                     [&](int index) { chosen.push_back(index); });
    window.SetProjects({u"一期"_s, u"二期"_s}, 0);
    EXPECT_TRUE(window.windowTitle().startsWith(u"一期"_s));
    EXPECT_TRUE(chosen.empty());
    Projects()->setFocus();
    QTest::keyClick(Projects(), Qt::Key_Down);
    EXPECT_EQ(chosen, std::vector<int>{1});
    window.SetProjects({}, -1);
    EXPECT_EQ(Projects()->placeholderText(), u"没有工程"_s);
}

TEST_F(ClientWindow, TakesDroppedFilesOfThisMachineAlone) {
    EXPECT_FALSE(Drop({QUrl(u"https://example.org/a.jpg"_s)}));
    EXPECT_TRUE(dropped.isEmpty());
    EXPECT_TRUE(Drop({QUrl::fromLocalFile(u"/tmp/a"_s), QUrl::fromLocalFile(u"/tmp/b.jpg"_s)}));
    EXPECT_EQ(dropped, QStringList({u"/tmp/a"_s, u"/tmp/b.jpg"_s}));
}

TEST_F(ClientWindow, TheListOfWhatOthersFiledTakesTheKeysWhenItIsCalled) {
    CatchUpItem item;
    item.seq = 1;
    window.CatchUpList().Model().SetItems({item});
    window.ToggleCatchUp();
    const auto* list = window.findChild<QListView*>(u"catchUpList"_s);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(list->currentIndex().row(), 0);
}

TEST_F(ClientWindow, ItsMenuOfDrawingsChecksTheCurrentOne) {
    std::vector<int> chosen;
    QObject::connect(&window, &MainWindow::DrawingChosen,
                     [&](int index) { chosen.push_back(index); });
    auto* menu = window.findChild<QMenu*>(u"drawingMenu"_s);
    EXPECT_FALSE(menu->isEnabled());
    window.SetDrawings({u"A&B"_s, u"二层"_s}, 1);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions().front()->text(), u"A&&B"_s);
    EXPECT_TRUE(menu->actions().back()->isChecked());
    menu->actions().front()->trigger();
    EXPECT_EQ(chosen, std::vector<int>{0});
}

} // namespace
} // namespace host
