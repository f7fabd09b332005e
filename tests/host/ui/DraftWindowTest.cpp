// The window of drafts.
#include "host/ui/rich/DraftWindow.h"

#include "hands/Hands.h"
#include "host/ui/HintTable.h"
#include "tests/host/ui/RichSamples.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/ManualClock.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace host {
namespace {

using namespace Qt::StringLiterals;

const QString kAsksToBringBack = u"将该草稿恢复为最新版本？"_s;
const QString kAsksToRemove = u"确认删除该草稿？删除后无法恢复。"_s;

class DraftsInSight : public testing::Test {
protected:
    DraftsInSight() {
        source.Add(u"甲"_s, u"<p>甲的<b>内容</b></p>"_s);
        source.Add(u"乙"_s, u"<p>乙的内容</p>"_s, true);
        source.Add(u"丙"_s, u"<p>丙的内容</p>"_s);
    }
    ~DraftsInSight() override { delete window; }

    void Open() {
        window = new DraftWindow(nullptr, source);
        window->show();
        window->activateWindow();
        Wait();
    }
    void Wait() {
        QTimer* pause = window->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        support::RunPendingEvents();
        EXPECT_TRUE(support::WaitFor([&] { return pause == nullptr || !pause->isActive(); }));
        support::RunPendingEvents();
    }
    template <class Control> [[nodiscard]] Control& Find(const QString& name) const {
        return *window->findChild<Control*>(name);
    }
    [[nodiscard]] HintTable& Table() const { return Find<HintTable>(u"draftTable"_s); }
    [[nodiscard]] QString Cell(int row, int column) const {
        return Table().model()->index(row, column).data().toString();
    }
    void Choose(int row) {
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, {},
                          Table().visualRect(Table().model()->index(row, 0)).center());
        Wait();
    }
    [[nodiscard]] QString Preview() const {
        const auto& preview = Find<QTextEdit>(u"draftPreview"_s);
        return preview.isVisible() ? preview.toPlainText()
                                   : u'<' + Find<QLabel>(u"draftPreviewHint"_s).text() + u'>';
    }
    [[nodiscard]] QString Notice() const { return Find<QLabel>(u"draftNotice"_s).text(); }
    void Press(const QString& name) const { Find<QPushButton>(name).click(); }

    support::ManualClock clock{support::kNoon + 86400};
    support::ScriptedDrafts source;
    QPointer<DraftWindow> window;
};

TEST_F(DraftsInSight, ListsTheDraftsAndShowsTheFirst) {
    Open();
    EXPECT_EQ(window->windowTitle(), u"草稿箱");
    ASSERT_EQ(Table().model()->rowCount(), 3);
    EXPECT_EQ(Cell(0, 0), u"1号楼 甲");
    EXPECT_EQ(Cell(0, 1), u"未整改");
    EXPECT_EQ(Cell(0, 2), u"2026-03-05 12:00");
    EXPECT_EQ(Cell(0, 3), u"摘要 甲");
    EXPECT_EQ(Cell(0, 4), u"29 天");
    EXPECT_EQ(Preview(), u"甲的内容");
    EXPECT_TRUE(Find<QTextEdit>(u"draftPreview"_s).isReadOnly());
    Choose(1);
    EXPECT_EQ(Preview(), u"乙的内容");
    EXPECT_EQ(source.calls, QStringList({u"ReadDrafts"_s, u"ReadText 甲"_s, u"ReadText 乙"_s}));
}

TEST_F(DraftsInSight, EveryColumnSaysWhatItHolds) {
    Open();
    QStringList captions;
    for (int column = 0; column < Table().model()->columnCount(); ++column) {
        captions << Table().model()->headerData(column, Qt::Horizontal).toString();
    }
    EXPECT_EQ(captions,
              QStringList({u"位置"_s, u"整改情况"_s, u"修改时间"_s, u"摘要"_s, u"剩余天数"_s}));
}

TEST_F(DraftsInSight, WithoutDraftsThereIsAHint) {
    source.drafts.clear();
    Open();
    EXPECT_EQ(Table().model()->rowCount(), 0);
    EXPECT_EQ(Preview(), u"<>");
    EXPECT_FALSE(Find<QPushButton>(u"draftBringBack"_s).isEnabled());
    EXPECT_FALSE(Find<QPushButton>(u"draftRemove"_s).isEnabled());
}

TEST_F(DraftsInSight, ADraftIsBroughtBackAfterAQuestionAndTheNextIsChosen) {
    Open();
    QStringList back;
    QObject::connect(window, &DraftWindow::BroughtBack,
                     [&](const QString& draft) { back << draft; });
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(kAsksToBringBack, false);
    Press(u"draftBringBack"_s);
    EXPECT_TRUE(source.calls.filter(u"BringBack"_s).isEmpty());
    prompts.ExpectYesNo(kAsksToBringBack, true);
    Press(u"draftBringBack"_s);
    EXPECT_EQ(back, QStringList{u"甲"_s});
    EXPECT_EQ(Table().model()->rowCount(), 2);
    EXPECT_EQ(Preview(), u"乙的内容");
    EXPECT_EQ(Notice(), u"已恢复为最新版本。");
    EXPECT_EQ(toolkit::WidgetOf(prompts.Parents().at(0)), window);
}

TEST_F(DraftsInSight, TheQuestionSaysThatSomebodySavedMeanwhile) {
    Open();
    Choose(1);
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(kAsksToBringBack + u"\n此后已有人保存过新版本。恢复后草稿成为最新版本，"
                                           "原版本仍可在记录版本中查看。"_s,
                        true);
    Press(u"draftBringBack"_s);
    EXPECT_EQ(source.calls.filter(u"BringBack"_s), QStringList{u"BringBack 乙"_s});
}

TEST_F(DraftsInSight, ADraftIsRemovedAfterAQuestion) {
    Open();
    Choose(2);
    int back = 0;
    QObject::connect(window, &DraftWindow::BroughtBack, [&] { ++back; });
    support::AnsweredPrompts prompts;
    prompts.ExpectNoYes(kAsksToRemove, true);
    Press(u"draftRemove"_s);
    EXPECT_EQ(source.calls.filter(u"Remove"_s), QStringList{u"Remove 丙"_s});
    EXPECT_EQ(Table().model()->rowCount(), 2);
    EXPECT_EQ(Preview(), u"乙的内容") << "the last one is gone";
    EXPECT_EQ(Notice(), u"草稿已删除。");
    EXPECT_EQ(back, 0);
}

TEST_F(DraftsInSight, WhatFailsIsToldAndTheDraftStays) {
    Open();
    support::AnsweredPrompts prompts;
    prompts.ExpectYesNo(kAsksToBringBack, true);
    source.nextFault = u"磁盘已满"_s;
    Press(u"draftBringBack"_s);
    EXPECT_EQ(Notice(), u"草稿未恢复，仍保留在草稿箱中：磁盘已满");
    prompts.ExpectNoYes(kAsksToRemove, true);
    source.nextFault = u"磁盘已满"_s;
    Press(u"draftRemove"_s);
    EXPECT_EQ(Notice(), u"该草稿未能删除：磁盘已满");
    EXPECT_EQ(Table().model()->rowCount(), 3);
    EXPECT_EQ(Preview(), u"甲的内容");
}

TEST_F(DraftsInSight, DraftsThatCannotBeReadAreToldAndF5TriesAgain) {
    source.nextFault = u"没有权限"_s;
    Open();
    EXPECT_EQ(Notice(), u"无法读取草稿：没有权限。请稍后按 F5 重试。");
    const auto picture = [this] { return Table().viewport()->grab().toImage(); };
    const QImage told = picture();
    Table().SetHint(Notice());
    EXPECT_EQ(picture(), told) << "it stands in the table's place too";
    EXPECT_TRUE(support::WaitFor([this] { return hands::PressKey(window, Qt::Key_F5); }));
    Wait();
    EXPECT_EQ(Table().model()->rowCount(), 3);
    EXPECT_TRUE(Notice().isEmpty());
    EXPECT_EQ(Preview(), u"甲的内容");
}

TEST_F(DraftsInSight, ATextThatCannotBeReadIsToldInItsPlace) {
    Open();
    source.nextFault = u"文件损坏"_s;
    Choose(1);
    EXPECT_EQ(Preview(), u"<无法读取草稿内容：文件损坏。请稍后按 F5 重试。>");
    EXPECT_TRUE(Find<QPushButton>(u"draftRemove"_s).isEnabled());
    window->Reload();
    EXPECT_EQ(Preview(), u"乙的内容");
    source.texts[u"丙"_s] = u"<b>"_s.repeated(2000);
    Choose(2);
    EXPECT_EQ(Preview(), u"<无法读取草稿内容：内容嵌套过深。请稍后按 F5 重试。>");
}

TEST_F(DraftsInSight, AWidePictureIsShownNoWiderThanThePreview) {
    const support::TempFolder folder;
    source.folder = folder.Path(u"pages"_s);
    const auto picture =
        toolkit::StoreBytes(support::JpegBytes(support::OneColour({3000, 30}, Qt::blue)),
                            source.folder + u'/', u".jpg"_s);
    ASSERT_TRUE(picture);
    source.texts[u"甲"_s] =
        u"<p>一<img src='%1'/><img src='%1' width='2500'/><img src='%1' width='40'/></p>"_s.arg(
            *picture);
    Open();
    const auto& preview = Find<QTextEdit>(u"draftPreview"_s);
    EXPECT_EQ(preview.horizontalScrollBar()->maximum(), 0);
    const QTextCursor last(preview.document()->findBlockByNumber(0));
    std::vector<double> widths;
    for (auto piece = last.block().begin(); !piece.atEnd(); ++piece) {
        widths.push_back(piece.fragment().charFormat().toImageFormat().width());
    }
    EXPECT_EQ(widths.back(), 40) << "one that fits stays as it is";
}

TEST_F(DraftsInSight, ReadAnewTheChosenDraftStaysChosenAndWhatItsTextBecameIsRead) {
    Open();
    Choose(1);
    source.calls.clear();
    window->Reload();
    EXPECT_EQ(source.calls, QStringList{u"ReadDrafts"_s}) << "it is the same";
    source.drafts.erase(source.drafts.begin());
    source.drafts[0].at += 60;
    source.texts[u"乙"_s] = u"<p>乙的新内容</p>"_s;
    window->Reload();
    EXPECT_EQ(Preview(), u"乙的新内容");
}

TEST_F(DraftsInSight, ClosedWhileASourceIsAskedItAsksNoMore) {
    for (int call = 0; call < 2; ++call) {
        source.calls.clear();
        window = new DraftWindow(nullptr, source);
        int left = call;
        std::function<void()> deed = [&] {
            if (left-- == 0) {
                delete window;
            } else {
                source.happens = deed;
            }
        };
        source.happens = deed;
        window->show();
        EXPECT_TRUE(support::WaitFor([this] { return window.isNull(); })) << call;
        EXPECT_EQ(source.calls.size(), call + 1);
    }
}

TEST_F(DraftsInSight, ClosedDuringAQuestionOrWhatFollowsItDoesNothingMore) {
    Open();
    support::AnsweredPrompts prompts;
    prompts.ExpectNoYes(kAsksToRemove, true);
    prompts.Meanwhile([this] { delete window; });
    Press(u"draftRemove"_s);
    EXPECT_TRUE(source.calls.filter(u"Remove"_s).isEmpty());
    Open();
    source.calls.clear();
    prompts.ExpectNoYes(kAsksToRemove, true);
    source.happens = [this] { delete window; };
    Press(u"draftRemove"_s);
    EXPECT_EQ(source.calls, QStringList{u"Remove 甲"_s});
}

TEST_F(DraftsInSight, TheKeyboardAloneReachesEverything) {
    Open();
    std::set<QString> reached;
    for (int i = 0; i < 20; ++i) {
        QWidget* focus = window->focusWidget();
        ASSERT_NE(focus, nullptr);
        reached.insert(focus->objectName());
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    for (const QString& name : {u"draftTable"_s, u"draftPreview"_s, u"draftBringBack"_s,
                                u"draftRemove"_s, u"draftClose"_s}) {
        EXPECT_TRUE(reached.contains(name)) << name.toStdString();
    }
    Table().setFocus();
    QTest::keyClick(&Table(), Qt::Key_Down);
    Wait();
    EXPECT_EQ(Preview(), u"乙的内容");
    support::AnsweredPrompts prompts;
    prompts.ExpectNoYes(kAsksToRemove, false);
    QTest::keyClick(&Table(), Qt::Key_Delete);
    EXPECT_TRUE(support::WaitFor([&] { return prompts.AllAnswered(); }));
    QTest::keyClick(&Table(), Qt::Key_Escape);
    EXPECT_TRUE(support::WaitFor([this] { return window.isNull(); }));
}

TEST_F(DraftsInSight, TheWindowLiesOnItsScreen) {
    Open();
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->geometry()));
}

} // namespace
} // namespace host
