// What was deleted or hidden in the console comes back by a click in the main window's bar.
#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "services/Factories.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/ICatalogue.h"
#include "site/IIssues.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/DrawingRoad.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QPointer>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;
using tour::Console;
using tour::ConsoleTotal;

/// The bar's buttons, in whatever road.
QAbstractButton* UndoButton(const host::Client& client) {
    auto* found = client.Window()->Messages().findChild<QAbstractButton*>(u"messageAction"_s);
    return found != nullptr && found->isVisible() ? found : nullptr;
}

bool ClickUndo(const host::Client& client) {
    return WaitFor([&] { return hands::Click(UndoButton(client)); });
}

class UndoRoad : public PhotoRoad {
protected:
    void SetUp() override {
        PhotoRoad::SetUp();
        site::SiteWriter writer(support::FolderOf(session));
        site::NewBimPhoto photo;
        photo.ppid = site.firstProject;
        photo.fileName = u"带语音.jpg"_s;
        photo.positionKey = site.positionKey;
        photo.markId = 1;
        photo.uploader = u"张伟"_s;
        photo.uploadTime = 1'700'000'002; // as 照片2.jpg
        photo.labelIds = {writer.AddLabel(u"渗漏"_s), writer.AddLabel(u"复查"_s)};
        withVoice = writer.FilePhoto(photo, {{}, JpegBytes(qRgb(7, 7, 7))}, {{}, "#!AMR\nnote"});
        ASSERT_TRUE(Press(Qt::Key_1));
        ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 8; }));
    }

    [[nodiscard]] QString VoiceNote() const {
        return support::FolderOf(session)
            .Db()
            .Value(u"SELECT audio_uuid FROM bim_photo WHERE id = ?"_s, {withVoice})
            .toString();
    }
    void DeleteByIcon(const QString& name) {
        const int left = ConsoleTotal() - 1;
        EXPECT_EQ(BoxDuring([&] { ClickRowIcon(RowOfPhoto(name), u"删除"_s); }),
                  u"确认删除照片 "_s + name + u" ？"_s);
        ASSERT_TRUE(WaitFor([&] { return ConsoleTotal() == left; }));
    }
    void Tick(const QStringList& names) {
        for (const QString& name : names) {
            ASSERT_TRUE(WaitFor([&] { return tour::ClickConsoleCheck(RowOfPhoto(name)); }));
        }
    }
    [[nodiscard]] static QString StatusOf(const QString& name) {
        return tour::ConsoleText(RowOfPhoto(name), u"状态"_s);
    }
    [[nodiscard]] bool Offers(const QString& text) const {
        return WaitFor([&] { return UndoButton(*client) != nullptr && Messages().contains(text); });
    }
    [[nodiscard]] bool IsTold(const QString& text) const {
        return WaitFor([&] { return Messages().contains(text); });
    }
    [[nodiscard]] std::vector<site::BinEntry> InBin() const { return session.Site().Bin().List(); }
    [[nodiscard]] QString LastAction() const {
        return session.Site().Catalogue().Actions(1).front().action;
    }

    qint32 withVoice = 0;
};

TEST_F(UndoRoad, ADeletedPhotoIsBackInItsPlaceWithLabelsAndVoiceNote) {
    const QStringList order = ConsoleColumnTexts(u"名称"_s);
    KX_DATA::BimPicDetail before;
    ASSERT_TRUE(session.Site().BimPhotos().Detail(site.firstProject, withVoice, before));
    const QString note = VoiceNote();
    ASSERT_FALSE(note.isEmpty());
    DeleteByIcon(u"带语音.jpg"_s);
    EXPECT_FALSE(support::FolderOf(session).Store().Has(note));
    ASSERT_TRUE(Offers(u"已删除 1 张照片。"_s));
    EXPECT_TRUE(UndoButton(*client)->toolTip().contains(u"带语音.jpg"_s));
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 8; }));
    EXPECT_EQ(ConsoleColumnTexts(u"名称"_s), order);
    EXPECT_TRUE(InBin().empty());
    KX_DATA::BimPicDetail after;
    ASSERT_TRUE(session.Site().BimPhotos().Detail(site.firstProject, withVoice, after));
    EXPECT_EQ(after.labels.size(), 2U);
    EXPECT_EQ(VoiceNote(), note);
    EXPECT_TRUE(support::FolderOf(session).Store().Has(note));
    EXPECT_EQ(after.uploadTime, before.uploadTime);
    EXPECT_EQ(LastAction(), u"撤销删除 1 张照片"_s);
    EXPECT_TRUE(Messages().isEmpty()) << Messages().join(u'\n').toStdString();
    EXPECT_EQ(FlagCounts(), (std::vector<int>{1, 6})) << "on the plan, too";
}

TEST_F(UndoRoad, TickedPhotosAreOneMessageAndComeBackTogetherInWhateverProject) {
    Tick({u"照片1.jpg"_s, u"照片3.jpg"_s, u"转角.jpg"_s});
    (void)BoxDuring([] { ClickOn(*Console(), u"deleteButton"_s); });
    ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
    ASSERT_TRUE(Offers(u"已删除 3 张照片。"_s));
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Console()); }));
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([this] { return InBin().empty(); }));
    EXPECT_EQ(session.CurrentProject().ppid, site.secondProject);
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    ASSERT_TRUE(Press(Qt::Key_1));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 8; }));
}

TEST_F(UndoRoad, OnlyWhatWasReallyHiddenIsShownAgain) {
    Tick({u"照片1.jpg"_s});
    ClickOn(*Console(), u"hideButton"_s);
    ASSERT_TRUE(Offers(u"已隐藏 1 张照片。"_s));
    ASSERT_TRUE(WaitFor([] { return StatusOf(u"照片1.jpg"_s) == u"隐藏"_s; }));
    client->Window()->Messages().Clear();
    // What a refresh leaves ticked is up to the console.
    if (tour::ConsoleCheckedRows() == 0) {
        Tick({u"照片1.jpg"_s});
    }
    Tick({u"照片2.jpg"_s, u"照片3.jpg"_s});
    ClickOn(*Console(), u"hideButton"_s);
    ASSERT_TRUE(Offers(u"已隐藏 2 张照片。"_s));
    EXPECT_EQ(LastAction(), u"隐藏 2 张照片"_s);
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([] { return StatusOf(u"照片2.jpg"_s) == u"显示"_s; }));
    EXPECT_EQ(StatusOf(u"照片3.jpg"_s), u"显示"_s);
    EXPECT_EQ(StatusOf(u"照片1.jpg"_s), u"隐藏"_s) << "it was hidden before";
    EXPECT_EQ(LastAction(), u"撤销隐藏 2 张照片"_s);
}

TEST_F(UndoRoad, WhatIsGoneFromTheBinIsToldByNameAndTheRestComesBack) {
    Tick({u"照片1.jpg"_s, u"照片3.jpg"_s});
    (void)BoxDuring([] { ClickOn(*Console(), u"deleteButton"_s); });
    ASSERT_TRUE(Offers(u"已删除 2 张照片。"_s));
    for (const site::BinEntry& entry : InBin()) {
        if (entry.title == u"照片3.jpg"_s) {
            session.Site().Bin().Purge({entry.id});
        }
    }
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(
        IsTold(u"已撤销删除 1 张照片；“照片3.jpg”已不在回收站中，可能已被恢复或彻底删除。"_s));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 7; }));
    EXPECT_EQ(UndoButton(*client), nullptr);
    DeleteByIcon(u"照片0.jpg"_s);
    ASSERT_TRUE(Offers(u"已删除 1 张照片。"_s));
    session.Site().Bin().Purge({InBin().front().id});
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(IsTold(u"没有撤销：“照片0.jpg”已不在回收站中，可能已被恢复或彻底删除。"_s));
    EXPECT_EQ(LastAction(), u"删除Vesk照片"_s) << "nothing was undone the second time";
}

TEST_F(UndoRoad, TwoDeletionsAreUndoneEachByItsOwnClickOnce) {
    DeleteByIcon(u"照片1.jpg"_s);
    ASSERT_TRUE(Offers(u"已删除 1 张照片。"_s));
    DeleteByIcon(u"照片2.jpg"_s);
    ASSERT_TRUE(WaitFor([this] { return Messages().size() == 2 && UndoButton(*client); }));
    QPointer<QAbstractButton> latest = UndoButton(*client);
    latest->click();
    if (latest != nullptr) {
        latest->click(); // a second click, while it goes
    }
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 7; }));
    EXPECT_GE(RowOfPhoto(u"照片2.jpg"_s), 0);
    EXPECT_EQ(RowOfPhoto(u"照片1.jpg"_s), -1);
    EXPECT_EQ(Messages().size(), 1);
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 8; }));
    EXPECT_TRUE(Messages().isEmpty());
}

TEST_F(UndoRoad, WhoLostTheRightIsToldAndMayUndoOnceItIsBack) {
    DeleteByIcon(u"照片1.jpg"_s);
    ASSERT_TRUE(Offers(u"已删除 1 张照片。"_s));
    site::SiteWriter writer(support::FolderOf(session));
    const std::vector<qint32> rights = session.Site().Catalogue().RightsOf(u"张伟"_s);
    writer.AddUser(u"张伟"_s, {});
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(IsTold(u"撤销删除 1 张照片失败：您没有删除的权限。"_s));
    EXPECT_EQ(InBin().size(), 1U);
    ASSERT_TRUE(Offers(u"已删除 1 张照片。"_s)) << "it still stands";
    writer.AddUser(u"张伟"_s, rights);
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 8; }));
    EXPECT_TRUE(Messages().isEmpty()) << "what failed before holds no longer";
}

TEST_F(UndoRoad, WhatCannotBeWrittenStaysInTheBinAndIsOfferedAgain) {
    DeleteByIcon(u"照片1.jpg"_s);
    ASSERT_TRUE(Offers(u"已删除 1 张照片。"_s));
    OtherClient other = Other();
    other.TakePhotosAway();
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([this] {
        return !Messages().isEmpty() && !Messages().filter(u"撤销删除 1 张照片失败："_s).isEmpty();
    })) << Messages().join(u'\n').toStdString();
    EXPECT_EQ(InBin().size(), 1U);
    other.BringPhotosBack();
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 8; }));
}

TEST_F(UndoRoad, WhatTheBinWindowBroughtBackIsOfferedNoMore) {
    Tick({u"照片1.jpg"_s, u"照片3.jpg"_s});
    (void)BoxDuring([] { ClickOn(*Console(), u"deleteButton"_s); });
    ASSERT_TRUE(Offers(u"已删除 2 张照片。"_s));
    ASSERT_TRUE(Press(Qt::Key_B));
    const auto bin = [] { return tour::FindWindow(u"binWindow"_s); };
    ASSERT_TRUE(WaitFor([&] { return bin() != nullptr; }));
    auto* table = qobject_cast<QAbstractItemView*>(tour::FindIn(bin(), u"binTable"_s));
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->model()->rowCount(), 2);
    ASSERT_TRUE(WaitFor([&] { return hands::ClickCell(table, 0, 1); }));
    ClickOn(*bin(), u"binRestore"_s);
    ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 7; }));
    EXPECT_NE(UndoButton(*client), nullptr) << "the other one may still come back";
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([] { return ConsoleTotal() == 8; }));
    EXPECT_EQ(LastAction(), u"撤销删除 1 张照片"_s);
    EXPECT_EQ(table->model()->rowCount(), 0) << "the window lists the bin as it is";
    EXPECT_TRUE(Messages().isEmpty()) << Messages().join(u'\n').toStdString();

    DeleteByIcon(u"照片1.jpg"_s);
    ASSERT_TRUE(Offers(u"已删除 1 张照片。"_s));
    ASSERT_TRUE(WaitFor([&] { return hands::CloseWindow(bin()); }));
    ASSERT_TRUE(Press(Qt::Key_B));
    ASSERT_TRUE(WaitFor([&] { return bin() != nullptr; }));
    table = qobject_cast<QAbstractItemView*>(tour::FindIn(bin(), u"binTable"_s));
    ASSERT_TRUE(WaitFor([&] { return hands::ClickCell(table, 0, 1); }));
    ClickOn(*bin(), u"binRestore"_s);
    EXPECT_TRUE(WaitFor([this] { return Messages().isEmpty(); }));
}

TEST_F(UndoRoad, AnIssueComesBackFromTheBinAndFromHidingWithoutAnyRight) {
    site::ListFilter filter;
    filter.ppids = {site.firstProject};
    const auto page = session.Site().Issues().PageOf(filter, {{}, 1, 30});
    ASSERT_EQ(page.rows.size(), 2U);
    const QString id = page.rows.front().questionId;
    ASSERT_TRUE(GetTNQuestionMng()->SetIssuesShown(site.firstProject, {id}, true));
    ASSERT_TRUE(Offers(u"已隐藏 1 个TN问题。"_s));
    site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, {});
    ASSERT_TRUE(ClickUndo(*client));
    KX_DATA::QuestionDetail detail;
    ASSERT_TRUE(session.Site().Issues().Detail(site.firstProject, id, detail));
    EXPECT_EQ(detail.status, KX_DATA::kStatusShown);
    EXPECT_EQ(session.Site().Issues().History(site.firstProject, id).front().person, u"张伟"_s);
    ASSERT_TRUE(GetTNQuestionMng()->DeleteIssues({id}));
    ASSERT_TRUE(Offers(u"已删除 1 个TN问题。"_s));
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(session.Site().Issues().Detail(site.firstProject, id, detail).has_value());
}

TEST_F(UndoRoad, WhatOthersShowedOrDeletedMeanwhileIsTold) {
    Tick({u"照片1.jpg"_s, u"照片3.jpg"_s});
    ClickOn(*Console(), u"hideButton"_s);
    ASSERT_TRUE(Offers(u"已隐藏 2 张照片。"_s));
    Other().DeletePhotos({site.photos[1]});
    {
        const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        other.site->BimPhotos().SetStatus(site.firstProject, {site.photos[3]}, 0);
    }
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(IsTold(u"没有撤销：“照片1.jpg”已不存在，可能已被他人删除。"_s))
        << Messages().join(u'\n').toStdString();
    Tick({u"照片2.jpg"_s});
    ClickOn(*Console(), u"hideButton"_s);
    ASSERT_TRUE(Offers(u"已隐藏 1 张照片。"_s));
    {
        const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        other.site->BimPhotos().SetStatus(site.firstProject, {site.photos[2]}, 0);
    }
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(IsTold(u"没有撤销：“照片2.jpg”已经是显示状态。"_s));
}

TEST_F(UndoRoad, DeedsOfOneKindInOneTurnAreOneMessage) {
    KX_DATA::IVeskPicMng& photos = *GetVeskPicMng();
    ASSERT_TRUE(photos.SetBimPicsShown(site.firstProject, {site.photos[0]}, true));
    ASSERT_TRUE(photos.SetBimPicsShown(site.firstProject, {site.photos[1]}, true));
    ASSERT_TRUE(photos.DeleteBimPics({site.photos[2]}));
    EXPECT_TRUE(Messages().isEmpty()) << "later, when all have come";
    EXPECT_TRUE(WaitFor([this] { return Messages().size() == 2; }));
    EXPECT_EQ(Messages(), (QStringList{u"已删除 1 张照片。"_s, u"已隐藏 2 张照片。"_s}));
    ASSERT_TRUE(photos.SetBimPicsShown(site.firstProject, {site.photos[3]}, true));
    EXPECT_TRUE(WaitFor([this] { return Messages().size() == 3; })) << "another turn";
}

TEST_F(UndoRoad, TheEndOfTheClientEndsTheOffers) {
    DeleteByIcon(u"照片1.jpg"_s);
    ASSERT_TRUE(Offers(u"已删除 1 张照片。"_s));
    DeleteByIcon(u"照片2.jpg"_s); // gathered, and perhaps never shown
    client->Stop();
    EXPECT_EQ(InBin().size(), 2U);
}

class CheckpointUndoRoad : public DrawingRoad {};

TEST_F(CheckpointUndoRoad, ARemovedCheckpointIsBackOnItsSheet) {
    support::AnsweredPrompts prompts;
    prompts.ExpectOkCancel(u"确定删除检查点4？30 天内可以从回收站恢复。"_s, true);
    EXPECT_TRUE(ChooseInMenu(OnFlag(without), u"删除检查点"_s));
    ASSERT_TRUE(WaitFor([this] { return Canvas().Flags().size() == 1U; }));
    ASSERT_TRUE(WaitFor([this] { return Messages().contains(u"已删除 1 个检查点。"_s); }));
    ASSERT_TRUE(ClickUndo(*client));
    EXPECT_TRUE(WaitFor([this] { return Canvas().Flags().size() == 2U; }));
    EXPECT_EQ(Points().size(), 2U);
}

} // namespace
} // namespace roads
