#include "host/ui/BinWindow.h"

#include "host/app/SessionBin.h"
#include "host/session/HostSession.h"
#include "host/ui/ActionLogModel.h"
#include "host/ui/BinModel.h"
#include "host/ui/HintTable.h"
#include "site/IBin.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/TempFolder.h"

#include <QDateTime>

#include <QLabel>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 kDay = 24LL * 60 * 60;

TEST(DaysLeft, CountsABegunDayAndEndsAtZero) {
    EXPECT_EQ(DaysLeft(30 * kDay, 0), 30);
    EXPECT_EQ(DaysLeft(30 * kDay, 1), 30);
    EXPECT_EQ(DaysLeft(30 * kDay, kDay), 29);
    EXPECT_EQ(DaysLeft(30 * kDay, 30 * kDay - 1), 1);
    EXPECT_EQ(DaysLeft(30 * kDay, 30 * kDay), 0);
    EXPECT_EQ(DaysLeft(0, kDay), 0);
}

/// A real data folder with one project, two photos and one issue, all of them deleted.
class BinOfAFolder : public testing::Test {
protected:
    void SetUp() override {
        const auto fault = session.Open(folder.Path(u"data"_s));
        ASSERT_FALSE(fault);
        site::SiteWriter writer(support::FolderOf(session));
        const qint32 ppid = writer.AddProject(u"一期工程"_s);
        writer.AddUser(u"张伟"_s, {});
        ASSERT_TRUE(session.SignIn(u"张伟"_s));
        for (const QString& name : {u"甲.jpg"_s, u"乙.jpg"_s}) {
            site::NewBimPhoto photo;
            photo.ppid = ppid;
            photo.fileName = name;
            photo.uploader = u"张伟"_s;
            photo.uploadTime = 1'700'000'000;
            photos.push_back(writer.FilePhoto(photo, {QString(), name.toUtf8()}));
        }
        site::NewIssue issue;
        issue.ppid = ppid;
        issue.theme = u"梁底露筋"_s;
        issue.creator = u"张伟"_s;
        issue.createTime = 1'700'000'000;
        const QString question = writer.FileIssue(issue);
        site::IBin& bin = session.Site().Bin();
        ASSERT_EQ(
            bin.DeleteBimPhotos({ppid}, photos, {u"张伟"_s, QDateTime::currentSecsSinceEpoch()}),
            2);
        ASSERT_EQ(
            bin.DeleteIssues({ppid}, {question}, {u"张伟"_s, QDateTime::currentSecsSinceEpoch()}),
            1);
    }

    static QAbstractItemModel* ModelOf(const BinWindow& window) {
        return window.findChild<HintTable*>(u"binTable"_s)->model();
    }
    static QString Text(const BinWindow& window, int row, int column) {
        return ModelOf(window)->index(row, column).data().toString();
    }

    support::TempFolder folder;
    HostSession session;
    std::vector<qint32> photos;
};

TEST_F(BinOfAFolder, ListsWhatWasDeletedByWhomAndForHowLong) {
    SessionBin source(session);
    BinWindow window(nullptr, source);
    ASSERT_EQ(ModelOf(window)->rowCount(), 3);
    QStringList names;
    for (int row = 0; row < 3; ++row) {
        names << Text(window, row, BinModel::kName);
        EXPECT_EQ(Text(window, row, BinModel::kProject), u"一期工程"_s);
        EXPECT_EQ(Text(window, row, BinModel::kDeletedBy), u"张伟"_s);
        EXPECT_EQ(Text(window, row, BinModel::kDaysLeft), u"30 天"_s);
    }
    names.sort();
    EXPECT_EQ(names, QStringList({u"乙.jpg"_s, u"梁底露筋"_s, u"甲.jpg"_s}));
}

TEST_F(BinOfAFolder, RestoresTheChosenRowAndLogsIt) {
    QStringList actions;
    session.Actions().SetSink([&](const site::LoggedAction& action) { actions << action.action; });
    SessionBin source(session);
    BinWindow window(nullptr, source);
    int restored = 0;
    QObject::connect(&window, &BinWindow::Restored, [&](int count) { restored = count; });
    window.show();
    auto* table = window.findChild<HintTable*>(u"binTable"_s);
    auto* button = window.findChild<QPushButton*>(u"binRestore"_s);
    EXPECT_FALSE(button->isEnabled());
    const QString name = Text(window, 1, BinModel::kName);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualRect(table->model()->index(1, 1)).center());
    ASSERT_TRUE(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(restored, 1);
    EXPECT_EQ(actions, QStringList{u"从回收站恢复 1 项"_s});
    ASSERT_EQ(ModelOf(window)->rowCount(), 2);
    for (int row = 0; row < 2; ++row) {
        EXPECT_NE(Text(window, row, BinModel::kName), name);
    }
    EXPECT_FALSE(button->isEnabled());
}

TEST_F(BinOfAFolder, AnUnknownKindIsListedAndTellsWhyItCannotComeBack) {
    support::FolderOf(session).Db().Exec(u"UPDATE bin SET kind = 7 WHERE title = '甲.jpg'"_s);
    QStringList messages;
    session.Desk()->SetMessageSink([&](MessageLevel, const QString& text) { messages << text; });
    SessionBin source(session);
    const std::vector<BinRow> rows = source.ReadBin();
    ASSERT_EQ(rows.size(), 3U);
    const auto odd = std::find_if(rows.begin(), rows.end(),
                                  [](const BinRow& row) { return row.name == u"甲.jpg"_s; });
    ASSERT_NE(odd, rows.end());
    EXPECT_EQ(odd->kind, u"未知类型（7）"_s);
    EXPECT_EQ(source.RestoreFromBin({odd->binId}), 0);
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages[0].contains(u"甲.jpg"_s)) << messages[0].toStdString();
}

TEST_F(BinOfAFolder, AFaultOfTheDataBecomesAMessageAndTheListIsEmpty) {
    QStringList messages;
    session.Desk()->SetMessageSink([&](MessageLevel, const QString& text) { messages << text; });
    support::FolderOf(session).Db().Exec(u"ALTER TABLE bin RENAME TO bin_elsewhere"_s);
    SessionBin source(session);
    EXPECT_TRUE(source.ReadBin().empty());
    EXPECT_EQ(source.RestoreFromBin({1}), 0);
    EXPECT_EQ(messages.size(), 2);
}

TEST(BinModel, ATitleOfMillionsOfCharactersIsCutForItsLine) {
    BinModel model;
    BinRow row;
    row.name = QString(5'000'000, u'国');
    model.SetRows({row}, 0);
    const QString shown = model.index(0, 1).data().toString();
    EXPECT_LT(shown.size(), 10'000);
    EXPECT_TRUE(shown.endsWith(u'…'));
}

TEST(ActionLogModel, AnEntryOfMillionsOfCharactersIsCutForItsLine) {
    ActionLogModel model;
    model.SetEntries({{0, u"张伟"_s, QString(5'000'000, u'国')}});
    const QString shown = model.index(0, ActionLogModel::kAction).data().toString();
    EXPECT_LT(shown.size(), 10'000);
    EXPECT_TRUE(shown.endsWith(u'…'));
}

} // namespace
} // namespace host
