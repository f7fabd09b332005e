// A component picked on the plan, as the module has it done.
#include "tests/roads/PickRoad.h"

#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/pick/ComponentDock.h"
#include "host/ui/pick/PickCanvas.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "services/IKXView.h"
#include "tests/roads/OtherClient.h"
#include "tests/roads/RoadHands.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QTableWidget>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

TEST_F(PickRoad, AComponentIsPickedAndConfirmedByKey) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c2"_s);
    PressOnPicks(Qt::Key_Return);
    EXPECT_FALSE(Picks().isVisible());
    EXPECT_EQ(PickedHandles(), QStringList({u"c2"_s}));
    EXPECT_EQ(Status(), u"构件选择已完成"_s);
}

TEST_F(PickRoad, TwoComponentsArePickedWithCtrlAndConfirmedByTheButton) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c1"_s);
    ClickComponent(u"c3"_s, Qt::ControlModifier);
    ClickOn(*client->Window(), u"pickDone"_s);
    EXPECT_EQ(PickedHandles(), QStringList({u"c1"_s, u"c3"_s}));
}

TEST_F(PickRoad, NoneIsPickedAndConfirmed) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    ClickOn(*client->Window(), u"pickDone"_s);
    EXPECT_TRUE(PickedHandles().isEmpty());
    EXPECT_EQ(Status(), u"构件选择已完成"_s);
}

TEST_F(PickRoad, EscapeCancels) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c1"_s);
    PressOnPicks(Qt::Key_Escape);
    EXPECT_TRUE(PickedHandles().isEmpty());
    EXPECT_EQ(Status(), u"构件选择已取消"_s);
}

TEST_F(PickRoad, AComponentWithoutAFloorIsPickedUnderOthers) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    Picks().SetFloor(int(Plan().Model().floors.size()) - 1);
    ClickComponent(u"c9"_s);
    PressOnPicks(Qt::Key_Return);
    EXPECT_EQ(PickedHandles(), QStringList({u"c9"_s}));
}

TEST_F(PickRoad, ThePlanComesBeforeTheDrawingAndTheDrawingComesBack) {
    Press(Qt::Key_D);
    ASSERT_TRUE(WaitFor([this] { return client->Window()->IsDrawingInFront(); }));
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    EXPECT_FALSE(client->Window()->IsDrawingInFront());
    PressOnPicks(Qt::Key_Escape);
    EXPECT_TRUE(client->Window()->IsDrawingInFront());
}

TEST_F(PickRoad, AMinimisedClientComesBackForThePick) {
    client->Window()->showMinimized();
    View().BeginComponentPick();
    EXPECT_TRUE(IsPicking());
    EXPECT_FALSE(client->Window()->isMinimized());
}

TEST_F(PickRoad, AnotherProjectCancelsThePick) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c1"_s);
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_FALSE(Picks().isVisible());
    EXPECT_TRUE(PickedHandles().isEmpty());
    EXPECT_FALSE(Plan().Model().floors.empty());
}

TEST_F(PickRoad, APlanThatIsReadAnewDoesNotEndThePick) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c1"_s);
    OtherClient(folder.Path(u"data"_s)).DeletePhotos({site.photos.front()});
    const auto photos = [this] { return host::CountPhotos(Plan().Model().floors[0]).Total(); };
    EXPECT_TRUE(WaitFor([this] { return hands::PressKey(client->Window(), Qt::Key_F5); }));
    ASSERT_TRUE(WaitFor([&] { return photos() == 4; }));
    EXPECT_TRUE(Picks().isVisible());
    EXPECT_EQ(PickedHandles(), QStringList({u"c1"_s}));
}

TEST_F(PickRoad, TheClientEndsInTheMiddleOfAPick) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c1"_s);
    client->Window()->close();
    client->Stop();
    EXPECT_EQ(client->Window(), nullptr);
}

TEST_F(PickRoad, ThePropertiesOfAComponentStandInTheDockAndCanBeCopied) {
    host::ComponentDock& dock = client->Window()->Properties();
    EXPECT_FALSE(dock.isVisible());
    View().ShowComponentProperties(site.firstProject, u"1"_s, u"c1"_s);
    EXPECT_TRUE(dock.isVisible());
    EXPECT_EQ(dock.findChild<QLabel*>(u"componentTitle"_s)->text(), u"柱 KZ-1"_s);
    auto* table = dock.findChild<QTableWidget*>(u"componentTable"_s);
    QStringList rows;
    for (int row = 0; row < table->rowCount(); ++row) {
        rows << table->item(row, 0)->text() + u'=' + table->item(row, 1)->text();
    }
    EXPECT_EQ(rows, QStringList({u"名称=KZ-1"_s, u"类型=框架柱"_s, u"类别=柱"_s, u"楼层=1层"_s,
                                 u"位置=1轴 / A轴"_s, u"构件标识=c1"_s, u"混凝土强度等级=C35"_s,
                                 u"截面尺寸=600x600"_s}));
    table->selectRow(6);
    table->setFocus();
    EXPECT_TRUE(WaitFor([&] { return hands::PressKey(table, Qt::Key_C, Qt::ControlModifier); }));
    EXPECT_EQ(QApplication::clipboard()->text(), u"混凝土强度等级\tC35"_s);
}

TEST_F(PickRoad, AComponentThatIsGoneIsTold) {
    View().ShowComponentProperties(site.firstProject, u"1"_s, u"nobody"_s);
    EXPECT_EQ(client->Window()->Properties().findChild<QLabel*>(u"componentTitle"_s)->text(),
              u"模型中没有这个构件（nobody），它可能已被删除或换了楼层。"_s);
    View().ShowComponentProperties(site.firstProject, u"1"_s, {});
    EXPECT_EQ(client->Window()->Properties().findChild<QLabel*>(u"componentTitle"_s)->text(),
              u"该问题没有指定构件。"_s);
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(client->Window()
                    ->Properties()
                    .findChild<QLabel*>(u"componentTitle"_s)
                    ->text()
                    .startsWith(u"还没有构件"_s));
}

} // namespace
} // namespace roads
