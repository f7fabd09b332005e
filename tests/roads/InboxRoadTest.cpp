// Photos without a place or a mark are found in their list and filed from it.
#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/filing/InboxWindow.h"
#include "site/IBulkFiling.h"
#include "site/IIntake.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/BulkRoad.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QScrollBar>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

class InboxRoad : public BulkRoad {
protected:
    [[nodiscard]] static host::InboxWindow* Inbox() {
        return qobject_cast<host::InboxWindow*>(tour::FindWindow(u"inboxWindow"_s));
    }
    [[nodiscard]] static QListView& List() {
        return *Inbox()->findChild<QListView*>(u"inboxList"_s);
    }
    void Open() {
        ASSERT_TRUE(Press(Qt::Key_7));
        ASSERT_TRUE(WaitFor([] { return Inbox() != nullptr; }));
    }
    [[nodiscard]] static QStringList Names() {
        QStringList names;
        for (const host::InboxItem& item : Inbox()->Model().All()) {
            names << item.name + u' ' + item.lack;
        }
        names.sort();
        return names;
    }
    [[nodiscard]] static QString Count() {
        return tour::ReadText(tour::FindIn(Inbox(), u"inboxCount"_s));
    }
    static void Choose(const QString& name) {
        for (int row = 0; row < Inbox()->Model().rowCount(); ++row) {
            if (Inbox()->Model().At(row).name == name) {
                ASSERT_TRUE(WaitFor([row] { return hands::ClickCell(&List(), row, 0); }));
                return;
            }
        }
        FAIL() << name.toStdString();
    }
    void AddMany(int count) {
        const std::unique_ptr<site::IIntake> intake = session.Site().NewIntake();
        intake->BeginBatch();
        for (int number = 0; number < count; ++number) {
            site::NewBimPhoto photo;
            photo.ppid = site.firstProject;
            photo.fileName = u"很多%1.jpg"_s.arg(number);
            photo.uploader = u"李娜"_s;
            photo.uploadTime = 1'650'000'000 + number;
            const QRgb color = qRgb(number % 251, number / 251 % 251, number / 63001);
            (void)intake->FilePhoto(photo, {{}, JpegBytes(color)});
        }
        intake->CommitBatch();
    }
};

TEST_F(InboxRoad, ListsWhatLacksAPlaceOrAMarkAndLosesWhatIsFiled) {
    Open();
    EXPECT_EQ(Names(),
              (QStringList{u"散1.jpg 无楼层、无标识"_s, u"散2.jpg 无楼层"_s, u"散3.jpg 无标识"_s}));
    EXPECT_EQ(Count(), u"共 3 张，已选 0 张"_s);
    Choose(u"散2.jpg"_s);
    EXPECT_EQ(Count(), u"共 3 张，已选 1 张"_s);
    AskIn(Inbox());
    ChooseAll({{u"placeCombo"_s, u"指定"_s},
               {u"floorCombo"_s, u"1层"_s},
               {u"axisXCombo"_s, u"1"_s},
               {u"axisYCombo"_s, u"A"_s}});
    EXPECT_EQ(tour::ReadText(tour::FindIn(Question(), u"headLabel"_s)),
              u"将修改选中的 1 张BIM模型照片"_s);
    Accept();
    EXPECT_TRUE(IsTold(u"已归档 1 张照片。"_s));
    EXPECT_EQ(Names(), (QStringList{u"散1.jpg 无楼层、无标识"_s, u"散3.jpg 无标识"_s}));
    ASSERT_TRUE(ClickUndo());
    EXPECT_EQ(Names().size(), 3);
    ASSERT_TRUE(Press(Qt::Key_7));
    EXPECT_EQ(OpenWindows().count(u"inboxWindow"_s), 1) << "brought to the front";
}

TEST_F(InboxRoad, AllAreFiledTogetherAndNothingIsLeft) {
    Open();
    ASSERT_TRUE(WaitFor([] { return hands::PressKey(Inbox(), Qt::Key_A, Qt::ControlModifier); }));
    EXPECT_TRUE(WaitFor([] { return Count() == u"共 3 张，已选 3 张"_s; }));
    ClickOn(*Inbox(), u"inboxFile"_s);
    ChooseAll({{u"placeCombo"_s, u"指定"_s},
               {u"floorCombo"_s, u"1层"_s},
               {u"axisXCombo"_s, u"1"_s},
               {u"axisYCombo"_s, u"A"_s},
               {u"markCombo"_s, u"安全"_s}});
    Accept();
    EXPECT_EQ(Inbox()->Model().rowCount(), 0);
    EXPECT_EQ(tour::ReadText(tour::FindIn(Inbox(), u"inboxHint"_s)), u"没有待归档的照片。"_s);
    EXPECT_TRUE(tour::FindIn(Inbox(), u"inboxHint"_s)->isVisible());
    EXPECT_FALSE(tour::FindIn(Inbox(), u"inboxAll"_s)->isEnabled());
}

TEST_F(InboxRoad, TheConsoleListsTheSame) {
    Open();
    ClickOn(*Inbox(), u"inboxConsole"_s);
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 3; }));
    EXPECT_GE(RowOfPhoto(u"散3.jpg"_s), 0);
}

TEST_F(InboxRoad, APhotoWithoutAPlaceIsPreviewed) {
    Open();
    Choose(u"散1.jpg"_s);
    ClickOn(*Inbox(), u"inboxPreview"_s);
    ASSERT_TRUE(WaitFor([] { return Viewer() != nullptr; }));
    EXPECT_TRUE(WaitFor([] { return ViewerShows(qRgb(0, 0, 7)); }));
    WaitForRecord();
    CloseViewer();
    EXPECT_NE(Inbox(), nullptr);
}

TEST_F(InboxRoad, PicturesComeAsTheyAreInSight) {
    Open();
    const auto middle = [](int row) {
        const QPixmap pixmap =
            List().model()->index(row, 0).data(Qt::DecorationRole).value<QPixmap>();
        return pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2);
    };
    for (int row = 0; row < 3; ++row) {
        const host::InboxItem& item = Inbox()->Model().At(row);
        const QColor wanted(item.markId * 50, item.floor.isEmpty() ? 0 : 99, 7);
        EXPECT_TRUE(WaitFor([&] {
            const QColor seen = middle(row);
            return std::abs(seen.red() - wanted.red()) < 9 &&
                   std::abs(seen.green() - wanted.green()) < 9;
        })) << item.name.toStdString();
    }
}

TEST_F(InboxRoad, WhatOthersFileComesAndWhatIsChosenStays) {
    Open();
    Choose(u"散2.jpg"_s);
    {
        const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        site::NewBimPhoto photo;
        photo.ppid = site.firstProject;
        photo.fileName = u"新到.jpg"_s;
        photo.uploadTime = 1'700'001'000;
        (void)other.site->NewIntake()->FilePhoto(photo, {{}, JpegBytes(qRgb(5, 6, 7))});
    }
    EXPECT_TRUE(WaitFor([] { return Names().contains(u"新到.jpg 无楼层、无标识"_s); }));
    EXPECT_EQ(Count(), u"共 4 张，已选 1 张"_s);
    ASSERT_EQ(Inbox()->Chosen().size(), 1U);
    EXPECT_EQ(Inbox()->Chosen().front().picId, marked);
}

TEST_F(InboxRoad, AnotherProjectHasPhotosOfItsOwn) {
    Open();
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(WaitFor([] { return Inbox()->Model().rowCount() == 0; }));
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    EXPECT_TRUE(WaitFor([] { return Inbox()->Model().rowCount() == 3; }));
}

TEST_F(InboxRoad, FiveHundredAreListedInPagesAndFiledAtOnce) {
    AddMany(500);
    Open();
    EXPECT_TRUE(Count().startsWith(u"共 503 张"_s)) << Count().toStdString();
    EXPECT_LT(Inbox()->Model().rowCount(), 503) << "page by page";
    List().verticalScrollBar()->setValue(List().verticalScrollBar()->maximum());
    EXPECT_TRUE(WaitFor([] { return Inbox()->Model().rowCount() >= 400; }));
    ASSERT_TRUE(WaitFor([] { return hands::PressKey(Inbox(), Qt::Key_A, Qt::ControlModifier); }));
    EXPECT_TRUE(WaitFor([] { return Count() == u"共 503 张，已选 503 张"_s; }));
    AskIn(Inbox());
    ChooseAll({{u"placeCombo"_s, u"指定"_s},
               {u"floorCombo"_s, u"1层"_s},
               {u"axisXCombo"_s, u"1"_s},
               {u"axisYCombo"_s, u"A"_s},
               {u"markCombo"_s, u"安全"_s}});
    Accept();
    EXPECT_TRUE(IsTold(u"已归档 503 张照片。"_s));
    EXPECT_EQ(Inbox()->Model().rowCount(), 0);
    ASSERT_TRUE(ClickUndo());
    EXPECT_TRUE(Count().startsWith(u"共 503 张"_s)) << Count().toStdString();
}

} // namespace
} // namespace roads
