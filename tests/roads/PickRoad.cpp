#include "tests/roads/PickRoad.h"

#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/pick/PickCanvas.h"
#include "host/ui/pick/PickPane.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "services/Factories.h"
#include "site/IComponents.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"

#include <QStatusBar>

namespace roads {

using namespace Qt::StringLiterals;
using support::WaitFor;

void PickRoad::Furnish() {
    site::SiteWriter writer(support::FolderOf(session));
    const QString corner = writer.FindPosition(site.firstProject, u"1"_s, u"1"_s, u"A"_s);
    const QString middle = writer.FindPosition(site.firstProject, u"1"_s, u"2"_s, u"B"_s);
    const auto add = [&](const QString& handle, const QString& floor, const QString& key,
                         const QString& name) {
        site::Component component;
        component.ppid = site.firstProject;
        component.handle = handle;
        component.floor = floor;
        component.positionKey = key;
        component.name = name;
        component.subName = u"框架柱"_s;
        component.kind = u"柱"_s;
        component.properties = {{u"混凝土强度等级"_s, u"C35"_s}, {u"截面尺寸"_s, u"600x600"_s}};
        writer.AddComponent(component);
    };
    add(u"c1"_s, u"1"_s, corner, u"KZ-1"_s);
    add(u"c2"_s, u"1"_s, corner, u"KZ-2"_s);
    add(u"c3"_s, u"1"_s, middle, u"KZ-3"_s);
    add(u"c9"_s, {}, {}, u"KZ-9"_s);
}

void PickRoad::SetUp() {
    ClientOnAFolder::SetUp();
    ASSERT_TRUE(WaitFor([this] { return !Plan().Model().floors.empty(); }));
    Plan().SetFloor(host::FindFloor(Plan().Model(), u"1"_s));
}

KX_DATA::IKXView& PickRoad::View() {
    return *GetKXHoopsModuleMng()->GetView();
}

host::PickCanvas& PickRoad::Picks() const {
    return client->Window()->Plan().Picks().Canvas();
}

bool PickRoad::IsPicking() const {
    return WaitFor([this] { return hands::CanReach(&Picks()); });
}

void PickRoad::ClickComponent(const QString& handle, Qt::KeyboardModifiers modifiers) const {
    for (const host::FlagBox& box : Picks().Boxes().boxes) {
        if (box.flag >= 0 && Picks().Components()[size_t(box.flag)].component.handle == handle) {
            ASSERT_TRUE(hands::CanReach(&Picks()));
            hands::SendClick(&Picks(), box.rect.center().toPoint(), {Qt::LeftButton, modifiers});
            return;
        }
    }
    ADD_FAILURE() << "no such component: " << handle.toStdString();
}

void PickRoad::PressOnPicks(Qt::Key key) const {
    EXPECT_TRUE(WaitFor([this, key] { return hands::PressKey(&Picks(), key); }));
}

QStringList PickRoad::PickedHandles() {
    std::vector<KX_DATA::PickedComponent> components;
    View().GetPickedComponents(components);
    QStringList handles;
    for (const KX_DATA::PickedComponent& component : components) {
        handles << component.componentHandle;
    }
    return handles;
}

QString PickRoad::Status() const {
    return client->Window()->statusBar()->currentMessage();
}

} // namespace roads
