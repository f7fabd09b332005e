// Two clients on one data folder: what one of them sees of the other's changes while its console
// stands open on the same photos, and what its own actions on them do.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"

#include <QDateTime>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;
using tour::Console;
using tour::ConsoleRowsWith;
using tour::ConsoleTotal;

class TwoClients : public PhotoRoad {
protected:
    void SetUp() override {
        PhotoRoad::SetUp();
        OpenConsole();
    }
    void Refresh() {
        EXPECT_TRUE(WaitFor([] { return hands::PressKey(Console(), Qt::Key_F5); }));
    }
    void Tick(const QStringList& names) {
        for (const QString& name : names) {
            const int row = RowOfPhoto(name);
            ASSERT_GE(row, 0) << name.toStdString();
            ASSERT_TRUE(WaitFor([row] { return tour::ClickConsoleCheck(row); }));
        }
    }
    /// Presses a button of the console and agrees to what it asks.
    QString Agree(const QString& button) {
        return BoxDuring([&] { ClickOn(*Console(), button); });
    }
    void HideByTheOther(const std::vector<qint32>& picIds, qint32 status) {
        const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        ASSERT_NE(other.site, nullptr);
        ASSERT_EQ(other.site->BimPhotos().SetStatus(site.firstProject, picIds, status),
                  int(picIds.size()));
    }
    [[nodiscard]] int InBin() { return int(session.Site().Bin().List().size()); }
    [[nodiscard]] bool IsTold(const QString& beginning) const {
        for (const QString& text : Messages()) {
            if (text.startsWith(beginning)) {
                return true;
            }
        }
        return false;
    }
    [[nodiscard]] QString AllMessages() const { return Messages().join(u'\n'); }
};

TEST_F(TwoClients, WhatTheOtherDeletedAndHidIsSeenAtTheNextRefresh) {
    Other().DeletePhotos({site.photos[2]});
    HideByTheOther({site.photos[3]}, 1);
    EXPECT_EQ(tour::ConsoleRows(), 7) << "nobody has told";
    Refresh();
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 6; }));
    EXPECT_EQ(RowOfPhoto(u"照片2.jpg"_s), -1);
    EXPECT_EQ(tour::ConsoleText(RowOfPhoto(u"照片3.jpg"_s), u"状态"_s), u"隐藏"_s);
    EXPECT_TRUE(Messages().isEmpty()) << AllMessages().toStdString();
}

TEST_F(TwoClients, HidingAmongOthersWhatIsGoneHidesTheOthersAndTellsIt) {
    Tick({u"照片2.jpg"_s, u"照片3.jpg"_s});
    Other().DeletePhotos({site.photos[2]});
    ClickOn(*Console(), u"hideButton"_s);
    EXPECT_TRUE(WaitFor([this] {
        return Other().Photo(site.firstProject, site.photos[3]).status == KX_DATA::kStatusHidden;
    }));
    EXPECT_TRUE(WaitFor([this] { return IsTold(u"修改照片状态"_s); }))
        << AllMessages().toStdString();
    Refresh();
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 6; }));
    EXPECT_EQ(PhotoFlag(Plan(), site.positionKey, 1).count, 3) << "照片0, 1 and 4";
    EXPECT_EQ(InBin(), 1);
}

TEST_F(TwoClients, DeletingAmongOthersWhatIsGoneDeletesTheOthersOnce) {
    Tick({u"照片2.jpg"_s, u"照片3.jpg"_s});
    Other().DeletePhotos({site.photos[2]});
    Agree(u"deleteButton"_s);
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    EXPECT_EQ(InBin(), 2) << "each once";
    EXPECT_TRUE(WaitFor([this] { return IsTold(u"删除BIM模型照片"_s); }))
        << AllMessages().toStdString();
}

TEST_F(TwoClients, DeletingOnlyWhatIsGoneIsToldAndLosesNothingElse) {
    Other().DeletePhotos({site.photos[2]});
    const QString asked = BoxDuring([] {
        EXPECT_EQ(BoxDuring([] { ClickRowIcon(RowOfPhoto(u"照片2.jpg"_s), u"删除"_s); }),
                  u"删除Vesk照片失败！"_s)
            << "the second box";
    });
    EXPECT_EQ(asked, u"确认删除照片 照片2.jpg ？"_s);
    EXPECT_TRUE(WaitFor([this] { return IsTold(u"删除BIM模型照片失败"_s); }))
        << AllMessages().toStdString();
    Refresh();
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 6; }));
    EXPECT_EQ(InBin(), 1);
}

TEST_F(TwoClients, APageThatTheOtherEmptiedIsReadAsTheLastOneThatIsLeft) {
    std::vector<qint32> all = site.photos;
    all.push_back(cornerPhoto);
    all.push_back(upstairsPhoto);
    Other().DeletePhotos(all);
    Refresh();
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 0; }));
    EXPECT_EQ(tour::ConsoleRows(), 0);
    Refresh();
    EXPECT_TRUE(Messages().isEmpty()) << AllMessages().toStdString();
    session.Site().Bin().Restore({session.Site().Bin().List().front().id});
    Refresh();
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 1; }));
}

TEST_F(TwoClients, WhatTheOtherEditedIsInTheEditorAfterARefreshAndOutlastsASaveOfAnotherField) {
    site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    ASSERT_NE(other.site, nullptr);
    KX_DATA::BimPicUpdate update;
    update.picId = site.photos[2];
    update.fileName = u"照片2.jpg"_s;
    update.description = u"他人所写"_s;
    update.positionKey = site.positionKey;
    update.markId = 2;
    ASSERT_EQ(other.site->BimPhotos().Update(site.firstProject, update,
                                             {u"李娜"_s, QDateTime::currentSecsSinceEpoch()}),
              site::Saved::Yes);
    Refresh();
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleText(0, u"描述"_s) == u"他人所写"_s; }));
    const support::ModalVisit visit(u"BimPicEditDlg"_s, [](QWidget& editor) {
        Type(editor, u"picNameEdit"_s, u"我的名字"_s);
        ClickOn(editor, u"okButton"_s);
    });
    ClickRowIcon(RowOfPhoto(u"照片2.jpg"_s), u"编辑"_s);
    EXPECT_TRUE(WaitFor([] { return RowOfPhoto(u"我的名字.jpg"_s) >= 0; }));
    const KX_DATA::BimPicDetail saved = Other().Photo(site.firstProject, site.photos[2]);
    EXPECT_EQ(saved.description, u"他人所写"_s);
    EXPECT_EQ(saved.markId, 2);
}

TEST_F(TwoClients, TheMainWindowSaysTheOthersChangesAfterItsOwnRefresh) {
    HideByTheOther({site.photos[0], site.photos[1]}, 1);
    Other().DeletePhotos({site.photos[2]});
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Console()); }));
    ASSERT_TRUE(WaitFor([this] { return hands::PressKey(client->Window(), Qt::Key_F5); }));
    EXPECT_EQ(PhotoFlag(Plan(), site.positionKey, 1).count, 2);
    EXPECT_EQ(FlagCounts(), (std::vector<int>{1, 2})) << "转角, and 照片3 and 4";
}

} // namespace
} // namespace roads
