// The settings in the whole client: who may open them, what they save, what follows.
#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/HintTable.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "host/ui/setup/SetupListPage.h"
#include "host/ui/setup/SetupWindow.h"
#include "site/ICatalogue.h"
#include "site/IDrawings.h"
#include "site/IIntake.h"
#include "site/ISetup.h"
#include "site/OpenSite.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/ClientFixture.h"
#include "tests/roads/RoadHands.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/TourEyes.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

#include <gmock/gmock.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::AnsweredPrompts;
using support::WaitFor;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

const QString kNoSetup = u"您没有设置的权限，请找有权限的人。"_s;

class SetupRoad : public ClientOnAFolder {
protected:
    [[nodiscard]] host::SetupWindow* Settings() const {
        return client->Window()->findChild<host::SetupWindow*>();
    }
    [[nodiscard]] host::SetupListPage& Page(host::SetupWindow::Page page, const QString& name) {
        Settings()->ShowPage(page);
        auto* table = Settings()->findChild<host::HintTable*>(name + u"Table"_s);
        return *qobject_cast<host::SetupListPage*>(table->parentWidget());
    }
    void Open() {
        ASSERT_TRUE(Press(Qt::Key_Comma));
        ASSERT_TRUE(WaitFor([&] { return Settings() != nullptr && Settings()->isVisible(); }));
    }
    static void Set(host::SetupListPage& page, int row, int column, const QString& text) {
        ASSERT_TRUE(page.Model().setData(page.Model().index(row, column), text, Qt::EditRole));
    }
    void Save() {
        ClickOn(*Settings(), u"setupSave"_s);
        EXPECT_FALSE(Settings()->HasUnsaved());
        EXPECT_EQ(Settings()->findChild<QLabel*>(u"setupNote"_s)->text(), u"已保存。"_s);
    }
    [[nodiscard]] QStringList Projects() const {
        const auto* combo = client->Window()->findChild<QComboBox*>(u"projectChoice"_s);
        QStringList names;
        for (int at = 0; at < combo->count(); ++at) {
            names << combo->itemText(at);
        }
        return names;
    }
};

TEST_F(SetupRoad, ARenamedProjectIsCalledSoAtOnceAndAnArchivedOneIsNoLongerOffered) {
    Open();
    auto& projects = Page(host::SetupWindow::Page::Projects, u"projects"_s);
    Set(projects, 0, 0, u"一期（新）"_s);
    ASSERT_TRUE(
        projects.Model().setData(projects.Model().index(1, 2), Qt::Checked, Qt::CheckStateRole));
    Save();
    EXPECT_THAT(Projects(), ElementsAre(u"一期（新）"_s, u"工作集：总包"_s));
    EXPECT_THAT(client->Window()->windowTitle().toStdString(), HasSubstr("一期（新）"));
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

TEST_F(SetupRoad, WhoArchivesTheOpenProjectIsLedToAnother) {
    Open();
    auto& projects = Page(host::SetupWindow::Page::Projects, u"projects"_s);
    const QString open = session.CurrentProject().name;
    const int row = open == u"一期工程"_s ? 0 : 1;
    ASSERT_TRUE(
        projects.Model().setData(projects.Model().index(row, 2), Qt::Checked, Qt::CheckStateRole));
    Save();
    EXPECT_NE(session.CurrentProject().name, open);
    EXPECT_NE(session.CurrentProject().ppid, 0);
    EXPECT_THAT(client->Window()->windowTitle().toStdString(),
                HasSubstr(session.CurrentProject().name.toStdString()));
    EXPECT_FALSE(Projects().join(u' ').contains(open)) << Projects().join(u' ').toStdString();
    EXPECT_TRUE(Messages().value(0).startsWith(u"离开了%1（已归档）"_s.arg(open)));
}

TEST_F(SetupRoad, WhatAnotherClientArchivesStaysOpenAndIsOfferedNoMore) {
    const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    const QString open = session.CurrentProject().name;
    const auto archive = [&](const QString& name) {
        const site::SetupState seen = other.site->Setup().Read({});
        site::SetupState wanted = seen;
        for (site::SetupProject& project : wanted.projects) {
            project.archived = project.archived || project.name == name;
        }
        EXPECT_TRUE(other.site->Setup().Apply(seen, wanted, {u"张伟"_s, 1'700'000'000}).IsDone());
    };
    const QString second = open == u"一期工程"_s ? u"二期工程"_s : u"一期工程"_s;
    archive(second);
    EXPECT_TRUE(WaitFor([&] { return !Projects().contains(second); }));
    archive(open);
    EXPECT_TRUE(WaitFor([&] { return Projects().contains(open + u"（已归档）"_s); }));
    EXPECT_EQ(session.CurrentProject().name, open);
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    EXPECT_THAT(Projects(), ElementsAre(u"工作集：总包"_s)) << "left, it is offered no more";
}

TEST_F(SetupRoad, ANewFloorStandsInThePlanAndTheImportOffersIt) {
    Open();
    Settings()->ShowPage(host::SetupWindow::Page::Grid);
    ClickOn(*Settings(), u"floorsAdd"_s);
    auto& floors = Page(host::SetupWindow::Page::Grid, u"floors"_s);
    const int row = floors.Model().rowCount() - 1;
    Set(floors, row, 0, u"屋顶"_s);
    Type(*Settings(), u"axesX"_s, u"1-2"_s);
    Type(*Settings(), u"axesY"_s, u"A"_s);
    ClickOn(*Settings(), u"axesCross"_s);
    Save();
    EXPECT_THAT(session.Site().Catalogue().Floors(site.firstProject), Contains(u"屋顶"_s));
    // In a list beside the plan: it has photos or none.
    const auto* shown = client->Window()->Plan().findChild<QAbstractItemView*>(u"floorList"_s);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(
        shown->model()
            ->match(shown->model()->index(0, 0), Qt::DisplayRole, u"屋顶"_s, 1, Qt::MatchStartsWith)
            .size(),
        1);
}

TEST_F(SetupRoad, WhoeverMayNotSetUpCannotOpenIt) {
    site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, {5, 21, 22, 38});
    ASSERT_TRUE(Press(Qt::Key_Comma));
    EXPECT_EQ(Settings(), nullptr);
}

TEST_F(SetupRoad, ARightThatIsTakenAwayMeanwhileSavesNothing) {
    Open();
    auto& labels = Page(host::SetupWindow::Page::Labels, u"labels"_s);
    ClickOn(*Settings(), u"labelsAdd"_s);
    Set(labels, labels.Model().rowCount() - 1, 0, u"偷偷"_s);
    site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, {5, 21});
    AnsweredPrompts prompts;
    prompts.ExpectMessage(u"没有保存：\n您没有设置的权限，请找有权限的人。"_s);
    ClickOn(*Settings(), u"setupSave"_s);
    EXPECT_TRUE(Settings()->HasUnsaved());
    for (const auto& label : session.Site().Catalogue().Labels()) {
        EXPECT_NE(label.labelName, u"偷偷"_s);
    }
    prompts.ExpectNoYes(u"有未保存的修改。不保存就关闭吗？"_s, true);
    Settings()->close();
}

TEST_F(SetupRoad, OnesOwnRightsChangeAtOnce) {
    Open();
    auto& people = Page(host::SetupWindow::Page::People, u"people"_s);
    // 李娜 may set up from now on; 张伟 not any more.
    Set(people, 1, 1, u"管理员"_s);
    Set(people, 0, 1, u"查看者"_s);
    Save();
    EXPECT_FALSE(session.HasRight(site::kRightSetup));
    EXPECT_FALSE(session.HasRight(21));
}

TEST_F(SetupRoad, RightsThatAnotherClientTakesAndGivesAreSoAtOnce) {
    const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    ASSERT_NE(other.site, nullptr);
    const auto isOffered = [this](const QString& command) {
        for (const QAction* action : client->Window()->findChildren<QAction*>()) {
            if (action->text() == command) {
                return action->isEnabled();
            }
        }
        return false;
    };
    const QStringList commands{u"设置..."_s, u"新建工程..."_s, u"导入照片..."_s, u"登记问题..."_s};
    for (const QString& command : commands) {
        EXPECT_TRUE(WaitFor([&] { return isOffered(command); })) << command.toStdString();
    }
    other.site->NewIntake()->AddUser(u"张伟"_s, {5, 22, 38});
    for (const QString& command : commands) {
        EXPECT_TRUE(WaitFor([&] { return !isOffered(command); })) << command.toStdString();
    }
    other.site->NewIntake()->AddUser(u"张伟"_s, {21, site::kRightSetup});
    for (const QString& command : commands) {
        EXPECT_TRUE(WaitFor([&] { return isOffered(command); })) << command.toStdString();
    }
    Open();
}

TEST_F(SetupRoad, ARightThatIsTakenAwayWhileTheNameIsAskedMakesNoProject) {
    support::ModalVisit visit(u"projectNameDialog"_s, [this](QWidget& window) {
        window.findChild<QLineEdit*>(u"projectName"_s)->setText(u"三期工程"_s);
        site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, {5, 21});
        qobject_cast<QDialog*>(&window)->accept();
    });
    ASSERT_TRUE(Press(Qt::Key_N));
    EXPECT_TRUE(visit.HasCome());
    EXPECT_THAT(Projects(), testing::Not(Contains(u"三期工程"_s)));
    EXPECT_THAT(Messages(), ElementsAre(u"您没有设置的权限，没有新建工程。"_s));
}

TEST_F(SetupRoad, ARightThatIsTakenAwayMeanwhileLeavesDrawingsAlone) {
    const auto drawings = [this] {
        return session.Site().Drawings().List(site.firstProject).size();
    };
    const size_t before = drawings();
    ASSERT_GT(before, 0U);
    Open();
    Settings()->ShowPage(host::SetupWindow::Page::Drawings);
    auto* list = Settings()->findChild<QListWidget*>(u"drawingsList"_s);
    ASSERT_NE(list, nullptr);
    list->setCurrentRow(0);
    site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, {5, 21, 22});
    AnsweredPrompts prompts;
    prompts.ExpectYesNo(u"把图纸“一层平面图”放入回收站吗？30 天内可以恢复。"_s, true);
    prompts.ExpectMessage(kNoSetup);
    ClickOn(*Settings(), u"drawingsRemove"_s);
    prompts.ExpectOpenFiles(u"PDF 图纸 (*.pdf)"_s, {folder.Path(u"a.pdf"_s)});
    ClickOn(*Settings(), u"drawingsImport"_s);
    EXPECT_THAT(Messages(), ElementsAre(kNoSetup));
    EXPECT_EQ(drawings(), before);
}

TEST_F(SetupRoad, ADrawingThatIsRemovedComesBackByAClick) {
    site::SiteWriter(support::FolderOf(session)).AddDrawing(site.firstProject, u"空图"_s);
    const auto drawings = [this] {
        return session.Site().Drawings().List(site.firstProject).size();
    };
    const size_t before = drawings();
    Open();
    Settings()->ShowPage(host::SetupWindow::Page::Drawings);
    auto* list = Settings()->findChild<QListWidget*>(u"drawingsList"_s);
    list->setCurrentItem(list->findItems(u"空图"_s, Qt::MatchExactly).value(0));
    {
        AnsweredPrompts prompts;
        prompts.ExpectYesNo(u"把图纸“空图”放入回收站吗？30 天内可以恢复。"_s, true);
        ClickOn(*Settings(), u"drawingsRemove"_s);
    }
    EXPECT_EQ(drawings(), before - 1);
    ASSERT_TRUE(WaitFor([this] { return Messages().contains(u"已删除 1 张图纸。"_s); }));
    Settings()->close();
    auto* undo = client->Window()->Messages().findChild<QAbstractButton*>(u"messageAction"_s);
    ASSERT_NE(undo, nullptr);
    undo->click();
    EXPECT_EQ(drawings(), before);
}

TEST_F(SetupRoad, APastedTableIsPreviewedTakenAndSaved) {
    Open();
    Settings()->ShowPage(host::SetupWindow::Page::Labels);
    QApplication::clipboard()->setText(u"名称\n钢筋\n模板\n"_s);
    ClickOn(*Settings(), u"labelsPaste"_s);
    auto* preview = Settings()->findChild<QDialog*>(u"setupPreview"_s);
    ASSERT_NE(preview, nullptr);
    ClickOn(*preview, u"setupPreviewTake"_s);
    Save();
    const auto labels = session.Site().Catalogue().Labels();
    ASSERT_GE(labels.size(), 2U);
    EXPECT_EQ(labels.back().labelName, u"模板"_s);
}

TEST_F(SetupRoad, AWrittenFileIsReadAsTheSameSetup) {
    Open();
    const QString path = folder.Path(u"设置.txt"_s);
    {
        AnsweredPrompts prompts;
        prompts.ExpectSaveFile(u"设置.txt"_s, path);
        ClickOn(*Settings(), u"setupExport"_s);
        prompts.ExpectOpenFiles(u"设置文件、工作簿和 CSV (*.xlsx *.csv *.txt);;所有文件 (*)"_s,
                                {path});
        ClickOn(*Settings(), u"setupImport"_s);
    }
    auto* preview = Settings()->findChild<QDialog*>(u"setupPreview"_s);
    ASSERT_NE(preview, nullptr);
    EXPECT_THAT(preview->findChild<QLabel*>(u"setupPreviewHead"_s)->text().toStdString(),
                HasSubstr("没有变化"));
}

TEST_F(SetupRoad, AFileWithFaultsChangesNothing) {
    QFile file(folder.Path(u"坏.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(u"[标签]\n名称\n甲\n甲\n"_s.toUtf8());
    file.close();
    Open();
    AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(u"设置文件、工作簿和 CSV (*.xlsx *.csv *.txt);;所有文件 (*)"_s,
                            {file.fileName()});
    ClickOn(*Settings(), u"setupImport"_s);
    auto* preview = Settings()->findChild<QDialog*>(u"setupPreview"_s);
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->findChild<QPushButton*>(u"setupPreviewTake"_s), nullptr);
    EXPECT_FALSE(Settings()->HasUnsaved());
}

TEST_F(SetupRoad, TheClientEndsOverUnsavedSettings) {
    Open();
    Settings()->ShowPage(host::SetupWindow::Page::Labels);
    ClickOn(*Settings(), u"labelsAdd"_s);
    client->AskToEnd();
    EXPECT_FALSE(client->Window()->isVisible());
}

TEST_F(SetupRoad, AnotherProjectWhileItIsOpenKeepsWhatWasTyped) {
    Open();
    auto& labels = Page(host::SetupWindow::Page::Labels, u"labels"_s);
    ClickOn(*Settings(), u"labelsAdd"_s);
    Set(labels, labels.Model().rowCount() - 1, 0, u"留着"_s);
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(Settings()->HasUnsaved());
    Save();
    EXPECT_EQ(session.CurrentProject().name, u"二期工程"_s);
}

} // namespace
} // namespace roads
