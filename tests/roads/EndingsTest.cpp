// What a person leaves half done in the host's windows, at every way in which they end.
#include "host/ui/MainWindow.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "tests/roads/ClientFixture.h"
#include "tests/support/HalfTyped.h"
#include "tests/support/WaitFor.h"
#include "tour/TourEyes.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>

#include <functional>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::HalfDone;
using support::WaitFor;

struct Ending {
    const char* name;
    std::function<void()> act;
};

class HalfDoneInTheClient : public ClientOnAFolder {
protected:
    /// The client of the moment, with the days of the panel open to typing.
    void StartAnew() {
        client.reset();
        Start();
        client->Window()->Marks().show(); // the one before may have closed it
        auto* all = client->Window()
                        ->Marks()
                        .Page(host::MarkKind::Photos)
                        .findChild<QCheckBox*>(u"allDaysBox"_s);
        ASSERT_NE(all, nullptr);
        all->setChecked(false);
    }
    [[nodiscard]] std::vector<HalfDone> InputsOfTheMainWindow() {
        return support::HalfDoneInputs(*client->Window());
    }
    [[nodiscard]] std::vector<Ending> EndingsOfTheClient() {
        return {{"close", [this] { client->Window()->close(); }},
                {"stop", [this] { client->Stop(); }},
                {"object", [this] { client.reset(); }},
                {"panel", [this] { client->Window()->Marks().close(); }}};
    }
    QWidget* OpenByKey(Qt::Key key, const QString& name) {
        EXPECT_TRUE(Press(key));
        EXPECT_TRUE(WaitFor([&] { return tour::FindWindow(name) != nullptr; }));
        return tour::FindWindow(name);
    }
    /// Half does everything that a window of the host takes, and ends it each way.
    void TryWindow(Qt::Key key, const QString& name) {
        const std::size_t count = support::HalfDoneInputs(*OpenByKey(key, name)).size();
        ASSERT_GT(count, 0U);
        const std::vector<std::function<void(QWidget*)>> endings = {
            [](QWidget* window) { window->close(); },
            [](QWidget* window) { delete window; },
            [this](QWidget*) { client->Stop(); },
        };
        for (const auto& end : endings) {
            for (std::size_t at = 0; at < count; ++at) {
                StartAnew();
                QWidget* window = OpenByKey(key, name);
                const HalfDone input = support::HalfDoneInputs(*window)[at];
                SCOPED_TRACE(input.what);
                input.act(*window);
                end(window);
                support::RunPendingEvents();
                EXPECT_EQ(tour::FindWindow(name), nullptr);
                ExpectNothingCame();
            }
        }
    }
    void ExpectNothingCame() {
        if (client && client->Window() != nullptr) {
            EXPECT_EQ(Messages(), QStringList());
        }
    }
};

TEST_F(HalfDoneInTheClient, TheMainWindowEndsQuietlyWhateverWasBegunInIt) {
    StartAnew();
    const std::size_t inputs = InputsOfTheMainWindow().size();
    ASSERT_GT(inputs, 5U) << "dates, filter, choice of project";
    const std::size_t endings = EndingsOfTheClient().size();
    for (std::size_t end = 0; end < endings; ++end) {
        for (std::size_t at = 0; at < inputs; ++at) {
            StartAnew();
            const HalfDone input = InputsOfTheMainWindow()[at];
            const Ending ending = EndingsOfTheClient()[end];
            SCOPED_TRACE(input.what + ", then " + ending.name);
            input.act(*client->Window());
            ending.act();
            support::RunPendingEvents();
            ExpectNothingCame();
        }
    }
}

TEST_F(HalfDoneInTheClient, TheImportEndsQuietly) {
    TryWindow(Qt::Key_I, u"importDialog"_s);
}

TEST_F(HalfDoneInTheClient, TheBinEndsQuietly) {
    TryWindow(Qt::Key_B, u"binWindow"_s);
}

} // namespace
} // namespace roads
