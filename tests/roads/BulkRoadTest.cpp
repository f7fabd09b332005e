// What is ticked in the console is filed at once, and comes back by a click in the message bar.
#include "tests/roads/BulkRoad.h"
#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "services/IKXAuthMng.h"
#include "site/IBulkFiling.h"
#include "site/ICatalogue.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/ISetup.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/BalloonTip.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAction>
#include <QComboBox>
#include <QListWidget>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;
using tour::Console;

class BulkConsoleRoad : public BulkRoad {
protected:
    [[nodiscard]] QAction* Entry() const {
        for (QAction* action : client->Window()->findChildren<QAction*>()) {
            if (action->text() == u"批量归档..."_s) {
                return action;
            }
        }
        return nullptr;
    }
    [[nodiscard]] static QString Tip() {
        const toolkit::BalloonTip* tip = toolkit::BalloonTip::Current();
        return tip == nullptr ? QString() : tip->Text();
    }
    static void CheckLabel(const QString& name) {
        auto* list = Question()->findChild<QListWidget*>(u"labelList"_s);
        const QList<QListWidgetItem*> found = list->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        ASSERT_TRUE(WaitFor([&] { return hands::ClickCell(list, list->row(found.front()), 0); }));
        ASSERT_TRUE(WaitFor([&] { return hands::PressKey(list, Qt::Key_Space); }));
        EXPECT_EQ(found.front()->checkState(), Qt::Checked);
    }
    [[nodiscard]] static bool IsShown(const QString& name) {
        const QWidget* control = Question()->findChild<QWidget*>(name);
        return control != nullptr && control->isVisible();
    }
};

TEST_F(BulkConsoleRoad, WithoutAConsoleThereIsNothingTicked) {
    ASSERT_NE(Entry(), nullptr);
    EXPECT_TRUE(WaitFor([this] { return !Entry()->isEnabled(); }));
    EXPECT_TRUE(Entry()->toolTip().contains(u"请先打开控制台并搜索"_s));
    OpenConsoleOf(Qt::Key_1, 10);
    EXPECT_TRUE(Entry()->isEnabled());
    AskIn(Console());
    EXPECT_TRUE(WaitFor([] { return Tip() == u"请先在控制台中勾选要归档的行。"_s; }));
    EXPECT_EQ(Question(), nullptr);
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Console()); }));
    EXPECT_TRUE(WaitFor([this] { return !Entry()->isEnabled(); }));
}

TEST_F(BulkConsoleRoad, PhotosGetPlaceMarkLabelsAndStatusAndHaveThemTakenBack) {
    OpenConsoleOf(Qt::Key_1, 10);
    const KX_DATA::BimPicDetail before = Photo(marked);
    Tick({u"散1.jpg"_s, u"散2.jpg"_s, u"散3.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"placeCombo"_s, u"指定"_s},
               {u"floorCombo"_s, u"1层"_s},
               {u"axisXCombo"_s, u"1"_s},
               {u"axisYCombo"_s, u"A"_s},
               {u"markCombo"_s, u"安全"_s},
               {u"statusCombo"_s, u"隐藏"_s},
               {u"labelCombo"_s, u"添加"_s}});
    EXPECT_EQ(tour::ReadText(tour::FindIn(Question(), u"headLabel"_s)),
              u"将修改勾选的 3 张BIM模型照片"_s);
    CheckLabel(u"复查"_s);
    Type(*Question(), u"newLabelEdit"_s, u"三层 漏水"_s);
    Accept();
    EXPECT_TRUE(IsTold(u"已归档 3 张照片。"_s));
    EXPECT_EQ(Tip(), u"已归档 3 张照片。"_s) << "the bar lies behind the console";
    const KX_DATA::BimPicDetail after = Photo(marked);
    EXPECT_EQ(after.positionKey, upstairsKey);
    EXPECT_EQ(after.floor, u"1"_s);
    EXPECT_EQ(after.markId, 2);
    EXPECT_EQ(after.status, KX_DATA::kStatusHidden);
    EXPECT_EQ(after.updaterName, u"张伟"_s);
    EXPECT_EQ(LabelsOf(bare), (QStringList{u"复查"_s, u"三层漏水"_s}));
    EXPECT_EQ(LastAction(), u"批量归档 3 张照片"_s);
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleRowsWith(u"状态"_s, u"隐藏"_s) == 3; }))
        << "the console shows it";
    ASSERT_TRUE(ClickUndo());
    EXPECT_EQ(Photo(marked).positionKey, before.positionKey);
    EXPECT_EQ(Photo(marked).updateTime, before.updateTime);
    EXPECT_EQ(Photo(placed).positionKey, cornerKey);
    EXPECT_TRUE(LabelsOf(bare).isEmpty());
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleRowsWith(u"状态"_s, u"隐藏"_s) == 0; }));
    EXPECT_EQ(LastAction(), u"撤销批量归档 3 张照片"_s);
    EXPECT_TRUE(Messages().isEmpty()) << Messages().join(u'\n').toStdString();
}

TEST_F(BulkConsoleRoad, ThePlaceProposedIsTheOneChosenInThePlan) {
    ASSERT_TRUE(Plan().LocateKey(cornerKey));
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"placeCombo"_s, u"指定"_s}});
    const auto chosen = [](const QString& name) {
        return Question()->findChild<QComboBox*>(name)->currentText();
    };
    EXPECT_EQ(chosen(u"floorCombo"_s), u"-1层"_s);
    EXPECT_EQ(chosen(u"axisXCombo"_s), u"1"_s);
    EXPECT_EQ(chosen(u"axisYCombo"_s), u"A"_s);
    Accept();
    EXPECT_EQ(Photo(bare).positionKey, cornerKey);
}

TEST_F(BulkConsoleRoad, AClearedPlaceAndRemovedLabelsAndWhatWasSoAlready) {
    session.Site().BulkFiling().FileBimPhotos(
        {site.firstProject}, {placed},
        {{}, {}, {}, {session.Site().Catalogue().AddLabel(u"渗漏"_s)}, false}, {u"李娜"_s, 9});
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s, u"散3.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"placeCombo"_s, u"清除"_s}, {u"labelCombo"_s, u"替换为"_s}});
    EXPECT_EQ(tour::ReadText(tour::FindIn(Question(), u"hintLabel"_s)),
              u"没有勾选标签：照片已有的标签会全部去掉。"_s);
    Accept();
    EXPECT_TRUE(IsTold(u"已归档 1 张照片，1 张本来如此。"_s));
    EXPECT_TRUE(Photo(placed).floor.isEmpty());
    EXPECT_TRUE(LabelsOf(placed).isEmpty());
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"无标识"_s}});
    Accept();
    EXPECT_TRUE(IsTold(u"没有修改任何照片，1 张本来如此。"_s));
    ASSERT_TRUE(ClickUndo());
    EXPECT_EQ(LabelsOf(placed), QStringList{u"渗漏"_s}) << "the other filing's";
}

TEST_F(BulkConsoleRoad, IssuesGetAMarkAndAStatusWithoutPlaceOrLabels) {
    site::ListFilter filter;
    filter.ppids = {site.firstProject};
    const auto history = [&] {
        const auto issue = session.Site().Issues().PageOf(filter, {{}, 1, 30}).rows.front();
        return session.Site().Issues().History(site.firstProject, issue.questionId).size();
    };
    const size_t before = history();
    OpenConsoleOf(Qt::Key_3, 2);
    Tick({u"问题-1"_s, u"问题1"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}, {u"statusCombo"_s, u"隐藏"_s}});
    EXPECT_EQ(tour::ReadText(tour::FindIn(Question(), u"headLabel"_s)),
              u"将修改勾选的 2 个TN问题"_s);
    EXPECT_FALSE(IsShown(u"placeCombo"_s));
    EXPECT_FALSE(IsShown(u"labelList"_s));
    Accept();
    EXPECT_TRUE(IsTold(u"已归档 2 个TN问题。"_s));
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleRowsWith(u"问题标识"_s, u"安全"_s) == 2; }));
    EXPECT_EQ(history(), before + 2) << "mark and status";
    ASSERT_TRUE(ClickUndo());
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleRowsWith(u"问题标识"_s, u"安全"_s) == 0; }));
    EXPECT_EQ(history(), before + 4);
}

TEST_F(BulkConsoleRoad, DrawingPhotosGetAStatusAlone) {
    OpenConsoleOf(Qt::Key_2, 1);
    Tick({u"图纸照片.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"statusCombo"_s, u"隐藏"_s}});
    EXPECT_FALSE(IsShown(u"markCombo"_s));
    EXPECT_EQ(tour::ReadText(tour::FindIn(Question(), u"hintLabel"_s)),
              u"图纸照片的标识和标签是检查点的，请在图纸上编辑检查点。"_s);
    Accept();
    EXPECT_TRUE(IsTold(u"已归档 1 张照片。"_s));
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleRowsWith(u"状态"_s, u"隐藏"_s) == 1; }));
    ASSERT_TRUE(ClickUndo());
    EXPECT_TRUE(WaitFor([] { return tour::ConsoleRowsWith(u"状态"_s, u"显示"_s) == 1; }));
}

TEST_F(BulkConsoleRoad, WhatOthersDeletedIsSkippedAndNamed) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s, u"散2.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}});
    Other().DeletePhotos({marked});
    Accept();
    EXPECT_TRUE(IsTold(u"已归档 1 张照片，1 张跳过。"_s));
    ASSERT_TRUE(WaitFor([] { return Skipped() != nullptr; }));
    EXPECT_EQ(Skipped()->windowTitle(), u"批量归档结果"_s);
    EXPECT_EQ(SkippedRows(), QStringList{u"散2.jpg，跳过，已被删除"_s});
    EXPECT_EQ(Photo(bare).markId, 2);
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Skipped()); }));
}

TEST_F(BulkConsoleRoad, WhatWasChangedSinceIsNotTakenBackAndNamed) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s, u"散2.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}});
    Accept();
    session.Site().BulkFiling().FileBimPhotos({site.firstProject}, {bare},
                                              {cornerKey, {}, {}, {}, false}, {u"李娜"_s, 9});
    ASSERT_TRUE(ClickUndo());
    EXPECT_TRUE(IsTold(u"已撤销 1 张照片的归档，1 张没有撤销。"_s));
    EXPECT_EQ(SkippedRows(), QStringList{u"散1.jpg，跳过，之后又被修改过"_s});
    EXPECT_EQ(Photo(bare).markId, 2);
    EXPECT_EQ(Photo(marked).markId, 1);
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Skipped()); }));
}

TEST_F(BulkConsoleRoad, EachRightHasItsPartOfTheQuestion) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    const auto ask = [] {
        AskIn(Console());
        ASSERT_TRUE(WaitFor([] { return Question() != nullptr; }));
    };
    const auto leave = [] {
        ASSERT_TRUE(WaitFor([] { return hands::PressKey(Question(), Qt::Key_Escape); }));
        ASSERT_TRUE(WaitFor([] { return Question() == nullptr; }));
    };
    SetRights({KX_DATA::kRightEdit});
    ask();
    EXPECT_TRUE(IsShown(u"placeCombo"_s) && IsShown(u"markCombo"_s) && IsShown(u"labelList"_s));
    EXPECT_FALSE(IsShown(u"statusCombo"_s) || IsShown(u"newLabelEdit"_s));
    leave();
    SetRights({KX_DATA::kRightShowHide});
    ask();
    EXPECT_FALSE(IsShown(u"placeCombo"_s) || IsShown(u"markCombo"_s) || IsShown(u"labelList"_s));
    EXPECT_TRUE(IsShown(u"statusCombo"_s));
    leave();
    SetRights({});
    AskIn(Console());
    EXPECT_TRUE(WaitFor([] { return Tip() == u"您没有编辑、显示和隐藏的权限，不能归档。"_s; }));
    EXPECT_EQ(Question(), nullptr);
}

TEST_F(BulkConsoleRoad, ARightThatGoesMeanwhileIsMissedAtTheEndAndBeforeTheUndo) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}, {u"labelCombo"_s, u"添加"_s}});
    Type(*Question(), u"newLabelEdit"_s, u"新的"_s);
    SetRights({KX_DATA::kRightEdit});
    EXPECT_EQ(RefusedBecause(), u"您没有新增标签的权限。"_s);
    SetRights({KX_DATA::kRightAddLabels, KX_DATA::kRightShowHide});
    EXPECT_EQ(RefusedBecause(), u"您没有编辑的权限。"_s);
    EXPECT_EQ(Photo(bare).markId, 0);
    EXPECT_EQ(session.Site().Catalogue().Labels().size(), 2U) << "no label either";
    SetRights({KX_DATA::kRightAddLabels, KX_DATA::kRightEdit});
    Accept();
    EXPECT_EQ(Photo(bare).markId, 2);
    SetRights({});
    ASSERT_TRUE(ClickUndo());
    EXPECT_TRUE(IsTold(u"撤销批量归档失败：您没有编辑的权限。"_s));
    EXPECT_EQ(Photo(bare).markId, 2);
    SetRights({KX_DATA::kRightEdit});
    ASSERT_TRUE(ClickUndo());
    EXPECT_EQ(Photo(bare).markId, 0);
    EXPECT_TRUE(Messages().isEmpty()) << Messages().join(u'\n').toStdString();
}

TEST_F(BulkConsoleRoad, WhatCannotBeWrittenLeavesTheQuestionOpenAndAllAsItWas) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s, u"散2.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}});
    OtherClient other = Other();
    other.TakePhotosAway();
    EXPECT_FALSE(RefusedBecause().isEmpty());
    other.BringPhotosBack();
    ASSERT_NE(Question(), nullptr);
    EXPECT_EQ(Photo(bare).markId, 0);
    Accept();
    EXPECT_EQ(Photo(bare).markId, 2);
}

TEST_F(BulkConsoleRoad, AMarkThatWentMeanwhileIsTold) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}});
    support::FolderOf(session).Db().Exec(u"DELETE FROM mark WHERE id = 2"_s);
    EXPECT_EQ(RefusedBecause(), u"所选的标识已被删除，请重新选择标识。"_s);
    EXPECT_EQ(Photo(bare).markId, 0);
}

TEST_F(BulkConsoleRoad, ALabelIsNotMadeWhereTheFilingFails) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}, {u"labelCombo"_s, u"添加"_s}});
    Type(*Question(), u"newLabelEdit"_s, u"新的"_s);
    const size_t before = session.Site().Catalogue().Labels().size();
    support::FolderOf(session).Db().Exec(u"DELETE FROM mark WHERE id = 2"_s);
    EXPECT_EQ(RefusedBecause(), u"所选的标识已被删除，请重新选择标识。"_s);
    EXPECT_EQ(session.Site().Catalogue().Labels().size(), before);
    Other().DeletePhotos({bare});
    ChooseAll({{u"markCombo"_s, u"不修改"_s}});
    Accept();
    EXPECT_TRUE(IsTold(u"没有修改任何照片，1 张跳过。"_s)) << Messages().join(u'|').toStdString();
    EXPECT_EQ(session.Site().Catalogue().Labels().size(), before) << "nobody bears it";
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Skipped()); }));
}

TEST_F(BulkConsoleRoad, AnotherProjectGivesTheQuestionUp) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}});
    // The box is not to be reached behind the question; who calls it has another way.
    emit client->Window()->ProjectChosen(1);
    EXPECT_TRUE(WaitFor([] { return Question() == nullptr; }));
    EXPECT_TRUE(IsTold(u"已换到另一个工程，批量归档没有进行。"_s));
    EXPECT_EQ(Photo(bare).markId, 0);
}

TEST_F(BulkConsoleRoad, AConsoleThatClosesTakesTheQuestionAlong) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}});
    Console()->close();
    EXPECT_TRUE(WaitFor([] { return Question() == nullptr; }));
    EXPECT_EQ(Photo(bare).markId, 0);
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    EXPECT_TRUE(WaitFor([] { return Question() != nullptr; })) << "it can be asked again";
}

TEST_F(BulkConsoleRoad, InAWorksetPhotosOfOtherProjectsAreSkippedForAPlace) {
    site::SiteWriter writer(support::FolderOf(session));
    site::NewBimPhoto photo;
    photo.ppid = site.secondProject;
    photo.fileName = u"二期.jpg"_s;
    photo.uploadTime = 1'700'000'500;
    const qint32 elsewhere = writer.FilePhoto(photo, {{}, JpegBytes(qRgb(3, 3, 3))});
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    OpenConsoleOf(Qt::Key_1, 11);
    Tick({u"散1.jpg"_s, u"二期.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"placeCombo"_s, u"指定"_s},
               {u"floorCombo"_s, u"1层"_s},
               {u"axisXCombo"_s, u"1"_s},
               {u"axisYCombo"_s, u"A"_s},
               {u"markCombo"_s, u"安全"_s}});
    EXPECT_EQ(tour::ReadText(tour::FindIn(Question(), u"hintLabel"_s)),
              u"这里是工程“一期工程”的位置，其他工程的 1 张照片会跳过。"_s);
    Accept();
    EXPECT_TRUE(IsTold(u"已归档 1 张照片，1 张跳过。"_s));
    EXPECT_EQ(SkippedRows(), QStringList{u"二期.jpg，跳过，属于另一个工程，那里没有所选的位置"_s});
    KX_DATA::BimPicDetail detail;
    ASSERT_TRUE(session.Site().BimPhotos().Detail(site.secondProject, elsewhere, detail));
    EXPECT_EQ(detail.markId, 0) << "nothing of it is done by half";
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Skipped()); }));
}

TEST_F(BulkConsoleRoad, TheEndOfTheClientEndsQuestionAndOffers) {
    OpenConsoleOf(Qt::Key_1, 10);
    Tick({u"散1.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}});
    Accept();
    Tick({u"散2.jpg"_s});
    AskIn(Console());
    ChooseAll({{u"markCombo"_s, u"安全"_s}});
    client->Stop();
    EXPECT_EQ(Photo(bare).markId, 2);
    EXPECT_EQ(Photo(marked).markId, 1);
}

} // namespace
} // namespace roads
