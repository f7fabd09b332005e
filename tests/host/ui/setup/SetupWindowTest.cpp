#include "host/ui/setup/SetupWindow.h"

#include "host/ui/HintTable.h"
#include "host/ui/setup/GridPage.h"
#include "host/ui/setup/SetupListPage.h"
#include "host/ui/setup/SetupLists.h"
#include "tests/site/SetupSite.h"
#include "tests/support/AnsweredPrompts.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace host {
namespace {

using sitetest::SetupSite;
using support::AnsweredPrompts;
using testing::ElementsAre;
using testing::HasSubstr;
using namespace Qt::StringLiterals;

/// The client's desk without a client: a real site, scripted files.
class SiteDesk final : public ISetupDesk {
public:
    explicit SiteDesk(SetupSite& setupSite) : m_site(setupSite) {}

    std::optional<site::SetupState> Read() override {
        return fails ? std::nullopt : std::optional(m_site.engine.Setup().Read({}));
    }
    std::optional<site::SetupGrid> ReadGrid(qint32 ppid) override {
        return fails ? std::nullopt
                     : std::optional(m_site.engine.Setup().Read({ppid}).grids.front());
    }
    std::optional<site::SetupOutcome> Save(const site::SetupState& seen,
                                           const site::SetupState& wanted) override {
        return fails ? std::nullopt : std::optional(m_site.Apply(seen, wanted));
    }
    std::optional<QString> Uses(site::SetupList list, qint32 id) override {
        return fails ? std::nullopt : std::optional(m_site.engine.Setup().UsesOf(list, id));
    }
    std::optional<QString> FloorUses(qint32 ppid, const QString& floor) override {
        return m_site.engine.Setup().UsesOfFloor(ppid, floor);
    }
    std::optional<QString> CrossingUses(const QString& positionKey) override {
        return m_site.engine.Setup().UsesOfCrossing(positionKey);
    }
    SetupReading ReadFile(const QString& path, const site::SetupState& draft) override {
        files << path;
        SetupReading answer = reading;
        answer.wanted = draft;
        answer.wanted.labels.push_back({0, u"来自文件"_s});
        return answer;
    }
    SetupReading ReadText(const QString& text, site::SetupList list, const QString& project,
                          const site::SetupState& draft) override {
        files << u"%1|%2|%3"_s.arg(text, site::NameOf(list), project);
        return ReadFile({}, draft);
    }
    QString WriteFile(const QString& path) override {
        files << path;
        return writeFault;
    }
    std::vector<SetupDrawing> Drawings(qint32) override { return drawings; }
    QString RemoveDrawing(qint32, qint32 drawingId) override {
        std::erase_if(drawings, [&](const SetupDrawing& one) { return one.id == drawingId; });
        return removeFault;
    }
    void ImportDrawings(qint32 ppid, const QStringList& paths) override {
        files << QString::number(ppid) + paths.join(u' ');
    }

    bool fails = false;
    QStringList files;
    SetupReading reading;
    QString writeFault;
    QString removeFault;
    std::vector<SetupDrawing> drawings{{1, u"一层"_s}, {2, u"二层"_s}};

private:
    SetupSite& m_site;
};

struct OpenSettings {
    OpenSettings() { window.show(); }

    [[nodiscard]] SetupListPage& Page(SetupWindow::Page page, const QString& name) {
        window.ShowPage(page);
        auto* table = window.findChild<HintTable*>(name + u"Table"_s);
        return *qobject_cast<SetupListPage*>(table->parentWidget());
    }
    [[nodiscard]] SetupListPage& Labels() { return Page(SetupWindow::Page::Labels, u"labels"_s); }
    void Set(SetupListPage& page, int row, int column, const QString& text) {
        page.Model().setData(page.Model().index(row, column), text, Qt::EditRole);
    }
    void Check(SetupListPage& page, int row, int column, bool on) {
        page.Model().setData(page.Model().index(row, column), on ? Qt::Checked : Qt::Unchecked,
                             Qt::CheckStateRole);
    }
    void Click(const QString& name) {
        QTest::mouseClick(window.findChild<QPushButton*>(name), Qt::LeftButton);
    }
    [[nodiscard]] QString Text(SetupListPage& page, int row, int column) {
        return page.Model().index(row, column).data().toString();
    }
    void Type(const QString& field, const QString& text) {
        window.findChild<QLineEdit*>(field)->setText(text);
    }
    [[nodiscard]] GridPage& Grid() {
        window.ShowPage(SetupWindow::Page::Grid);
        return *window.findChild<GridPage*>();
    }
    [[nodiscard]] int State(int row, int column) {
        return Grid().Matrix().index(row, column).data(Qt::CheckStateRole).toInt();
    }

    SetupSite site;
    SiteDesk desk{site};
    SetupWindow window{nullptr, desk};
};

TEST(SetupWindow, ShowsWhatTheSiteHas) {
    OpenSettings open;
    SetupListPage& people = open.Page(SetupWindow::Page::People, u"people"_s);
    EXPECT_EQ(open.Text(people, 0, 0), u"li"_s);
    EXPECT_EQ(open.Text(people, 0, 1), u"管理员"_s);
    EXPECT_EQ(open.Text(people, 1, 1), u"自定义"_s);
    SetupListPage& worksets = open.Page(SetupWindow::Page::Worksets, u"worksets"_s);
    EXPECT_EQ(open.Text(worksets, 0, 1), u"滨江花园、科技大厦"_s);
    SetupListPage& marks = open.Page(SetupWindow::Page::Marks, u"marks"_s);
    EXPECT_EQ(open.Text(marks, 0, 1), u"#FF0000"_s);
    SetupListPage& projects = open.Page(SetupWindow::Page::Projects, u"projects"_s);
    EXPECT_EQ(open.Text(projects, 1, 1), u"钢筋"_s);
    EXPECT_FALSE(open.window.HasUnsaved());
    EXPECT_FALSE(open.window.findChild<QPushButton*>(u"setupSave"_s)->isEnabled());
}

TEST(SetupWindow, WhatIsTypedIsSavedTogether) {
    OpenSettings open;
    SetupListPage& labels = open.Labels();
    open.Set(labels, 0, 0, u"  外墙 "_s);
    SetupListPage& people = open.Page(SetupWindow::Page::People, u"people"_s);
    open.Click(u"peopleAdd"_s);
    open.Set(people, 2, 0, u"zhao"_s);
    open.Set(people, 2, 1, u"工程师"_s);
    open.Check(people, 2, 2, false);
    int saved = 0;
    QObject::connect(&open.window, &SetupWindow::Saved, [&] { ++saved; });
    open.Click(u"setupSave"_s);
    EXPECT_EQ(saved, 1);
    EXPECT_FALSE(open.window.HasUnsaved());
    const site::SetupState state = open.site.Read();
    EXPECT_EQ(state.labels[0].name, u"外墙"_s);
    EXPECT_THAT(state.people[2].rights, ElementsAre(5, 22, 38));
}

TEST(SetupWindow, WhatStillStandsInACellIsSavedToo) {
    OpenSettings open;
    SetupListPage& labels = open.Labels();
    open.Click(u"labelsAdd"_s);
    auto* editor = labels.Table().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText(u"没有确认"_s);
    open.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&open.window));
    editor->setFocus();
    QTest::keyClick(open.window.windowHandle(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !open.window.HasUnsaved(); }));
    EXPECT_EQ(open.site.Read().labels.back().name, u"没有确认"_s);
}

TEST(SetupWindow, WhatIsTypedTakesThePlaceOfTheProposedName) {
    OpenSettings open;
    SetupListPage& labels = open.Labels();
    open.Click(u"labelsAdd"_s);
    auto* editor = labels.Table().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->selectedText(), editor->text());
}

TEST(SetupWindow, TheDrawingsAreThoseOfTheProjectThatIsOpen) {
    OpenSettings open;
    open.window.ShowProject(u"科技大厦"_s);
    open.window.ShowPage(SetupWindow::Page::Drawings);
    EXPECT_EQ(open.window.findChild<QComboBox*>(u"drawingsProject"_s)->currentText(),
              u"科技大厦"_s);
}

TEST(SetupWindow, FaultsAreShownInTheirRowAndNothingIsSaved) {
    OpenSettings open;
    SetupListPage& labels = open.Labels();
    open.Set(labels, 0, 0, u"裂缝"_s);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return !labels.Model().index(1, 0).data(SetupListModel::FaultRole).isNull(); }));
    EXPECT_THAT(open.window.findChild<QLabel*>(u"setupNote"_s)->text().toStdString(),
                HasSubstr("“裂缝”重复"));
    AnsweredPrompts prompts;
    prompts.ExpectMessage(u"没有保存：\n标签“裂缝”重复了，名称不能相同。"_s);
    open.Click(u"setupSave"_s);
    EXPECT_EQ(open.site.Read().labels[0].name, u"墙面"_s);
    EXPECT_TRUE(open.window.HasUnsaved());
}

TEST(SetupWindow, WhatIsUsedIsToldAndStays) {
    OpenSettings open;
    SetupListPage& labels = open.Labels();
    labels.SelectRow(0);
    AnsweredPrompts prompts;
    prompts.ExpectMessage(u"标签“墙面”正在使用（照片 1 张），不能删除。"_s);
    open.Click(u"labelsRemove"_s);
    EXPECT_EQ(labels.Model().rowCount(), 2);
    SetupListPage& projects = open.Page(SetupWindow::Page::Projects, u"projects"_s);
    projects.SelectRow(1);
    prompts.ExpectMessage(u"工程“科技大厦”正在使用（照片 1 张），不能删除。可以改为归档。"_s);
    open.Click(u"projectsRemove"_s);
}

TEST(SetupWindow, WhatIsUnusedIsToldToBeAndRemoved) {
    OpenSettings open;
    SetupListPage& labels = open.Labels();
    labels.SelectRow(1);
    AnsweredPrompts prompts;
    const QString question = u"标签“裂缝”没有被使用，可以删除。删除它吗？保存后生效。"_s;
    prompts.ExpectYesNo(question, false);
    open.Click(u"labelsRemove"_s);
    EXPECT_EQ(labels.Model().rowCount(), 2);
    prompts.ExpectYesNo(question, true);
    QTest::keyClick(&labels.Table(), Qt::Key_Delete);
    EXPECT_EQ(labels.Model().rowCount(), 1);
    open.Click(u"setupSave"_s);
    EXPECT_EQ(open.site.Read().labels.size(), 1U);
}

TEST(SetupWindow, NothingIsRemovedWhoseUseCouldNotBeFoundOut) {
    OpenSettings open;
    SetupListPage& labels = open.Labels();
    labels.SelectRow(1);
    open.desk.fails = true;
    open.Click(u"labelsRemove"_s);
    EXPECT_EQ(labels.Model().rowCount(), 2);
}

TEST(SetupWindow, AFailedSaveKeepsWhatWasTyped) {
    OpenSettings open;
    open.Set(open.Labels(), 0, 0, u"外墙"_s);
    open.desk.fails = true;
    open.Click(u"setupSave"_s);
    EXPECT_TRUE(open.window.HasUnsaved());
    EXPECT_EQ(open.Text(open.Labels(), 0, 0), u"外墙"_s);
}

TEST(SetupWindow, ClosingAsksForWhatIsUnsaved) {
    OpenSettings open;
    open.Set(open.Labels(), 0, 0, u"外墙"_s);
    AnsweredPrompts prompts;
    prompts.ExpectNoYes(u"有未保存的修改。不保存就关闭吗？"_s, false);
    QTest::keyClick(&open.window, Qt::Key_Escape);
    EXPECT_TRUE(open.window.isVisible());
    prompts.ExpectNoYes(u"有未保存的修改。不保存就关闭吗？"_s, true);
    open.Click(u"setupClose"_s);
    EXPECT_FALSE(open.window.isVisible());
    EXPECT_EQ(open.site.Read().labels[0].name, u"墙面"_s);
}

TEST(SetupWindow, OthersChangesOfAnotherListArePassedByAndOfTheSameAreShown) {
    OpenSettings open;
    SetupListPage& labels = open.Labels();
    SetupListPage& marks = open.Page(SetupWindow::Page::Marks, u"marks"_s);
    open.Set(labels, 0, 0, u"外墙"_s);
    open.Set(marks, 0, 0, u"我的"_s);
    open.site.Do([](site::SetupState& state) { state.marks[0].name = u"他的"_s; });
    AnsweredPrompts prompts;
    prompts.ExpectMessage(
        u"没有保存：“标识”刚被别人修改过，现在显示的是最新内容，您在那里的修改没有采用。"
        "别的修改都还在，请检查后再保存。"_s);
    open.Click(u"setupSave"_s);
    EXPECT_EQ(open.Text(marks, 0, 0), u"他的"_s);
    EXPECT_EQ(open.Text(labels, 0, 0), u"外墙"_s);
    open.Click(u"setupSave"_s);
    EXPECT_EQ(open.site.Read().labels[0].name, u"外墙"_s);
    EXPECT_EQ(open.site.Read().marks[0].name, u"他的"_s);
}

TEST(SetupWindow, MarksAreOrderedAndColouredAndKeepTheirNumbers) {
    OpenSettings open;
    SetupListPage& marks = open.Page(SetupWindow::Page::Marks, u"marks"_s);
    marks.SelectRow(1);
    QTest::keyClick(&marks.Table(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(marks.CurrentRow(), 0);
    open.Set(marks, 0, 1, u"#123456"_s);
    open.Set(marks, 0, 1, u"no colour"_s);
    open.Click(u"setupSave"_s);
    const auto saved = open.site.Read().marks;
    EXPECT_EQ(saved[0], (site::SetupMark{2, u"安全"_s, 0x563412}));
    EXPECT_EQ(open.Text(marks, 0, 2), u"2"_s);
}

TEST(SetupWindow, ARenamedProjectStaysInItsWorksetsAndKeepsItsFloors) {
    OpenSettings open;
    SetupListPage& projects = open.Page(SetupWindow::Page::Projects, u"projects"_s);
    open.Set(projects, 0, 0, u"滨江花园一期"_s);
    open.Check(projects, 1, 2, true);
    SetupListPage& worksets = open.Page(SetupWindow::Page::Worksets, u"worksets"_s);
    EXPECT_EQ(open.Text(worksets, 0, 1), u"滨江花园一期、科技大厦"_s);
    EXPECT_EQ(open.Grid().Floors().Model().rowCount(), 3);
    open.Click(u"setupSave"_s);
    EXPECT_EQ(open.site.engine.Catalogue().Project(open.site.ppid).name, u"滨江花园一期"_s);
    EXPECT_TRUE(open.site.engine.Catalogue().Project(open.site.other).archived);
}

TEST(SetupGrid, FloorsAndAxesOfANewProjectAreTypedAndSavedWithIt) {
    OpenSettings open;
    SetupListPage& projects = open.Page(SetupWindow::Page::Projects, u"projects"_s);
    open.Click(u"projectsAdd"_s);
    open.Set(projects, 2, 0, u"新校区"_s);
    GridPage& grid = open.Grid();
    grid.ShowProject(u"新校区"_s);
    EXPECT_EQ(grid.Floors().Model().rowCount(), 0);
    EXPECT_FALSE(open.window.findChild<QLineEdit*>(u"axesX"_s)->isEnabled());
    open.Click(u"floorsAdd"_s);
    open.Set(grid.Floors(), 0, 0, u"-1"_s);
    open.Click(u"floorsAdd"_s);
    EXPECT_EQ(open.Text(grid.Floors(), 1, 0), u"1"_s);
    open.window.findChild<QLineEdit*>(u"axesX"_s)->setText(u"1-3"_s);
    open.window.findChild<QLineEdit*>(u"axesY"_s)->setText(u"A、B"_s);
    QTest::mouseClick(open.window.findChild<QWidget*>(u"axesAllFloors"_s), Qt::LeftButton, {},
                      QPoint(8, 8));
    open.Click(u"axesCross"_s);
    EXPECT_THAT(grid.Matrix().AxesX(), ElementsAre(u"1"_s, u"2"_s, u"3"_s));
    open.Click(u"setupSave"_s);
    const qint32 ppid = open.site.engine.Setup().Read({}).projects.back().ppid;
    EXPECT_THAT(open.site.engine.Catalogue().Floors(ppid), ElementsAre(u"-1"_s, u"1"_s));
    EXPECT_EQ(open.site.engine.Setup().Read({ppid}).grids[0].crossings.size(), 12U);
}

TEST(SetupGrid, AxesThatCrossNowhereAndOddRangesAreTold) {
    OpenSettings open;
    (void)open.Grid();
    const auto note = [&](const QString& x, const QString& y) {
        open.window.findChild<QLineEdit*>(u"axesX"_s)->setText(x);
        open.window.findChild<QLineEdit*>(u"axesY"_s)->setText(y);
        open.Click(u"axesCross"_s);
        return open.window.findChild<QLabel*>(u"axesNote"_s)->text().toStdString();
    };
    EXPECT_THAT(note(u"1-3"_s, {}), HasSubstr("同时写X轴和Y轴"));
    EXPECT_NE(note(u"9-1"_s, u"A"_s), "");
    EXPECT_TRUE(open.window.HasUnsaved()) << "what stands in the fields";
    open.Type(u"axesX"_s, {});
    EXPECT_FALSE(open.window.findChild<QLabel*>(u"axesNote"_s)->isVisible());
    open.Type(u"axesY"_s, {});
    EXPECT_FALSE(open.window.HasUnsaved());
}

TEST(SetupGrid, AxesThatStillStandInTheirFieldsAreSavedTooOrKeepAllFromIt) {
    OpenSettings open;
    (void)open.Grid();
    open.Type(u"axesX"_s, u"7"_s);
    open.window.ShowPage(SetupWindow::Page::Labels);
    open.Click(u"setupSave"_s);
    EXPECT_TRUE(open.window.HasUnsaved());
    EXPECT_TRUE(open.window.findChild<QLabel*>(u"axesNote"_s)->isVisible());
    open.Type(u"axesY"_s, u"Z"_s);
    open.Click(u"setupSave"_s);
    EXPECT_FALSE(open.window.HasUnsaved());
    EXPECT_TRUE(open.Grid().Matrix().AxesX().contains(u"7"_s));
}

TEST(SetupGrid, TheFirstFloorIsChosenForItsAxes) {
    OpenSettings open;
    SetupListPage& projects = open.Page(SetupWindow::Page::Projects, u"projects"_s);
    open.Click(u"projectsAdd"_s);
    open.Set(projects, 2, 0, u"新校区"_s);
    GridPage& grid = open.Grid();
    grid.ShowProject(u"新校区"_s);
    grid.Floors().Model().AddRow();
    grid.ReadProjects();
    EXPECT_EQ(grid.Floors().CurrentRow(), 0);
    EXPECT_TRUE(open.window.findChild<QLineEdit*>(u"axesX"_s)->isEnabled());
}

TEST(SetupGrid, ABoxMakesAndEndsACrossingAndAUsedOneIsOnlyNoLongerInTheModel) {
    OpenSettings open;
    GridPage& grid = open.Grid();
    grid.ShowFloor(0);
    ASSERT_THAT(grid.Matrix().AxesX(), ElementsAre(u"1"_s, u"2"_s));
    const auto set = [&](int column, bool on) {
        grid.Matrix().setData(grid.Matrix().index(0, column), on ? Qt::Checked : Qt::Unchecked,
                              Qt::CheckStateRole);
    };
    set(0, false); // a photo hangs there
    set(1, false);
    EXPECT_EQ(open.State(0, 0), Qt::PartiallyChecked);
    EXPECT_EQ(open.State(0, 1), Qt::Unchecked);
    open.Click(u"setupSave"_s);
    auto crossings = open.site.Read().grids[0].crossings;
    ASSERT_EQ(crossings.size(), 2U);
    EXPECT_FALSE(crossings[0].valid);
    set(0, true);
    open.Click(u"setupSave"_s);
    EXPECT_TRUE(open.site.Read().grids[0].crossings[0].valid);
    EXPECT_EQ(open.site.Read().grids[0].crossings[0].positionKey, open.site.keys[u"11A"_s]);
}

TEST(SetupGrid, AnAxisGoesFromItsFloorAloneAndAFloorIsCopied) {
    OpenSettings open;
    GridPage& grid = open.Grid();
    grid.ShowFloor(0);
    open.Click(u"axesCopy"_s);
    grid.ShowFloor(2);
    EXPECT_THAT(grid.Matrix().AxesX(), ElementsAre(u"1"_s, u"2"_s));
    grid.Matrix().RemoveAxisX(u"1"_s);
    EXPECT_THAT(grid.Matrix().AxesX(), ElementsAre(u"2"_s));
    grid.Matrix().RemoveAxisY(u"A"_s);
    EXPECT_THAT(grid.Matrix().AxesX(), testing::IsEmpty());
    grid.ShowFloor(1);
    EXPECT_THAT(grid.Matrix().AxesX(), ElementsAre(u"1"_s, u"2"_s));
}

TEST(SetupWindow, TheColourOfAMarkIsChosen) {
    OpenSettings open;
    SetupListPage& marks = open.Page(SetupWindow::Page::Marks, u"marks"_s);
    marks.SelectRow(0);
    open.Click(u"marksColor"_s);
    auto* dialog = open.window.findChild<QColorDialog*>(u"markColor"_s);
    ASSERT_NE(dialog, nullptr);
    dialog->setCurrentColor(QColor(0x12, 0x34, 0x56));
    dialog->accept();
    EXPECT_EQ(open.Text(marks, 0, 1), u"#123456"_s);
}

TEST(SetupGrid, FloorsAreRenamedOrderedAndRemovedIfUnused) {
    OpenSettings open;
    GridPage& grid = open.Grid();
    open.Set(grid.Floors(), 0, 0, u"首层"_s);
    grid.Floors().SelectRow(2);
    QTest::keyClick(&grid.Floors().Table(), Qt::Key_Up, Qt::AltModifier);
    AnsweredPrompts prompts;
    prompts.ExpectYesNo(u"楼层“10”没有被使用，可以删除。删除它吗？保存后生效。"_s, true);
    open.Click(u"floorsRemove"_s);
    grid.Floors().SelectRow(0);
    prompts.ExpectMessage(u"楼层“首层”正在使用（照片 1 张），不能删除。"_s);
    open.Click(u"floorsRemove"_s);
    open.Click(u"setupSave"_s);
    EXPECT_EQ(open.site.FloorsText(), u"首层 2"_s);
    EXPECT_EQ(open.site.Row(open.site.photo).floor, u"首层"_s);
}

TEST(SetupFiles, AFileIsPreviewedThenTakenIntoTheDraft) {
    OpenSettings open;
    open.desk.reading.changes = {u"新增标签“来自文件”"_s};
    AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(u"设置文件、工作簿和 CSV (*.xlsx *.csv *.txt);;所有文件 (*)"_s,
                            {u"/x/设置.xlsx"_s});
    open.Click(u"setupImport"_s);
    auto* preview = open.window.findChild<QDialog*>(u"setupPreview"_s);
    ASSERT_NE(preview, nullptr);
    EXPECT_THAT(preview->findChild<QLabel*>(u"setupPreviewHead"_s)->text().toStdString(),
                HasSubstr("“设置.xlsx” 将有 1 处变化"));
    EXPECT_FALSE(open.window.HasUnsaved());
    QTest::mouseClick(preview->findChild<QPushButton*>(u"setupPreviewTake"_s), Qt::LeftButton);
    EXPECT_TRUE(open.window.HasUnsaved());
    EXPECT_EQ(open.Labels().Model().rowCount(), 3);
    open.Click(u"setupSave"_s);
    EXPECT_EQ(open.site.Read().labels.back().name, u"来自文件"_s);
}

TEST(SetupFiles, WithFaultsNothingCanBeTakenAndAllOfThemAreCopied) {
    OpenSettings open;
    for (int line = 1; line <= 3000; ++line) {
        open.desk.reading.faults << u"楼层 第 %1 行：重复"_s.arg(line);
    }
    QApplication::clipboard()->setText(u"楼层\n1"_s);
    (void)open.Grid();
    open.Click(u"floorsPaste"_s);
    EXPECT_EQ(open.desk.files.value(0), u"楼层\n1|楼层|滨江花园"_s);
    auto* preview = open.window.findChild<QDialog*>(u"setupPreview"_s);
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->findChild<QPushButton*>(u"setupPreviewTake"_s), nullptr);
    QTest::mouseClick(preview->findChild<QPushButton*>(u"setupPreviewCopy"_s), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 2999);
    QTest::keyClick(preview, Qt::Key_Escape);
    EXPECT_FALSE(open.window.HasUnsaved());
}

TEST(SetupFiles, AnEmptyClipboardIsTold) {
    OpenSettings open;
    QApplication::clipboard()->clear();
    (void)open.Labels();
    AnsweredPrompts prompts;
    prompts.ExpectMessage(
        u"剪贴板里没有表格。请在表格程序中选中带列名的区域并复制，再到这里粘贴。"_s);
    open.Click(u"labelsPaste"_s);
}

TEST(SetupFiles, AFailedExportIsTold) {
    OpenSettings open;
    open.desk.writeFault = u"没有写入"_s;
    AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"设置.txt"_s, u"/x/设置.txt"_s);
    prompts.ExpectMessage(u"没有写入"_s);
    open.Click(u"setupExport"_s);
}

TEST(SetupDrawings, AreListedImportedAndRemovedAtOnce) {
    OpenSettings open;
    open.window.ShowPage(SetupWindow::Page::Drawings);
    auto* list = open.window.findChild<QListWidget*>(u"drawingsList"_s);
    ASSERT_EQ(list->count(), 2);
    AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(u"PDF 图纸 (*.pdf)"_s, {u"/x/a.pdf"_s});
    open.Click(u"drawingsImport"_s);
    EXPECT_EQ(open.desk.files.value(0), u"%1/x/a.pdf"_s.arg(open.site.ppid));
    list->setCurrentRow(1);
    prompts.ExpectYesNo(u"把图纸“二层”放入回收站吗？30 天内可以恢复。"_s, true);
    open.Click(u"drawingsRemove"_s);
    EXPECT_EQ(list->count(), 1);
    open.desk.removeFault = u"图纸“一层”上还有 2 个检查点，没有删除。"_s;
    list->setCurrentRow(0);
    prompts.ExpectYesNo(u"把图纸“一层”放入回收站吗？30 天内可以恢复。"_s, true);
    prompts.ExpectMessage(open.desk.removeFault);
    open.Click(u"drawingsRemove"_s);
    EXPECT_FALSE(open.window.HasUnsaved());
}

TEST(SetupColors, AreWrittenAsPeopleKnowThem) {
    EXPECT_EQ(ColorText(0x0000FF), u"#FF0000"_s);
    EXPECT_EQ(ColorOfText(u"ff8000"_s), 0x0080FF);
    EXPECT_EQ(ColorOfText(u"#12345"_s), -1);
    EXPECT_EQ(FreeName(u"新"_s, {u"新"_s, u"新 2"_s}), u"新 3"_s);
}

} // namespace
} // namespace host
