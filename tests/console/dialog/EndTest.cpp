// The console ends in every way while something is half done in one of its fields.
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/console/dialog/ConsoleFixture.h"
#include "tests/support/HalfTyped.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <gmock/gmock.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

class ConsoleEndTest : public ConsoleFixture, public testing::WithParamInterface<ConsoleMode> {
protected:
    ConsoleEndTest() {
        host.pics.usedBimMarks = host.pics.usedPdfMarks = host.questions.usedMarks = {1, 2};
        host.pics.bimLabels = host.pics.pdfLabels = {{u"l1"_s, u"裂缝"_s}};
    }
    ~ConsoleEndTest() override {
        Console().CloseConsole();
        delete parent;
    }

    /// A console of the kind with two pages, its dates on, on a main window that may die.
    QWidget* OpenFresh() {
        Console().CloseConsole();
        support::RunPendingEvents();
        delete std::exchange(parent, new QWidget);
        toolkit::SetMainWindow(toolkit::RegisterWindow(
            parent, [](const toolkit::WindowEvent&) { return qintptr(0); }));
        Open(GetParam(), 31);
        Click(C().noDateLimit);
        return Window();
    }
    void ExpectSilent(const std::function<void()>& end) {
        support::ExpectEndsAsUntouched({[this] { return OpenFresh(); }, end,
                                        [this] {
                                            Calls calls = Log().Lines();
                                            Log().Clear();
                                            return calls;
                                        }});
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
    [[nodiscard]] static ConsoleMode OtherKind() {
        return GetParam() == kModeIssue ? kModeBim : kModeIssue;
    }

    QWidget* parent = nullptr;
};

INSTANTIATE_TEST_SUITE_P(EachKind, ConsoleEndTest, testing::Values(kModeBim, kModePdf, kModeIssue));

TEST_P(ConsoleEndTest, ByTheModule) {
    ExpectSilent([] { Console().CloseConsole(); });
}

TEST_P(ConsoleEndTest, ByItsCloseButton) {
    ExpectSilent([this] { Window()->close(); });
}

TEST_P(ConsoleEndTest, ByTheOpeningOfAnotherKind) {
    ExpectSilent([] { Facade().ShowPicMng(OtherKind()); });
}

TEST_P(ConsoleEndTest, ByAPresetOfAnotherKind) {
    ExpectSilent([] {
        if (OtherKind() == kModeIssue) {
            Facade().ShowIssueMngFor(0, u"K7"_s, 2, u"H77"_s);
        } else {
            Facade().ShowBimPicMngFor(0, u"K7"_s, 2, 3);
        }
    });
}

TEST_P(ConsoleEndTest, ByAChangeOfProject) {
    ExpectSilent([] { CVeskPicProjChangeObs().OnProjChange(); });
}

TEST_P(ConsoleEndTest, WithTheMainWindow) {
    ExpectSilent([this] { delete std::exchange(parent, nullptr); });
}

TEST_P(ConsoleEndTest, WithAllWindowsOfTheProgram) {
    ExpectSilent([] { QApplication::closeAllWindows(); });
}

TEST_P(ConsoleEndTest, WithItsObject) {
    ExpectSilent([] { CVeskPicMngDlg::ReleaseInstance(); });
}

} // namespace
