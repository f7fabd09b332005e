// The list of photos that wait to be filed.
#include "hands/Hands.h"
#include "host/ui/filing/InboxWindow.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

InboxModel::Items Waiting(int first, int count) {
    InboxModel::Items items;
    for (int number = first; number < first + count; ++number) {
        InboxItem item;
        item.picId = number;
        item.ppid = 3;
        item.name = u"照片%1.jpg"_s.arg(number);
        item.time = u"2023-11-15 06:13:20"_s;
        item.lack = u"无楼层"_s;
        item.uuid = u"uuid%1"_s.arg(number);
        items.push_back(item);
    }
    return items;
}

QPixmap Square(int side) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::red);
    return pixmap;
}

TEST(InboxModel, ARowSaysNameTimeAndWhatIsMissing) {
    InboxModel model(nullptr);
    model.SetItems(Waiting(1, 2), 2);
    EXPECT_EQ(model.index(0).data().toString(), u"照片1.jpg\n2023-11-15 06:13:20\n无楼层"_s);
    EXPECT_EQ(model.index(1).data(Qt::AccessibleTextRole).toString(),
              u"照片2.jpg，无楼层，2023-11-15 06:13:20"_s);
    EXPECT_FALSE(model.canFetchMore({})) << "that is all";
}

TEST(InboxModel, MoreIsAskedForOnceUntilItCame) {
    InboxModel model(nullptr);
    const QSignalSpy more(&model, &InboxModel::MoreWanted);
    model.SetItems(Waiting(1, 2), 5);
    model.fetchMore({});
    model.fetchMore({});
    EXPECT_EQ(more.count(), 1);
    model.Append(Waiting(3, 2), 5);
    EXPECT_EQ(model.rowCount(), 4);
    model.fetchMore({});
    EXPECT_EQ(more.count(), 2);
    model.Append({}, 5); // it couldn't be read
    EXPECT_TRUE(model.canFetchMore({}));
}

TEST(InboxModel, APictureIsAskedForOnceAndAgainWhereItWasForgotten) {
    InboxModel model(nullptr);
    QSignalSpy wanted(&model, &InboxModel::PictureWanted);
    model.SetItems(Waiting(1, 1), 1);
    const QSize blank = model.index(0).data(Qt::DecorationRole).value<QPixmap>().size();
    (void)model.index(0).data(Qt::DecorationRole);
    ASSERT_EQ(wanted.count(), 1);
    EXPECT_EQ(wanted[0][0].toInt(), 3);
    EXPECT_EQ(wanted[0][1].toString(), u"uuid1"_s);
    model.ForgetPicture(u"uuid1"_s);
    (void)model.index(0).data(Qt::DecorationRole);
    EXPECT_EQ(wanted.count(), 2);
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.SetPicture(u"uuid1"_s, {});
    EXPECT_EQ(changed.count(), 0) << "it can't be had";
    EXPECT_EQ(model.index(0).data(Qt::DecorationRole).value<QPixmap>().size(), blank);
    model.SetPicture(u"uuid1"_s, Square(50));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(model.index(0).data(Qt::DecorationRole).value<QPixmap>().size(), QSize(50, 50));
    EXPECT_EQ(wanted.count(), 2);
}

TEST(InboxModel, OfManyPicturesTheOldestMakeRoomAndAreAskedForAgain) {
    InboxModel model(nullptr);
    const int count = 60;
    model.SetItems(Waiting(0, count), count);
    QSignalSpy wanted(&model, &InboxModel::PictureWanted);
    for (int row = 0; row < count; ++row) {
        model.SetPicture(u"uuid%1"_s.arg(row), Square(1000)); // 4 MB each
    }
    (void)model.index(count - 1).data(Qt::DecorationRole);
    EXPECT_EQ(wanted.count(), 0);
    (void)model.index(0).data(Qt::DecorationRole);
    EXPECT_EQ(wanted.count(), 1);
}

class Inbox : public testing::Test {
protected:
    Inbox() { window.show(); }
    [[nodiscard]] QListView& List() { return *window.findChild<QListView*>(u"inboxList"_s); }
    [[nodiscard]] QPushButton& Button(const QString& name) {
        return *window.findChild<QPushButton*>(name);
    }
    [[nodiscard]] QString Count() { return window.findChild<QLabel*>(u"inboxCount"_s)->text(); }
    void Click(int row, Qt::KeyboardModifiers with = Qt::NoModifier) {
        const QModelIndex index = List().model()->index(row, 0);
        List().scrollTo(index);
        QTest::mouseClick(List().viewport(), Qt::LeftButton, with,
                          List().visualRect(index).center());
    }
    [[nodiscard]] std::vector<qint32> Chosen() {
        std::vector<qint32> ids;
        for (const InboxItem& item : window.Chosen()) {
            ids.push_back(item.picId);
        }
        return ids;
    }

    InboxWindow window{nullptr};
};

TEST_F(Inbox, EmptySaysSoAndOffersNothing) {
    EXPECT_TRUE(window.findChild<QLabel*>(u"inboxHint"_s)->isVisible());
    EXPECT_EQ(window.findChild<QLabel*>(u"inboxHint"_s)->text(), u"没有待归档的照片。"_s);
    EXPECT_FALSE(List().isVisible());
    for (const QString& name :
         {u"inboxAll"_s, u"inboxConsole"_s, u"inboxPreview"_s, u"inboxFile"_s}) {
        EXPECT_FALSE(Button(name).isEnabled()) << name.toStdString();
    }
    window.SetItems(Waiting(1, 3), 3);
    EXPECT_TRUE(List().isVisible());
    EXPECT_EQ(Count(), u"共 3 张，已选 0 张"_s);
    EXPECT_TRUE(Button(u"inboxAll"_s).isEnabled());
    EXPECT_FALSE(Button(u"inboxFile"_s).isEnabled());
}

TEST_F(Inbox, TheTipSaysWhatTheCameraKnew) {
    InboxModel::Items items = Waiting(1, 2);
    items[1].facts = u"拍摄 2026-03-02 09:54:00  Maker Model 7"_s;
    window.SetItems(items, 2);
    const auto tip = [this](int row) {
        return List().model()->index(row, 0).data(Qt::ToolTipRole).toString();
    };
    EXPECT_FALSE(tip(0).contains(u"拍摄"_s));
    EXPECT_TRUE(tip(1).contains(u"Maker Model 7"_s)) << tip(1).toStdString();
}

TEST_F(Inbox, CaptionsHaveTheirRoomBelowThePicturesThatCome) {
    window.SetItems(Waiting(1, 3), 3);
    support::RunPendingEvents();
    QPixmap picture(InboxWindow::kPicture);
    picture.fill(Qt::red);
    window.Model().SetPicture(window.Model().At(0).uuid, picture);
    support::RunPendingEvents();
    for (int row = 0; row < 2; ++row) {
        const QRect cell = List().visualRect(List().model()->index(row, 0));
        const int captions = 3 * List().fontMetrics().height();
        EXPECT_GE(cell.height(), InboxWindow::kPicture.height() + captions) << row;
    }
}

TEST_F(Inbox, WhatIsChosenIsHandedOverFromAbove) {
    window.SetItems(Waiting(1, 5), 5);
    Click(3);
    EXPECT_TRUE(Button(u"inboxPreview"_s).isEnabled());
    Click(1, Qt::ControlModifier);
    EXPECT_EQ(Chosen(), (std::vector<qint32>{2, 4}));
    EXPECT_EQ(Count(), u"共 5 张，已选 2 张"_s);
    EXPECT_FALSE(Button(u"inboxPreview"_s).isEnabled()) << "one at a time";
    const QSignalSpy filing(&window, &InboxWindow::FilingWanted);
    EXPECT_TRUE(WaitFor([&] {
        return hands::PressKey(&List(), Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    }));
    EXPECT_TRUE(WaitFor([&] { return filing.count() == 1; }));
}

TEST_F(Inbox, EnterAndADoubleClickOpenAPhoto) {
    window.SetItems(Waiting(1, 5), 5);
    std::vector<qint32> opened;
    QObject::connect(&window, &InboxWindow::PreviewWanted,
                     [&](const InboxItem& item) { opened.push_back(item.picId); });
    Click(2);
    EXPECT_TRUE(WaitFor([&] { return hands::PressKey(&List(), Qt::Key_Return); }));
    EXPECT_EQ(opened, std::vector<qint32>{3});
    const QPoint fifth = List().visualRect(List().model()->index(4, 0)).center();
    EXPECT_TRUE(WaitFor([&] { return hands::DoubleClickAt(List().viewport(), fifth); }));
    EXPECT_EQ(opened, (std::vector<qint32>{3, 5}));
    Button(u"inboxPreview"_s).click();
    EXPECT_EQ(opened, (std::vector<qint32>{3, 5, 5}));
}

TEST_F(Inbox, AllAreAskedForByKeyAlsoThoseThatArentListed) {
    window.SetItems(Waiting(1, 5), 9);
    const QSignalSpy all(&window, &InboxWindow::AllWanted);
    List().setFocus();
    EXPECT_TRUE(WaitFor([&] { return hands::PressKey(&List(), Qt::Key_A, Qt::ControlModifier); }));
    EXPECT_TRUE(WaitFor([&] { return all.count() == 1; }));
    window.SetItems(Waiting(1, 9), 9);
    window.ChooseAll();
    EXPECT_EQ(Count(), u"共 9 张，已选 9 张"_s);
}

TEST_F(Inbox, ChosenPhotosAndThePlaceInTheListOutliveANewReading) {
    window.SetItems(Waiting(1, 300), 300);
    Click(200);
    Click(203, Qt::ControlModifier);
    const int scrolled = List().verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    InboxModel::Items fewer = Waiting(1, 300);
    fewer.erase(fewer.begin() + 203);
    window.SetItems(fewer, 299);
    EXPECT_EQ(Chosen(), std::vector<qint32>{201}) << "the other one went";
    EXPECT_EQ(List().verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(Count(), u"共 299 张，已选 1 张"_s);
    window.SetItems(fewer, 350);
    EXPECT_EQ(Count(), u"共 350 张，已选 1 张"_s);
}

} // namespace
} // namespace host
