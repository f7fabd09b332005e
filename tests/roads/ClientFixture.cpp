#include "tests/roads/ClientFixture.h"

#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "sample/SampleSite.h"
#include "site/ICatalogue.h"
#include "site/sqlite/DataFolder.h"
#include "tests/support/WaitFor.h"

#include <QComboBox>
#include <QCoreApplication>

namespace roads {

using namespace Qt::StringLiterals;
using support::WaitFor;

void ClientOnAFolder::SetUp() {
    site = MakeSmallSite(folder.Path(u"data"_s));
    ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
    ASSERT_TRUE(session.SignIn(u"张伟"_s));
    Furnish();
    Start();
}

void ClientOnAFolder::Start() {
    client = std::make_unique<host::Client>(session);
    const auto lack = client->Start(QCoreApplication::applicationDirPath());
    ASSERT_FALSE(lack) << lack->toStdString();
    // A platform that grants the focus at once is not to be relied on.
    ASSERT_TRUE(WaitFor([this] { return client->Window()->isVisible(); }));
}

void ClientOnAFolder::StartOnTheSampleSite() {
    {
        const site::OpenedSite data = site::OpenSite(folder.Path(u"data"_s));
        ASSERT_FALSE(data.fault);
        QString error;
        const auto goOn = [](int, int, const QString&) { return true; };
        ASSERT_TRUE(sample::CreateSampleSite(*data.site, sample::SampleSize::Small, goOn, error))
            << error.toStdString();
    }
    ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
    ASSERT_TRUE(session.SignIn(session.Site().Catalogue().People().front()));
    ASSERT_TRUE(session.OpenProject(session.Site().Catalogue().Projects().front().ppid));
    Start();
}

bool ClientOnAFolder::Press(Qt::Key key) {
    return WaitFor(
        [this, key] { return hands::PressKey(client->Window(), key, Qt::ControlModifier); });
}

bool ClientOnAFolder::ChooseProject(const QString& entry) {
    auto* combo = client->Window()->findChild<QComboBox*>(u"projectChoice"_s);
    return WaitFor([combo, entry] { return hands::ChooseInCombo(combo, entry); });
}

host::FloorPlanCanvas& ClientOnAFolder::Plan() const {
    return client->Window()->Plan().Canvas();
}

std::vector<int> ClientOnAFolder::FlagCounts() const {
    std::vector<int> counts;
    for (const host::PlacedFlag& placed : Plan().Flags()) {
        if (placed.flag.kind == host::MarkKind::Photos) {
            counts.push_back(placed.flag.count);
        }
    }
    return counts;
}

QStringList ClientOnAFolder::Messages() const {
    QStringList texts;
    for (const host::HostMessage& message : client->Window()->Messages().Messages()) {
        texts << message.text;
    }
    return texts;
}

} // namespace roads
