// The question of a conflict, and the other person's version.
#include "richtext/HistroyTip.h"
#include "tests/richtext/RichFixture.h"
#include "tests/support/Hands.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "toolkit/KXTools.h"
#include "toolkit/richtext/NoteEdit.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class HistroyTest : public RichFixture {
protected:
    static QString TextOf(QWidget& window, const char* name) {
        return window.findChild<QLabel*>(QString::fromLatin1(name))->text();
    }
    static toolkit::NoteEdit& SheetIn(QWidget& window) {
        return *window.findChild<toolkit::NoteEdit*>();
    }
    void Show(const KX_DATA::RichTextMsg& record, const support::ModalVisit::Action& look) {
        CHistroyEditor history(record);
        const support::ModalVisit visit(u"HistroyEditor"_s, [&](QWidget& window) {
            support::RunPendingEvents();
            look(window);
            window.close();
        });
        history.DoModal(mainWindow.Id());
        EXPECT_TRUE(visit.HasCome());
    }
};

} // namespace

TEST_F(HistroyTest, ShowsWhoSavedWhenAndInWhichStateOverTheDocument) {
    Show(OnServer(), [this](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), u"查看历史");
        EXPECT_EQ(TextOf(window, "editorText"), u"李四");
        EXPECT_EQ(TextOf(window, "timeText"), KXTools::timeToCString(OnServer().updateTime));
        EXPECT_EQ(TextOf(window, "stateText"), u"整改中");
        EXPECT_EQ(SheetIn(window).toPlainText(), u"雨后渗水");
        EXPECT_TRUE(SheetIn(window).isReadOnly());
    });
}

TEST_F(HistroyTest, ARecordWithoutADocumentShowsTheThreeLabelsOverAnEmptySheet) {
    OnServer().docName.clear();
    Show(OnServer(), [](QWidget& window) {
        EXPECT_EQ(TextOf(window, "editorText"), u"李四");
        EXPECT_TRUE(SheetIn(window).isReadOnly());
        EXPECT_EQ(SheetIn(window).toPlainText(), QString());
    });
    EXPECT_EQ(Log().CountOf("DownloadFile"), 0);
}

TEST_F(HistroyTest, AFileThatCannotBeFetchedIsToldAndTheSheetStaysEmpty) {
    host.script.FailAlways("DownloadFile");
    prompts.ExpectMessage(u"scripted failure"_s);
    Show(OnServer(), [](QWidget& window) { EXPECT_EQ(SheetIn(window).toPlainText(), QString()); });
}

TEST_F(HistroyTest, TheQuestionShowsTheHistoryAndStaysOpen) {
    CHistroyTip question(OnServer());
    bool isSeen = false;
    const support::ModalVisit visit(u"HistroyTip"_s, [&](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), u"Zelvor KX");
        QTimer closing;
        closing.callOnTimeout([&] {
            QWidget* other = QApplication::activeModalWidget();
            if (other != nullptr && other->objectName() == u"HistroyEditor"_s) {
                isSeen = true;
                closing.stop();
                other->close();
            }
        });
        closing.start(1);
        support::Click(window.findChild<QPushButton*>(u"historyButton"_s));
        EXPECT_TRUE(window.isVisible());
        support::Click(window.findChild<QPushButton*>(u"okButton"_s));
    });
    EXPECT_EQ(question.DoModal(mainWindow.Id()), DialogResult::Ok);
    EXPECT_TRUE(isSeen);
}

TEST_F(HistroyTest, EscapeLeavesTheHistory) {
    CHistroyEditor history(OnServer());
    bool isGone = false;
    const support::ModalVisit visit(u"HistroyEditor"_s, [&](QWidget& window) {
        support::RunPendingEvents();
        QTest::keyClick(&SheetIn(window), Qt::Key_Escape);
        isGone = !history.HasWindow() || !window.isVisible();
    });
    EXPECT_EQ(history.DoModal(mainWindow.Id()), DialogResult::Cancelled);
    EXPECT_TRUE(visit.HasCome());
    EXPECT_TRUE(isGone);
}
