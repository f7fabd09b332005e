// From a bar of the statistics to what the console lists for it.
#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/statistics/StatisticsDock.h"
#include "host/ui/statistics/StatisticsModel.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/ClientFixture.h"
#include "tests/roads/OtherClient.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAction>
#include <QComboBox>
#include <QDateTime>
#include <QLabel>
#include <QStatusBar>
#include <QTreeView>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

constexpr qint64 kWeekSeconds = 7LL * 24 * 60 * 60;

/// Monday, midnight.
qint64 BeginOfWeek(qint64 time) {
    const QDate day = QDateTime::fromSecsSinceEpoch(time).date();
    return day.addDays(1 - day.dayOfWeek()).startOfDay().toSecsSinceEpoch();
}

class StatisticsRoad : public ClientOnAFolder {
protected:
    void SetUp() override {
        ClientOnAFolder::SetUp();
        ASSERT_TRUE(ChooseProject(u"一期工程"_s));
        client->Window()->resize(1300, 800);
        Dock().toggleViewAction()->trigger();
        ASSERT_TRUE(WaitFor([this] { return Dock().IsInSight(); }));
    }
    void TearDown() override {
        client.reset();
        ASSERT_TRUE(WaitFor([] { return tour::Console() == nullptr; }));
    }
    /// Photos of no mark and of one that the site doesn't know, of no floor, of this week and of
    /// long ago; the same of drawings and issues.
    void Furnish() override {
        site::DataFolder data(folder.Path(u"data"_s));
        ASSERT_FALSE(data.Open());
        site::SiteWriter writer(data);
        const qint64 now = QDateTime::currentSecsSinceEpoch();
        for (int number = 0; number < 6; ++number) {
            site::NewBimPhoto photo;
            photo.ppid = number == 5 ? site.secondProject : site.firstProject;
            photo.fileName = u"更多%1.jpg"_s.arg(number);
            photo.positionKey =
                number == 1   ? QString()
                : number == 5 ? writer.FindPosition(site.secondProject, u"1"_s, u"1"_s, u"A"_s)
                              : writer.FindPosition(site.firstProject, u"1"_s, u"1"_s, u"A"_s);
            photo.markId = number < 2 ? 0 : number == 2 ? 77 : 1;
            photo.state = number % 3;
            photo.uploader = u"张伟"_s;
            photo.uploadTime = now - number * kWeekSeconds;
            if (number == 3) {
                photo.uploadTime = BeginOfWeek(photo.uploadTime); // of no week before
            }
            writer.FilePhoto(photo, {QString(), JpegBytes(qRgb(9, 30 * number, 200))});
        }
        AddDrawing(writer, now);
        site::NewIssue issue;
        issue.ppid = site.firstProject;
        issue.theme = u"没有楼层"_s;
        issue.markId = 1;
        issue.creator = u"张伟"_s;
        issue.createTime = now + 3 * kWeekSeconds;
        writer.FileIssue(issue);
    }
    void AddDrawing(site::SiteWriter& writer, qint64 now) const {
        const qint32 drawing = writer.AddDrawing(site.firstProject, u"二层平面图"_s);
        for (int number = 0; number < 3; ++number) {
            site::NewCheckpoint point;
            point.drawingId = drawing;
            point.number = number + 1;
            point.markId = number == 0 ? 77 : 1;
            site::NewPdfPhoto photo;
            photo.checkpointId = writer.AddCheckpoint(site.firstProject, point);
            photo.fileName = u"图纸%1.jpg"_s.arg(number);
            photo.state = number;
            photo.uploader = u"张伟"_s;
            photo.uploadTime = now - number * kWeekSeconds;
            writer.FilePdfPhoto(site.firstProject, photo,
                                {QString(), JpegBytes(qRgb(200, 30 * number, 9))});
        }
    }

    [[nodiscard]] host::StatisticsDock& Dock() const { return client->Window()->Statistics(); }
    [[nodiscard]] QTreeView& Bars() const {
        return *Dock().findChild<QTreeView*>(u"statisticsBars"_s);
    }
    [[nodiscard]] QString Cell(int row, int column) const {
        return Bars().model()->index(row, column).data().toString();
    }
    [[nodiscard]] QStringList Names() const {
        QStringList names;
        for (int row = 0; row < Bars().model()->rowCount(); ++row) {
            names << Cell(row, host::StatisticsModel::kName);
        }
        return names;
    }
    [[nodiscard]] int Sum() const {
        int sum = 0;
        for (int row = 0; row < Bars().model()->rowCount(); ++row) {
            sum += Cell(row, host::StatisticsModel::kCount).toInt();
        }
        return sum;
    }
    void Choose(const QString& box, const QString& entry) const {
        auto* combo = Dock().findChild<QComboBox*>(box);
        ASSERT_TRUE(WaitFor([&] { return hands::ChooseInCombo(combo, entry); }))
            << entry.toStdString();
    }
    [[nodiscard]] QString Status() const { return client->Window()->statusBar()->currentMessage(); }
    void Want(int row) const { emit Dock().BarWanted(row); }
    /// The console lists as many as each bar counts, and the bars together all there are.
    void ExpectEachListed(const QString& kind, const QString& grouping, int total) const {
        Choose(u"statisticsKind"_s, kind);
        Choose(u"statisticsGrouping"_s, grouping);
        EXPECT_EQ(Sum(), total) << kind.toStdString() << grouping.toStdString();
        const QStringList names = Names();
        for (int row = 0; row < names.size(); ++row) {
            const int count = Cell(row, host::StatisticsModel::kCount).toInt();
            Want(row);
            EXPECT_TRUE(WaitFor([count] { return tour::ConsoleTotal() == count; }))
                << kind.toStdString() << ' ' << grouping.toStdString() << ' '
                << names[row].toStdString() << ": " << tour::ConsoleTotal() << " of " << count;
            EXPECT_TRUE(Status().startsWith(u"控制台只列出："_s)) << Status().toStdString();
        }
    }
    void ExpectAllListed(int photos, int drawingPhotos, int issues) const {
        for (const QString& grouping : {u"按标识"_s, u"按楼层"_s, u"按状态"_s, u"按周"_s}) {
            ExpectEachListed(u"BIM模型照片"_s, grouping, photos);
            ExpectEachListed(u"TN问题"_s, grouping, issues);
        }
        for (const QString& grouping : {u"按标识"_s, u"按图纸"_s, u"按状态"_s, u"按周"_s}) {
            ExpectEachListed(u"图纸照片"_s, grouping, drawingPhotos);
        }
    }
};

TEST_F(StatisticsRoad, TheConsoleListsAsManyAsEachBarCounts) {
    ExpectAllListed(10, 4, 3);
}

TEST_F(StatisticsRoad, OfAWorksetAllProjectsCount) {
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    ASSERT_EQ(Sum(), 11);
    ExpectAllListed(11, 4, 3);
}

TEST_F(StatisticsRoad, MarksHaveTheirNamesAndWhatHasNoneIsNamedToo) {
    EXPECT_EQ(Names(), (QStringList{u"无标识"_s, u"质量"_s, u"标识 77"_s}));
    Choose(u"statisticsGrouping"_s, u"按楼层"_s);
    EXPECT_EQ(Names(), (QStringList{u"其他"_s, u"-1层"_s, u"1层"_s}));
    Choose(u"statisticsGrouping"_s, u"按周"_s);
    EXPECT_EQ(Names().size(), 27);
    EXPECT_EQ(Names().front(), u"更早"_s);
    EXPECT_EQ(Cell(0, host::StatisticsModel::kCount), u"5"_s);
    Choose(u"statisticsKind"_s, u"TN问题"_s);
    EXPECT_EQ(Names().back(), u"更晚"_s);
}

TEST_F(StatisticsRoad, AClickSaysWhatTheConsoleShows) {
    Choose(u"statisticsGrouping"_s, u"按楼层"_s);
    const QModelIndex cell = Bars().model()->index(2, 0);
    ASSERT_TRUE(WaitFor(
        [&] { return hands::ClickAt(Bars().viewport(), Bars().visualRect(cell).center()); }));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 4; }));
    EXPECT_EQ(Status(), u"控制台只列出：1层的照片 4 张"_s);
}

TEST_F(StatisticsRoad, WhatTheConsoleWasLimitedToBeforeDoesntLimitABar) {
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 10; }));
    ASSERT_TRUE(WaitFor([] { return tour::ChooseInConsole(u"statusCombo"_s, u"已整改"_s); }));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 1; }));
    Want(0);
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 2; })) << tour::ConsoleTotal();
}

TEST_F(StatisticsRoad, WhatOthersChangeIsCountedAnewWhileTheDockIsInSight) {
    OtherClient other(folder.Path(u"data"_s));
    other.DeletePhotos({site.photos[0], site.photos[1]});
    EXPECT_TRUE(WaitFor([this] { return Sum() == 8; })) << Sum();
}

TEST_F(StatisticsRoad, AnotherProjectIsCountedAtOnceAndNoneSaysSo) {
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_EQ(Sum(), 1);
    Choose(u"statisticsKind"_s, u"图纸照片"_s);
    EXPECT_EQ(Dock().findChild<QLabel*>(u"statisticsHint"_s)->text(),
              u"打开的工程里还没有图纸照片。"_s);
}

TEST_F(StatisticsRoad, TheDockIsOffAtFirstAndComesBackWhereItWas) {
    EXPECT_TRUE(Dock().isVisible());
    client->Stop();
    client.reset();
    Start();
    EXPECT_TRUE(Dock().isVisible());
    Dock().toggleViewAction()->trigger();
    EXPECT_FALSE(Dock().isVisible());
}

} // namespace
} // namespace roads
