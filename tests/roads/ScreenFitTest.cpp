// Every window on small screens: run once for each of the screens in screens/.
#include "hands/Hands.h"
#include "host/app/StartUp.h"
#include "host/qr/QrImage.h"
#include "host/ui/FirstStartPage.h"
#include "host/ui/MainWindow.h"
#include "host/ui/SignInDialog.h"
#include "host/ui/issues/IssueWindow.h"
#include "host/ui/setup/SetupWindow.h"
#include "tests/roads/ClientFixture.h"
#include "tests/roads/RoadHands.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QSizeGrip>
#include <QWindow>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::ModalVisit;
using support::WaitFor;

/// Device-independent pixels of the smallest screen for which the windows are laid out: 1280 by 720
/// at 150 %.
constexpr int kLeastWidth = 850;

/// Qt puts what stands behind another tab out of the window.
bool IsBehindATab(const QWidget* widget) {
    for (const QWidget* above = widget; above != nullptr; above = above->parentWidget()) {
        const auto* dock = qobject_cast<const QDockWidget*>(above);
        if (dock != nullptr && dock->visibleRegion().isEmpty()) {
            const auto* window = qobject_cast<QMainWindow*>(dock->window());
            return window != nullptr &&
                   !window->tabifiedDockWidgets(const_cast<QDockWidget*>(dock)).isEmpty();
        }
    }
    return false;
}

/// A control that a person reads or uses, not a part of what scrolls.
bool IsLeaf(const QWidget* widget) {
    for (const QWidget* above = widget->parentWidget(); above != nullptr && !above->isWindow();
         above = above->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(above) != nullptr) {
            return false;
        }
    }
    return widget->isVisible() && !widget->isWindow() &&
           (widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly).isEmpty() ||
            qobject_cast<const QAbstractScrollArea*>(widget) != nullptr);
}

class SmallScreen : public ClientOnAFolder {
protected:
    void SetUp() override {
        // A face that is wider than the usual one, per cent.
        if (const int stretch = qEnvironmentVariableIntValue("SCREENS_FONT_STRETCH")) {
            QFont font = QApplication::font();
            font.setStretch(stretch);
            QApplication::setFont(font);
        }
        ClientOnAFolder::SetUp();
    }
    /// The window lies on the screen's free area, and all that it shows within the window.
    static void ExpectFits(const QWidget& window) {
        const QRect free = window.screen()->availableGeometry();
        EXPECT_TRUE(free.contains(window.frameGeometry()))
            << window.objectName().toStdString() << ' ' << window.frameGeometry().width() << 'x'
            << window.frameGeometry().height() << " at " << window.x() << ',' << window.y()
            << " on " << free.width() << 'x' << free.height();
        if (free.width() < kLeastWidth) {
            return; // the window fits, what is in it needn't
        }
        const QList<QWidget*> parts = window.findChildren<QWidget*>();
        for (const QWidget* part : parts) {
            if (part->window() != &window || !IsLeaf(part) || part->size().isEmpty() ||
                IsBehindATab(part) || qobject_cast<const QSizeGrip*>(part) != nullptr) {
                continue;
            }
            const QRect place(part->mapTo(&window, QPoint(0, 0)), part->size());
            EXPECT_TRUE(window.rect().contains(place))
                << window.objectName().toStdString() << ": " << part->metaObject()->className()
                << ' ' << part->objectName().toStdString() << " reaches to " << place.right() << ','
                << place.bottom() << " of " << window.width() << 'x' << window.height();
        }
    }
    static QWidget* WindowNamed(const QString& name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == name && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    void ExpectFitsAfter(Qt::Key key, const QString& name) {
        ASSERT_TRUE(Press(key));
        ASSERT_TRUE(WaitFor([&] { return WindowNamed(name) != nullptr; })) << name.toStdString();
        ExpectFits(*WindowNamed(name));
        if (QWidget* window = WindowNamed(name)) {
            window->close();
        }
    }
};

TEST_F(SmallScreen, TheMainWindowFitsWithItsPanels) {
    ExpectFits(*client->Window());
    const QList<QDockWidget*> docks = client->Window()->findChildren<QDockWidget*>();
    for (QDockWidget* dock : docks) {
        dock->show(); // one of them comes up when it is asked for
        dock->raise();
        support::RunPendingEvents();
        ExpectFits(*client->Window());
        EXPECT_TRUE(dock->isVisible() && !dock->visibleRegion().isEmpty())
            << dock->objectName().toStdString();
    }
}

TEST_F(SmallScreen, AMainWindowThatWasLargerElsewhereFits) {
    client->Window()->resize(3000, 2000);
    client->Stop();
    client.reset();
    Start();
    ExpectFits(*client->Window());
}

TEST_F(SmallScreen, TheConsoleFitsForEachKind) {
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_3}) {
        ASSERT_TRUE(Press(key));
        ASSERT_TRUE(WaitFor([] { return tour::ConsoleGrid() != nullptr; }));
        ExpectFits(*tour::ConsoleGrid()->window());
        // On smaller screens than that too.
        const QWidget* search = tour::ConsoleControl(u"searchButton"_s);
        ASSERT_NE(search, nullptr);
        EXPECT_TRUE(tour::Console()->rect().contains(search->geometry()))
            << search->geometry().right() << " of " << tour::Console()->width();
    }
}

TEST_F(SmallScreen, TheViewerFitsWithItsLowerLine) {
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 5; }));
    ClickRowIcon(0, u"反查"_s);
    ASSERT_TRUE(WaitFor([] { return Viewer() != nullptr; }));
    ExpectFits(*Viewer());
    CloseViewer();
}

TEST_F(SmallScreen, TheEditorFits) {
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 5; }));
    const ModalVisit visit(u"BimPicEditDlg"_s, [](QWidget& editor) {
        ExpectFits(editor);
        editor.close();
    });
    ClickRowIcon(0, u"编辑"_s);
}

TEST_F(SmallScreen, TheHostsOtherWindowsFit) {
    ExpectFitsAfter(Qt::Key_B, u"binWindow"_s);
    ExpectFitsAfter(Qt::Key_I, u"importDialog"_s);
}

TEST_F(SmallScreen, TheSettingsFitOnEachPage) {
    ASSERT_TRUE(Press(Qt::Key_Comma));
    ASSERT_TRUE(WaitFor([] { return WindowNamed(u"setupWindow"_s) != nullptr; }));
    auto* settings = qobject_cast<host::SetupWindow*>(WindowNamed(u"setupWindow"_s));
    for (int page = 0; page <= int(host::SetupWindow::Page::Drawings); ++page) {
        settings->ShowPage(host::SetupWindow::Page(page));
        support::RunPendingEvents();
        ExpectFits(*settings);
    }
    settings->close();
}

TEST_F(SmallScreen, TheListOfKeysFits) {
    const ModalVisit visit(u"keysWindow"_s, [](QWidget& keys) {
        ExpectFits(keys);
        const auto* button = keys.findChild<QPushButton*>();
        EXPECT_TRUE(keys.rect().contains(QRect(button->mapTo(&keys, QPoint()), button->size())));
        keys.close();
    });
    ASSERT_TRUE(
        WaitFor([this] { return hands::PressKey(client->Window(), Qt::Key_F1, Qt::NoModifier); }));
}

TEST_F(SmallScreen, TheWindowOfAnIssueIsAsWideAsItsScreenAllows) {
    host::IssueWindow window(nullptr, &host::QrImageOf);
    window.ShowFacts({u"梁底露筋"_s, {{u"状态"_s, u"未整改"_s}}, {}, u"kxissue:1:7:abc"_s, {}});
    window.show();
    ASSERT_TRUE(WaitFor([&] { return window.isVisible(); }));
    ExpectFits(window);
    constexpr int kFrames = 16;
    EXPECT_GE(window.width(),
              std::min(720, window.screen()->availableGeometry().width() - kFrames));
}

TEST_F(SmallScreen, TheSignInFits) {
    std::vector<host::SignInEntry> users;
    for (int number = 0; number < 40; ++number) {
        users.push_back({u"工程师 %1"_s.arg(number), u"可以编辑、删除、显示与隐藏、新增标签"_s});
    }
    host::SignInDialog dialog(users, users[3].name, folder.Path());
    dialog.show();
    ASSERT_TRUE(WaitFor([&] { return dialog.isVisible(); }));
    ExpectFits(dialog);
}

TEST_F(SmallScreen, TheFirstPageFitsWithANote) {
    host::FirstStartPage page({folder.Path(), {}, {}});
    page.ShowNote(host::LostFolderText(folder.Path()));
    page.show();
    ASSERT_TRUE(WaitFor([&] { return page.isVisible(); }));
    ExpectFits(page);
}

} // namespace
} // namespace roads
