// The list of what others filed, and what comes in bursts.
#include "host/app/Calmed.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "host/ui/catchup/CatchUpModel.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QListView>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

CatchUpItem Item(qint64 seq, const QString& uuid = {}) {
    CatchUpItem item;
    item.seq = seq;
    item.name = QString::number(seq);
    item.ppid = 3;
    item.uuid = uuid;
    return item;
}

QString Names(const CatchUpModel& model) {
    QStringList names;
    for (const CatchUpItem& item : model.All()) {
        names << item.name + (item.isRead ? u""_s : u"*"_s);
    }
    return names.join(u' ');
}

TEST(CatchUpModel, NewOnesComeBeforeAndOlderOnesBehind) {
    CatchUpModel model;
    model.SetItems({Item(5)});
    model.Prepend({Item(7), Item(6)});
    model.Append({Item(4), Item(3)});
    EXPECT_EQ(Names(model), u"7* 6* 5* 4* 3*"_s);
    EXPECT_EQ(model.rowCount(), 5);
}

TEST(CatchUpModel, TheSameItemsResetNothing) {
    CatchUpModel model;
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.SetItems({Item(5), Item(4)});
    model.SetItems({Item(5), Item(4)});
    EXPECT_EQ(resets.count(), 1);
    model.SetItems({Item(5)});
    EXPECT_EQ(resets.count(), 2);
}

TEST(CatchUpModel, OneOrAllBecomeRead) {
    CatchUpModel model;
    model.SetItems({Item(5), Item(4), Item(3)});
    model.MarkRead(1);
    EXPECT_EQ(Names(model), u"5* 4 3*"_s);
    model.MarkAllRead();
    EXPECT_EQ(Names(model), u"5 4 3"_s);
    EXPECT_EQ(model.data(model.index(0), Qt::AccessibleTextRole).toString(), u"照片  5"_s);
}

TEST(CatchUpModel, AllRowsAreToldWhenAllBecomeRead) {
    CatchUpModel model;
    model.SetItems({Item(5), Item(4), Item(3)});
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.MarkAllRead();
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 2);
}

TEST(CatchUpModel, AnUnreadOneSaysSoToWhoCannotSeeIt) {
    CatchUpModel model;
    CatchUpItem item = Item(5);
    item.isIssue = true;
    item.place = u"3层 A/5"_s;
    item.person = u"李娜"_s;
    model.SetItems({item});
    EXPECT_EQ(model.data(model.index(0), Qt::AccessibleTextRole).toString(),
              u"未读  问题  5  3层 A/5  李娜"_s);
}

TEST(CatchUpModel, OlderOnesAreAskedForOnceUntilTheyCome) {
    CatchUpModel model;
    QSignalSpy wanted(&model, &CatchUpModel::MoreWanted);
    model.SetItems({Item(5), Item(4)});
    EXPECT_FALSE(model.canFetchMore({}));
    model.SetHasMore(true);
    model.fetchMore({});
    model.fetchMore({});
    ASSERT_EQ(wanted.count(), 1);
    EXPECT_EQ(wanted[0][0].toLongLong(), 4);
}

TEST(CatchUpModel, APictureIsAskedForOnceAndAgainWhenItWasDropped) {
    CatchUpModel model;
    QSignalSpy wanted(&model, &CatchUpModel::PictureWanted);
    model.SetItems({Item(5, u"a"_s), Item(4)});
    EXPECT_TRUE(model.PictureOf(model.At(0)).isNull());
    EXPECT_TRUE(model.PictureOf(model.At(0)).isNull());
    EXPECT_TRUE(model.PictureOf(model.At(1)).isNull()) << "it has none";
    ASSERT_EQ(wanted.count(), 1);
    EXPECT_EQ(wanted[0][0].toInt(), 3);
    EXPECT_EQ(wanted[0][1].toString(), u"a"_s);
    model.ForgetPicture(u"a"_s);
    static_cast<void>(model.PictureOf(model.At(0)));
    EXPECT_EQ(wanted.count(), 2);
    QPixmap picture(4, 4);
    picture.fill(Qt::red);
    model.SetPicture(u"a"_s, picture);
    EXPECT_EQ(model.PictureOf(model.At(0)).size(), QSize(4, 4));
    EXPECT_EQ(wanted.count(), 2);
}

TEST(CatchUpDock, SaysWhyItIsEmptyAndHowMuchIsUnread) {
    CatchUpDock dock(nullptr);
    const auto* list = dock.findChild<QListView*>(u"catchUpList"_s);
    const auto* count = dock.findChild<QLabel*>(u"catchUpCount"_s);
    const auto* markAll = dock.findChild<QToolButton*>(u"catchUpMarkAll"_s);
    EXPECT_TRUE(list->isHidden());
    EXPECT_EQ(count->text(), u"没有未读"_s);
    EXPECT_FALSE(markAll->isEnabled());
    dock.Model().SetItems({Item(5)});
    dock.ShowUnread(u"1"_s);
    EXPECT_FALSE(list->isHidden());
    EXPECT_EQ(count->text(), u"未读 1 项"_s);
    EXPECT_TRUE(markAll->isEnabled());
}

/// A row of the list, painted alone.
QImage RowOf(CatchUpDock& dock, const CatchUpItem& item) {
    dock.Model().SetItems({});
    dock.Model().SetItems({item});
    auto* list = dock.findChild<QListView*>(u"catchUpList"_s);
    return list->viewport()->grab(list->visualRect(dock.Model().index(0))).toImage();
}

TEST(CatchUpPaint, EachLineOfARowIsPaintedAndSoIsThePicture) {
    CatchUpDock dock(nullptr);
    dock.resize(320, 300);
    dock.show();
    ASSERT_TRUE(WaitFor([&] { return dock.isVisible(); }));
    CatchUpItem item = Item(5, u"a"_s);
    const QImage bare = RowOf(dock, item);
    const auto changedLines = [&](const QImage& other) {
        QString lines;
        for (int line = 0; line < 3; ++line) {
            const QRect part(bare.width() / 2, line * bare.height() / 3, bare.width() / 2,
                             bare.height() / 3);
            lines += bare.copy(part) == other.copy(part) ? u'-' : u'x';
        }
        return lines;
    };
    CatchUpItem filled = item;
    filled.place = QString(30, u'轴');
    EXPECT_EQ(changedLines(RowOf(dock, filled)), u"-x-"_s);
    filled = item;
    filled.person = QString(30, u'李');
    EXPECT_EQ(changedLines(RowOf(dock, filled)), u"--x"_s);
    QPixmap picture(40, 30);
    picture.fill(Qt::red);
    dock.Model().SetPicture(u"a"_s, picture);
    const QImage pictured = RowOf(dock, item);
    int red = 0;
    for (int y = 0; y < pictured.height(); ++y) {
        for (int x = 0; x < pictured.width() / 2; ++x) {
            red += pictured.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
        }
    }
    EXPECT_EQ(red, 40 * 30);
}

TEST(CatchUpDock, AClickAndEnterWantTheirRow) {
    CatchUpDock dock(nullptr);
    dock.resize(280, 400);
    dock.Model().SetItems({Item(5), Item(4), Item(3)});
    dock.show();
    ASSERT_TRUE(WaitFor([&] { return dock.isVisible(); }));
    auto* list = dock.findChild<QListView*>(u"catchUpList"_s);
    QSignalSpy wanted(&dock, &CatchUpDock::ItemWanted);
    const QPoint second = list->visualRect(dock.Model().index(1)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
    ASSERT_EQ(wanted.count(), 1);
    EXPECT_EQ(wanted[0][0].toInt(), 1);
    QTest::mouseClick(list->viewport(), Qt::RightButton, {}, second);
    EXPECT_EQ(wanted.count(), 1);
    dock.activateWindow();
    list->setFocus();
    ASSERT_TRUE(WaitFor([&] { return list->hasFocus(); }));
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(wanted.count(), 1) << "to look, not to open";
    QTest::keyClick(list, Qt::Key_Return);
    ASSERT_EQ(wanted.count(), 2);
    EXPECT_EQ(wanted[1][0].toInt(), 2);
}

TEST(Calmed, TheFirstIsDoneAtOnceAndOfTheOthersOneMore) {
    int done = 0;
    Calmed calmed(30, [&] { ++done; });
    for (int at = 0; at < 100; ++at) {
        calmed.Ask();
    }
    EXPECT_EQ(done, 1);
    EXPECT_TRUE(WaitFor([&] { return done == 2; }));
    QElapsedTimer rest;
    rest.start();
    EXPECT_TRUE(WaitFor([&] { return rest.hasExpired(100); }));
    EXPECT_EQ(done, 2) << "nobody asked again";
    calmed.Ask();
    EXPECT_EQ(done, 3);
}

} // namespace
} // namespace host
