// The window of records and their versions.
#include "host/ui/rich/VersionWindow.h"

#include "hands/Hands.h"
#include "tests/host/ui/RichSamples.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QTextBrowser>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace host {
namespace {

using namespace Qt::StringLiterals;

const QString kAsksToRestore = u"将该版本恢复为最新版本？当前版本仍会保留。"_s;

class VersionsInSight : public testing::Test {
protected:
    VersionsInSight() {
        source.Add(u"甲"_s, {u"<p>梁底</p>"_s, u"<p>梁底露</p>"_s, u"<p>梁底露筋</p>"_s});
        source.Add(u"乙"_s, {u"<p>独一</p>"_s});
    }
    ~VersionsInSight() override { delete window; }

    void Open() {
        window = new VersionWindow(nullptr, source);
        window->show();
        window->activateWindow();
        Settle();
    }
    /// Everything that is chosen has been read.
    void Settle() {
        QTimer* pause = window->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        support::RunPendingEvents();
        EXPECT_TRUE(support::WaitFor([&] { return pause == nullptr || !pause->isActive(); }));
        support::RunPendingEvents();
    }
    template <class Control> [[nodiscard]] Control& Find(const QString& name) const {
        return *window->findChild<Control*>(name);
    }
    [[nodiscard]] QTableView& Records() const { return Find<QTableView>(u"recordTable"_s); }
    [[nodiscard]] QTableView& Versions() const { return Find<QTableView>(u"versionTable"_s); }
    [[nodiscard]] static QStringList Row(const QTableView& table, int row) {
        QStringList cells;
        for (int column = 0; column < table.model()->columnCount(); ++column) {
            cells << table.model()->index(row, column).data().toString();
        }
        return cells;
    }
    void ClickRow(QTableView& table, int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers,
                          table.visualRect(table.model()->index(row, 0)).center());
        Settle();
    }
    [[nodiscard]] QString Sheet() const {
        return Find<QTextBrowser>(u"compareSheet"_s).toPlainText();
    }
    [[nodiscard]] QString Label(const QString& name) const { return Find<QLabel>(name).text(); }
    [[nodiscard]] QPushButton& RestoreButton() const {
        return Find<QPushButton>(u"versionRestore"_s);
    }

    support::ScriptedVersions source;
    QPointer<VersionWindow> window;
};

TEST_F(VersionsInSight, TheNewestRecordIsChosenAndItsNewestVersionComparedWithTheOneBefore) {
    source.records.pop_back();
    Open();
    EXPECT_EQ(window->windowTitle(), u"记录版本");
    EXPECT_EQ(Row(Records(), 0),
              QStringList({u"1号楼 甲"_s, u"已整改"_s, u"李娜"_s, u"2026-03-05 14:00"_s, u"3"_s}));
    ASSERT_EQ(Versions().model()->rowCount(), 3);
    EXPECT_EQ(Row(Versions(), 0),
              QStringList({u"第3版"_s, u"2026-03-05 14:00:00"_s, u"李娜"_s, u"已整改"_s}));
    EXPECT_EQ(Row(Versions(), 2),
              QStringList({u"第1版"_s, u"2026-03-05 12:00:00"_s, u"张伟"_s, u"未整改"_s}));
    EXPECT_EQ(Sheet(), u"梁底露筋");
    EXPECT_EQ(Label(u"versionHeading"_s), u"第2版（2026-03-05 13:00:00 张伟） → 第3版（2026-03-05 "
                                          u"14:00:00 李娜）\n整改情况：未整改 → 已整改");
    EXPECT_EQ(Label(u"compareSummary"_s), u"修改 1 段");
    EXPECT_EQ(source.calls, QStringList({u"ReadRecords"_s, u"ReadVersions 甲"_s, u"ReadText 甲 2"_s,
                                         u"ReadText 甲 3"_s}));
}

TEST_F(VersionsInSight, RecordsComeLatestFirstAndSortByTheirTimesAndCounts) {
    Open();
    EXPECT_EQ(Row(Records(), 0)[0], u"1号楼 乙");
    Records().horizontalHeader()->setSortIndicator(4, Qt::DescendingOrder);
    EXPECT_EQ(Row(Records(), 0)[0], u"1号楼 甲");
}

TEST_F(VersionsInSight, TheFirstVersionIsAddedWholly) {
    Open();
    EXPECT_EQ(Sheet(), u"独一");
    EXPECT_EQ(Label(u"versionHeading"_s),
              u"首个版本：第101版（2026-03-06 12:00:00 李娜）\n整改情况：已整改");
    EXPECT_EQ(Label(u"compareSummary"_s), u"新增 1 段");
    EXPECT_FALSE(RestoreButton().isEnabled()) << "it is the newest";
}

TEST_F(VersionsInSight, TwoChosenVersionsAreComparedOlderFirst) {
    Open();
    ClickRow(Records(), 1);
    ClickRow(Versions(), 0);
    ClickRow(Versions(), 2, Qt::ControlModifier);
    EXPECT_EQ(Label(u"versionHeading"_s), u"第1版（2026-03-05 12:00:00 张伟） → 第3版（2026-03-05 "
                                          u"14:00:00 李娜）\n整改情况：未整改 → 已整改");
    EXPECT_EQ(Sheet(), u"梁底露筋");
    EXPECT_FALSE(RestoreButton().isEnabled());
    ClickRow(Versions(), 1, Qt::ControlModifier);
    EXPECT_TRUE(Sheet().isEmpty());
    EXPECT_TRUE(Label(u"versionHeading"_s).isEmpty());
}

TEST_F(VersionsInSight, AStateThatStayedIsToldOnce) {
    Open();
    ClickRow(Records(), 1);
    ClickRow(Versions(), 1);
    EXPECT_TRUE(Label(u"versionHeading"_s).endsWith(u"\n整改情况：未整改"_s));
}

TEST_F(VersionsInSight, EveryVersionIsReadOnce) {
    Open();
    ClickRow(Records(), 1);
    ClickRow(Versions(), 1);
    ClickRow(Versions(), 0);
    ClickRow(Versions(), 2);
    EXPECT_EQ(source.calls.filter(u"ReadText 甲"_s).size(), 3);
}

TEST_F(VersionsInSight, TheFilterLooksIntoAllColumnsAndSaysWhenNothingIsLeft) {
    Open();
    auto& filter = Find<QLineEdit>(u"recordFilter"_s);
    filter.setText(u"号楼 甲"_s);
    EXPECT_EQ(Records().model()->rowCount(), 1);
    filter.setText(u"2026-03-06"_s);
    EXPECT_EQ(Records().model()->rowCount(), 1);
    filter.setText(u"没有这个"_s);
    EXPECT_EQ(Records().model()->rowCount(), 0);
    Settle();
    EXPECT_EQ(Versions().model()->rowCount(), 0);
    EXPECT_TRUE(Sheet().isEmpty());
}

TEST_F(VersionsInSight, ARecordIsChosenFromOutsideBeforeAndAfterItIsShown) {
    window = new VersionWindow(nullptr, source);
    window->ShowRecord(u"甲"_s);
    EXPECT_TRUE(source.calls.isEmpty()) << "nothing is read before it is shown";
    window->show();
    Settle();
    EXPECT_EQ(Sheet(), u"梁底露筋");
    window->ShowRecord(u"乙"_s);
    EXPECT_EQ(Sheet(), u"独一");
    Find<QLineEdit>(u"recordFilter"_s).setText(u"乙"_s);
    window->ShowRecord(u"甲"_s);
    EXPECT_EQ(Sheet(), u"梁底露筋");
    EXPECT_TRUE(Find<QLineEdit>(u"recordFilter"_s).text().isEmpty());
}

TEST_F(VersionsInSight, ARecordThatIsNewIsLookedForAndOneThatIsGoneIsTold) {
    Open();
    source.Add(u"丙"_s, {u"<p>新的</p>"_s});
    window->ShowRecord(u"丙"_s);
    EXPECT_EQ(Sheet(), u"新的");
    window->ShowRecord(u"丁"_s);
    EXPECT_EQ(Label(u"versionNotice"_s), u"该记录已不存在，或者其所属工程没有打开。");
    EXPECT_EQ(Sheet(), u"新的");
}

TEST_F(VersionsInSight, ReadAnewWhatIsChosenStaysChosen) {
    Open();
    ClickRow(Records(), 1);
    ClickRow(Versions(), 1);
    source.Add(u"丙"_s, {u"<p>新的</p>"_s});
    source.versions[u"甲"_s].insert(source.versions[u"甲"_s].begin(),
                                    {4, u"王强"_s, u"已整改"_s, support::kNoon + 9000});
    window->Reload();
    Settle();
    EXPECT_EQ(Records().model()->rowCount(), 3);
    EXPECT_EQ(Versions().model()->rowCount(), 4);
    EXPECT_EQ(Versions().selectionModel()->selectedRows().at(0).row(), 2);
    EXPECT_EQ(Sheet(), u"梁底露");
}

TEST_F(VersionsInSight, AVersionIsRestoredAfterAQuestion) {
    Open();
    ClickRow(Records(), 1);
    ClickRow(Versions(), 2);
    ASSERT_TRUE(RestoreButton().isEnabled());
    QStringList restored;
    QObject::connect(window, &VersionWindow::Restored,
                     [&](const QString& record) { restored << record; });
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(kAsksToRestore, false);
    RestoreButton().click();
    EXPECT_TRUE(source.calls.filter(u"Restore"_s).isEmpty());
    prompts.ExpectYesNo(kAsksToRestore, true);
    RestoreButton().click();
    EXPECT_EQ(source.calls.filter(u"Restore"_s), QStringList{u"Restore 甲 1"_s});
    EXPECT_EQ(restored, QStringList{u"甲"_s});
    EXPECT_EQ(Versions().model()->rowCount(), 4);
    EXPECT_EQ(Label(u"versionNotice"_s), u"已恢复为最新版本。");
    EXPECT_EQ(toolkit::WidgetOf(prompts.Parents().at(0)), window);
}

TEST_F(VersionsInSight, ARestoreThatFailsIsToldAndChangesNothing) {
    Open();
    ClickRow(Records(), 1);
    ClickRow(Versions(), 1);
    int restored = 0;
    QObject::connect(window, &VersionWindow::Restored, [&] { ++restored; });
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(kAsksToRestore, true);
    source.nextFault = u"磁盘已满"_s;
    RestoreButton().click();
    EXPECT_EQ(Label(u"versionNotice"_s), u"该版本未恢复，没有任何改动：磁盘已满");
    EXPECT_EQ(restored, 0);
    EXPECT_EQ(Versions().selectionModel()->selectedRows().at(0).row(), 1);
    EXPECT_TRUE(RestoreButton().isEnabled());
}

TEST_F(VersionsInSight, RecordsThatCannotBeReadAreToldAndF5TriesAgain) {
    source.nextFault = u"服务器没有应答。"_s;
    Open();
    EXPECT_EQ(Label(u"versionNotice"_s), u"无法读取记录：服务器没有应答。请稍后按 F5 重试。");
    EXPECT_EQ(Records().model()->rowCount(), 0);
    EXPECT_TRUE(support::WaitFor([this] { return hands::PressKey(window, Qt::Key_F5); }));
    Settle();
    EXPECT_EQ(Records().model()->rowCount(), 2);
    EXPECT_TRUE(Label(u"versionNotice"_s).isEmpty());
    EXPECT_EQ(Sheet(), u"独一");
}

TEST_F(VersionsInSight, VersionsThatCannotBeReadLeaveTheWindowUsable) {
    Open();
    source.nextFault = u"服务器没有应答"_s;
    ClickRow(Records(), 1);
    EXPECT_EQ(Label(u"versionNotice"_s), u"无法读取版本：服务器没有应答。请稍后按 F5 重试。");
    EXPECT_EQ(Versions().model()->rowCount(), 0);
    EXPECT_TRUE(Sheet().isEmpty());
    ClickRow(Records(), 0);
    EXPECT_EQ(Sheet(), u"独一");
    EXPECT_TRUE(Label(u"versionNotice"_s).isEmpty());
}

TEST_F(VersionsInSight, ATextThatCannotBeReadIsToldAndReadAgainLater) {
    Open();
    ClickRow(Records(), 1);
    source.nextFault = u"文件损坏"_s;
    ClickRow(Versions(), 2);
    const QString sentence = u"无法读取版本内容：文件损坏。请稍后按 F5 重试。"_s;
    EXPECT_EQ(Label(u"versionNotice"_s), sentence);
    EXPECT_TRUE(Sheet().isEmpty());
    EXPECT_TRUE(Label(u"versionHeading"_s).startsWith(u"首个版本"_s));
    source.texts[1] = u"<b>"_s.repeated(2000);
    window->Reload();
    EXPECT_EQ(Label(u"versionNotice"_s), u"无法读取版本内容：内容嵌套过深。请稍后按 F5 重试。");
    source.texts[1] = u"<p>好了</p>"_s;
    window->Reload();
    EXPECT_EQ(Sheet(), u"好了");
}

TEST_F(VersionsInSight, ClosedWhileASourceIsAskedItAsksNoMore) {
    for (int call = 0; call < 4; ++call) {
        source.calls.clear();
        window = new VersionWindow(nullptr, source);
        int left = call;
        std::function<void()> deed = [&] {
            if (left-- == 0) {
                delete window;
            } else {
                source.happens = deed;
            }
        };
        source.happens = deed;
        window->ShowRecord(u"甲"_s);
        window->show();
        EXPECT_TRUE(support::WaitFor([this] { return window.isNull(); })) << call;
        support::RunPendingEvents();
        EXPECT_EQ(source.calls.size(), call + 1);
    }
}

TEST_F(VersionsInSight, ClosedByAPersonWhileASourceIsAskedItAsksNoMore) {
    window = new VersionWindow(nullptr, source);
    source.happens = [this] { window->close(); };
    window->show();
    EXPECT_TRUE(support::WaitFor([this] { return window.isNull(); }));
    EXPECT_EQ(source.calls, QStringList{u"ReadRecords"_s});
}

TEST_F(VersionsInSight, ClosedDuringTheQuestionOrTheRestoreItDoesNothingMore) {
    Open();
    ClickRow(Records(), 1);
    ClickRow(Versions(), 1);
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(kAsksToRestore, true);
    prompts.Meanwhile([this] { delete window; });
    window->findChild<QPushButton*>(u"versionRestore"_s)->click();
    EXPECT_TRUE(source.calls.filter(u"Restore"_s).isEmpty());
    Open();
    ClickRow(Records(), 1);
    ClickRow(Versions(), 1);
    source.calls.clear();
    prompts.ExpectYesNo(kAsksToRestore, true);
    source.happens = [this] { delete window; };
    window->findChild<QPushButton*>(u"versionRestore"_s)->click();
    EXPECT_EQ(source.calls, QStringList{u"Restore 甲 2"_s});
}

TEST_F(VersionsInSight, WhatIsChosenWhileASourceIsAskedIsReadAfterwardsNotWithin) {
    Open();
    int depth = 0;
    source.happens = [&] {
        ++depth;
        window->ShowRecord(u"乙"_s);
        window->Reload();
        EXPECT_EQ(source.calls.last(), u"ReadVersions 甲");
        EXPECT_FALSE(RestoreButton().isEnabled());
    };
    window->ShowRecord(u"甲"_s);
    Settle();
    EXPECT_EQ(depth, 1);
    EXPECT_EQ(Sheet(), u"独一");
    EXPECT_EQ(Records().selectionModel()->selectedRows().at(0).data().toString(), u"1号楼 乙");
}

TEST_F(VersionsInSight, AThousandRecordsAreListedFilteredAndWalkedThrough) {
    for (int i = 0; i < 1000; ++i) {
        source.Add(u"房间%1"_s.arg(i), {u"<p>旧的文字</p>"_s, u"<p>新的文字%1</p>"_s.arg(i)});
    }
    Open();
    EXPECT_EQ(Records().model()->rowCount(), 1002);
    Records().setFocus();
    source.calls.clear();
    for (int i = 0; i < 20; ++i) {
        QTest::keyClick(&Records(), Qt::Key_Down);
    }
    Settle();
    EXPECT_EQ(Sheet(), u"旧新的文字979");
    EXPECT_LE(source.calls.filter(u"ReadVersions"_s).size(), 5) << "keys run on without reading";
    Find<QLineEdit>(u"recordFilter"_s).setText(u"房间979"_s);
    EXPECT_EQ(Records().model()->rowCount(), 1);
    window->Reload();
    EXPECT_EQ(Records().selectionModel()->selectedRows().size(), 1);
}

TEST_F(VersionsInSight, ReadAnewTheTableOfRecordsStaysWhereItWas) {
    for (int i = 0; i < 300; ++i) {
        source.Add(u"房间%1"_s.arg(i), {u"<p>旧</p>"_s});
    }
    Open();
    Records().verticalScrollBar()->setValue(100);
    window->Reload();
    EXPECT_EQ(Records().verticalScrollBar()->value(), 100);
}

TEST_F(VersionsInSight, ThereIsAHintWhereThereIsNothing) {
    source.records.clear();
    Open();
    EXPECT_EQ(Records().model()->rowCount(), 0);
    EXPECT_EQ(Versions().model()->rowCount(), 0);
    EXPECT_TRUE(Label(u"versionHeading"_s).isEmpty());
    EXPECT_FALSE(RestoreButton().isEnabled());
}

TEST_F(VersionsInSight, TheKeyboardAloneReachesEverything) {
    Open();
    std::set<QString> reached;
    for (int i = 0; i < 30; ++i) {
        QWidget* focus = window->focusWidget();
        ASSERT_NE(focus, nullptr);
        reached.insert(focus->objectName());
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    for (const QString& name : {u"recordFilter"_s, u"recordTable"_s, u"versionTable"_s,
                                u"compareSheet"_s, u"versionClose"_s}) {
        EXPECT_TRUE(reached.contains(name)) << name.toStdString();
    }
    QTest::keyClick(window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window->focusWidget(), &Find<QLineEdit>(u"recordFilter"_s));
    Records().setFocus();
    QTest::keyClick(&Records(), Qt::Key_Down);
    Settle();
    Versions().setFocus();
    QTest::keyClick(&Versions(), Qt::Key_Down);
    Settle();
    EXPECT_TRUE(Label(u"versionHeading"_s).startsWith(u"第1版（2026-03-05 12:00"_s));
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(kAsksToRestore, false);
    QTest::keyClick(&Versions(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(support::WaitFor([&] { return prompts.AllAnswered(); }));
    QTest::keyClick(&Versions(), Qt::Key_Escape);
    EXPECT_TRUE(support::WaitFor([this] { return window.isNull(); }));
}

TEST_F(VersionsInSight, TheWindowLiesOnItsScreen) {
    Open();
    const QRect screen = window->screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(window->geometry()))
        << window->width() << " x " << window->height();
}

} // namespace
} // namespace host
