// One number for a place everywhere: the database, the list of floors, the plan's title, card and
// flags, the flags' menus and the mark panel say the same of every floor and every intersection.
#include "hands/Hands.h"
#include "host/ui/LocateText.h"
#include "host/ui/MainWindow.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "site/FloorOrder.h"
#include "site/IBin.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/ClientFixture.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"

#include <QDateTime>

#include <QLabel>
#include <QListWidget>
#include <QtTest/QTest>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using host::MarkKind;
using host::PhotoCount;

class OneNumber : public ClientOnAFolder {
protected:
    /// The photos that aren't deleted, as the database has them.
    PhotoCount InDatabase(const QString& condition, const QVariantList& values) {
        PhotoCount count;
        support::FolderOf(session).Db().ForEach(
            u"SELECT status, count(*) FROM bim_photo WHERE ppid IN (%1) AND %2 GROUP BY status"_s
                .arg(OpenProjects(), condition),
            values, [&](const site::Statement& row) {
                (row.Int(0) == 0 ? count.shown : count.hidden) += row.Int(1);
            });
        return count;
    }
    QString OpenProjects() {
        QStringList ids;
        for (const site::ProjectEntry& project : session.OpenProjects()) {
            ids << QString::number(project.ppid);
        }
        return ids.join(u',');
    }
    PhotoCount OnFloor(const host::PlanFloor& floor) {
        return InDatabase(u"floor = ? AND (? = 0 OR ppid = ?)"_s,
                          {floor.name, floor.ppid, floor.ppid});
    }
    [[nodiscard]] QString ListRow(int floor) const {
        return client->Window()->findChild<QListWidget*>(u"floorList"_s)->item(floor)->text();
    }
    /// What photo flags at a place of the shown floor stand for.
    [[nodiscard]] int FlaggedAt(std::optional<int> place) const {
        int count = 0;
        for (const host::PlacedFlag& flag : Plan().Flags()) {
            if (flag.flag.kind == MarkKind::Photos && (!place || flag.place == *place)) {
                count += flag.flag.count;
            }
        }
        return count;
    }
    QString CardAt(int place) {
        QTest::mouseClick(&Plan(), Qt::LeftButton, {}, Plan().CentreOf(place));
        return Plan().findChild<QLabel*>(u"planCardText"_s)->text();
    }
    QString PanelRow(const QString& group) {
        const host::MarkTreeModel& model = client->Window()->Marks().Page(MarkKind::Photos).Model();
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex floor = model.index(row, host::MarkTreeModel::kName);
            if (model.GroupOf(floor) == group) {
                return floor.siblingAtColumn(host::MarkTreeModel::kCount).data().toString();
            }
        }
        return u"0"_s;
    }

    void ExpectOneNumberOn(int at) {
        Plan().SetFloor(at);
        const host::PlanFloor floor = Plan().Model().floors[at];
        const PhotoCount want = OnFloor(floor);
        const QString caption = host::PlanFloorCaption(floor);
        SCOPED_TRACE(caption.toStdString());
        EXPECT_EQ(ListRow(at),
                  want.Total() == 0 ? caption : u"%1（%2）"_s.arg(caption, host::CountText(want)));
        EXPECT_TRUE(host::PlanTitleNote(floor).contains(host::PhotosText(want)))
            << host::PlanTitleNote(floor).toStdString();
        EXPECT_EQ(FlaggedAt({}), want.shown);
        const PhotoCount all = InDatabase(u"floor = ?"_s, {floor.name});
        EXPECT_EQ(PanelRow(floor.name.isEmpty() ? u"其他"_s : floor.name), host::CountText(all));
        ExpectOneNumberAtPlacesOf(floor);
    }
    void ExpectOneNumberAtPlacesOf(const host::PlanFloor& floor) {
        for (int place = 0; place < int(floor.intersections.size()); ++place) {
            const PhotoCount want =
                InDatabase(u"floor = ? AND position_key = ?"_s,
                           {floor.name, floor.intersections[place].positionKey});
            EXPECT_EQ(floor.intersections[place].photos, want);
            EXPECT_EQ(FlaggedAt(place), want.shown);
            if (want.Total() > 0) {
                EXPECT_TRUE(CardAt(place).endsWith(host::PhotosText(want)));
            }
        }
    }
    /// On every floor, and over all floors no photo is left out or counted twice.
    void ExpectOneNumberEverywhere() {
        PhotoCount sum;
        const int floors = int(Plan().Model().floors.size());
        for (int at = 0; at < floors; ++at) {
            ExpectOneNumberOn(at);
            sum += host::CountPhotos(Plan().Model().floors[at]);
        }
        EXPECT_EQ(sum, InDatabase(u"1"_s, {}));
        EXPECT_GT(sum.shown, 0);
        EXPECT_GT(sum.hidden, 0);
    }
    int IndexOfFloor(const QString& name) {
        return host::FindFloor(Plan().Model(), name, session.IsWorkset() ? site.firstProject : 0);
    }
};

/// Of the small site's photos and more of them: hidden ones, one whose position the model has lost,
/// one whose floor it has lost, ones on no floor, a deleted one, a floor with hidden photos alone.
class OneNumberOfAnOddSite : public OneNumber {
protected:
    void Furnish() override {
        site::SiteWriter writer(support::FolderOf(session));
        writer.AddMark(2, u"安全"_s, 0x00FF00);
        for (int more = 0; more < 4; ++more) {
            odd.push_back(Add(writer, site.firstProject, u"-1"_s, 2));
        }
        upper = Add(writer, site.firstProject, u"1"_s, 1);
        Add(writer, site.secondProject, u"1"_s, 1);
        for (int more = 0; more < 3; ++more) {
            nowhere.push_back(Add(writer, site.firstProject, {}, 1));
        }
        site::Database& db = support::FolderOf(session).Db();
        db.Exec(u"UPDATE position SET valid = 0 WHERE position_key = ?"_s,
                {writer.FindPosition(site.firstProject, u"-1"_s, u"1"_s, u"A"_s)});
        db.Exec(u"UPDATE bim_photo SET position_key = 'lost' WHERE id = ?"_s, {odd[0]});
        db.Exec(u"UPDATE bim_photo SET floor = '7', floor_sort = ? WHERE id = ?"_s,
                {site::FloorSortKey(u"7"_s), odd[1]});
        ASSERT_TRUE(GetVeskPicMng()->SetBimPicsShown(
            site.firstProject, {site.photos[0], odd[2], upper, nowhere[0]}, true));
        site::IBin& bin = session.Site().Bin();
        ASSERT_EQ(bin.DeleteBimPhotos({site.firstProject}, {site.photos[1]},
                                      {u"张伟"_s, QDateTime::currentSecsSinceEpoch()}),
                  1);
    }
    qint32 Add(site::SiteWriter& writer, qint32 ppid, const QString& floor, qint32 mark) {
        site::NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = u"更多%1.jpg"_s.arg(++added);
        if (!floor.isEmpty()) {
            photo.positionKey = writer.FindPosition(ppid, floor, u"1"_s, u"A"_s);
        }
        photo.markId = mark;
        photo.uploader = u"张伟"_s;
        photo.uploadTime = 1'700'000'000 + added;
        return writer.FilePhoto(photo, {{}, JpegBytes(qRgb(added, 7, 7))});
    }

    int added = 0;
    std::vector<qint32> odd;
    std::vector<qint32> nowhere;
    qint32 upper = 0;
};

/// The sample site, as a person finds it at the first start.
class OneNumberOfTheSampleSite : public OneNumber {
protected:
    void SetUp() override { StartOnTheSampleSite(); }
};

TEST_F(OneNumberOfAnOddSite, IsSaidOfEveryFloorAndPlace) {
    ExpectOneNumberEverywhere();
    EXPECT_EQ(ListRow(IndexOfFloor(u"-1"_s)), u"-1层（5 + 2 隐藏）"_s);
    EXPECT_EQ(host::PlanTitleNote(Plan().Model().floors[IndexOfFloor(u"-1"_s)]),
              u"轴网 2 × 2，照片 5 + 2 隐藏，其中不在轴网上 2 + 1 隐藏"_s);
    EXPECT_EQ(ListRow(IndexOfFloor(u"1"_s)), u"1层（0 + 1 隐藏）"_s);
    EXPECT_EQ(ListRow(IndexOfFloor(u"7"_s)), u"7层（1）"_s);
    EXPECT_EQ(host::PlanTitleNote(Plan().Model().floors[IndexOfFloor({})]),
              u"没有楼层的照片 2 + 1 隐藏"_s);
}

TEST_F(OneNumberOfAnOddSite, IsSaidOfSeveralProjectsAtOnce) {
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    ExpectOneNumberEverywhere();
    EXPECT_EQ(PanelRow(u"1"_s), u"1 + 1 隐藏"_s);
}

TEST_F(OneNumberOfAnOddSite, StaysOneAfterHidingDeletingAndBringingBack) {
    ASSERT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.firstProject, {upper, nowhere[0]}, false));
    ASSERT_TRUE(GetVeskPicMng()->SetBimPicsShown(site.firstProject, site.photos, true));
    site::IBin& bin = session.Site().Bin();
    ASSERT_EQ(bin.DeleteBimPhotos({site.firstProject}, {odd[3], nowhere[1]},
                                  {u"张伟"_s, QDateTime::currentSecsSinceEpoch()}),
              2);
    ASSERT_EQ(bin.Restore({bin.List().back().id}), 1);
    ASSERT_TRUE(support::WaitFor(
        [this] { return hands::PressKey(client->Window(), Qt::Key_F5, Qt::NoModifier); }));
    ASSERT_TRUE(
        support::WaitFor([this] { return ListRow(IndexOfFloor(u"1"_s)) == u"1层（1）"_s; }));
    ExpectOneNumberEverywhere();
}

TEST_F(OneNumberOfAnOddSite, FlagsAndTheirMenusTellWhatIsHiddenBehindThem) {
    Plan().SetFloor(IndexOfFloor(u"-1"_s));
    const auto place = host::FindPlace(Plan().Model(), site.positionKey);
    ASSERT_TRUE(place);
    for (int box = 0; box < int(Plan().FlagsLayout().boxes.size()); ++box) {
        const host::FlagBox& at = Plan().FlagsLayout().boxes[box];
        if (at.place != place->intersection) {
            continue;
        }
        const host::PlacedFlag& flag = Plan().Flags()[at.flag];
        EXPECT_EQ(flag.flag.count, 3);
        EXPECT_EQ(flag.flag.hidden, 1);
        EXPECT_EQ(host::FlagTip(Plan().Model().floors[place->floor], Plan().Flags(), at),
                  u"照片标识 质量，2轴 / B轴，照片 3 + 1 隐藏"_s);
        return;
    }
    FAIL() << "no flag at the place";
}

TEST_F(OneNumberOfAnOddSite, ThePanelSaysWhereItsOwnNumberIsOfSomeDaysOnly) {
    host::MarkPage& page = client->Window()->Marks().Page(MarkKind::Photos);
    const auto* label = page.findChild<QLabel*>(u"countLabel"_s);
    EXPECT_EQ(label->text(), u"已选 8 / 8 张 + 4 隐藏"_s);
    host::MarkPageState state = page.State();
    state.days = {true, QDate(2001, 1, 1), QDate(2001, 1, 2)};
    page.SetState(state);
    EXPECT_TRUE(label->text().endsWith(u"（限日期）"_s)) << label->text().toStdString();
}

TEST_F(OneNumberOfTheSampleSite, IsSaidOfEveryFloorAndPlace) {
    ExpectOneNumberEverywhere();
}

} // namespace
} // namespace roads
